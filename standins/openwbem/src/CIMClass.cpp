#include "COWData.hpp"
#include "MofText.hpp"
#include "NamedElements.hpp"
#include "OW_CIM.hpp"

namespace OpenWBEM
{

struct CIMClass::Data : COWData<CIMClass::Data> {
    CIMName name;
    CIMName superClass;
    CIMPropertyArray properties;
    CIMQualifierArray qualifiers;
    CIMMethodArray methods;
};

namespace
{
const char* const ASSOCIATION = "Association";
} // namespace

CIMClass::CIMClass() : m_data(new Data) {}

CIMClass::CIMClass(CIMNULL_t) {}

CIMClass::CIMClass(const CIMName& name) : m_data(new Data)
{
    m_data.write().name = name;
}

CIMClass::CIMClass(const char* name) : CIMClass(CIMName(name)) {}

void CIMClass::setNull()
{
    m_data.setNull();
}

String CIMClass::getName() const
{
    return m_data.read().name.toString();
}

void CIMClass::setName(const CIMName& name)
{
    m_data.write().name = name;
}

String CIMClass::getSuperClass() const
{
    return m_data.read().superClass.toString();
}

CIMClass& CIMClass::setSuperClass(const CIMName& name)
{
    m_data.write().superClass = name;
    return *this;
}

CIMPropertyArray CIMClass::getAllProperties() const
{
    return m_data.read().properties;
}

CIMProperty CIMClass::getProperty(const CIMName& name) const
{
    return findElement(m_data.read().properties, name);
}

CIMPropertyArray CIMClass::getKeys() const
{
    CIMPropertyArray keys;
    for (const CIMProperty& property : m_data.read().properties) {
        if (property.isKey()) {
            keys.push_back(property);
        }
    }
    return keys;
}

CIMClass& CIMClass::addProperty(const CIMProperty& property)
{
    if (property) {
        m_data.write().properties.push_back(property);
    }
    return *this;
}

CIMClass& CIMClass::setProperty(const CIMProperty& property)
{
    replaceOrAppend(m_data.write().properties, property);
    return *this;
}

CIMClass& CIMClass::setProperties(const CIMPropertyArray& properties)
{
    m_data.write().properties = properties;
    return *this;
}

CIMQualifierArray CIMClass::getQualifiers() const
{
    return m_data.read().qualifiers;
}

CIMQualifier CIMClass::getQualifier(const CIMName& name) const
{
    return findElement(m_data.read().qualifiers, name);
}

CIMClass& CIMClass::addQualifier(const CIMQualifier& qualifier)
{
    if (qualifier) {
        removeElement(m_data.write().qualifiers, qualifier.getName());
        m_data.write().qualifiers.push_back(qualifier);
    }
    return *this;
}

CIMClass& CIMClass::setQualifiers(const CIMQualifierArray& qualifiers)
{
    m_data.write().qualifiers = qualifiers;
    return *this;
}

CIMMethodArray CIMClass::getAllMethods() const
{
    return m_data.read().methods;
}

CIMMethod CIMClass::getMethod(const CIMName& name) const
{
    return findElement(m_data.read().methods, name);
}

CIMClass& CIMClass::addMethod(const CIMMethod& method)
{
    m_data.write().methods.push_back(method);
    return *this;
}

CIMClass& CIMClass::setMethods(const CIMMethodArray& methods)
{
    m_data.write().methods = methods;
    return *this;
}

CIMInstance CIMClass::newInstance() const
{
    return CIMInstance(getName()).syncWithClass(*this);
}

bool CIMClass::operator==(const CIMClass& arg) const
{
    const Data& mine = m_data.read();
    const Data& others = arg.m_data.read();
    return mine.name == others.name && mine.superClass == others.superClass &&
           mine.properties.size() == others.properties.size() &&
           mine.qualifiers.size() == others.qualifiers.size() && mine.methods.size() == others.methods.size();
}

String CIMClass::toString() const
{
    return toMOF();
}

String CIMClass::toMOF() const
{
    const Data& data = m_data.read();
    CIMQualifierArray qualifiers = data.qualifiers;
    if (removeElement(qualifiers, ASSOCIATION)) { // MOF wants it first
        qualifiers.insert(0, getQualifier(ASSOCIATION));
    }
    String text = qualifiersMOF(qualifiers, ",\n ");
    text += text.empty() ? "class " : "\nclass ";
    text += getName();
    if (data.superClass) {
        text += ":" + getSuperClass();
    }
    text += "\n{\n";
    for (const CIMProperty& property : data.properties) {
        text += property.toMOF();
    }
    for (const CIMMethod& method : data.methods) {
        text += method.toMOF();
    }
    return text += "};\n";
}

} // namespace OpenWBEM
