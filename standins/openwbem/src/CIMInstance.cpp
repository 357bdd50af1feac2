#include "CIMInstanceData.hpp"
#include "MofText.hpp"
#include "NamedElements.hpp"
#include "OW_CIMClass.hpp"
#include <utility>

namespace OpenWBEM
{

void CIMInstance::Data::rebuildKeys()
{
    keys.clear();
    for (const CIMProperty& property : properties) {
        if (property.isKey()) {
            keys.push_back(property);
        }
    }
}

CIMInstance::CIMInstance() : m_data(new Data) {}

CIMInstance::CIMInstance(CIMNULL_t) {}

CIMInstance::CIMInstance(CIMName className) : m_data(new Data)
{
    m_data.write().className = std::move(className);
}

CIMInstance::CIMInstance(const char* className) : CIMInstance(CIMName(className)) {}

void CIMInstance::setNull()
{
    m_data.setNull();
}

String CIMInstance::getName() const
{
    return getClassName();
}

void CIMInstance::setName(const CIMName& name)
{
    setClassName(name);
}

String CIMInstance::getClassName() const
{
    return m_data.read().className.toString();
}

CIMInstance& CIMInstance::setClassName(const CIMName& name)
{
    m_data.write().className = name;
    return *this;
}

String CIMInstance::getLanguage() const
{
    return m_data.read().language;
}

void CIMInstance::setLanguage(const String& language)
{
    m_data.write().language = language;
}

CIMPropertyArray CIMInstance::getProperties(Int32 valueDataType) const
{
    const CIMPropertyArray& properties = m_data.read().properties;
    if (valueDataType == CIMDataType::INVALID) {
        return properties;
    }
    CIMPropertyArray found;
    for (const CIMProperty& property : properties) {
        const CIMDataType type = property.getDataType();
        if (type && type.getType() == valueDataType) {
            found.push_back(property);
        }
    }
    return found;
}

CIMInstance& CIMInstance::setProperties(const CIMPropertyArray& properties)
{
    Data& data = m_data.write();
    data.properties = properties;
    data.rebuildKeys();
    return *this;
}

CIMProperty CIMInstance::getProperty(const CIMName& name) const
{
    return findElement(m_data.read().properties, name);
}

CIMProperty CIMInstance::getProperty(const CIMName& name, const CIMName& originClass) const
{
    for (const CIMProperty& property : m_data.read().properties) {
        if (name == property.getName() && originClass == property.getOriginClass()) {
            return property;
        }
    }
    return CIMProperty(CIMNULL);
}

CIMProperty CIMInstance::getPropertyT(const CIMName& name) const
{
    CIMProperty property = getProperty(name);
    if (!property) {
        OW_THROW(NoSuchPropertyException, name.toString().c_str());
    }
    return property;
}

CIMValue CIMInstance::getPropertyValue(const CIMName& name) const
{
    const CIMProperty property = getProperty(name);
    return property ? property.getValue() : CIMValue(CIMNULL);
}

bool CIMInstance::propertyHasValue(const CIMName& name) const
{
    return bool(getPropertyValue(name));
}

CIMInstance& CIMInstance::setProperty(const CIMName& name, const CIMValue& value)
{
    CIMProperty property = getProperty(name);
    if (property) {
        property.setValue(value);
    } else {
        property = value ? CIMProperty(name, value) : CIMProperty(name);
    }
    return setProperty(property);
}

CIMInstance& CIMInstance::setProperty(const CIMProperty& property)
{
    if (!property) {
        return *this;
    }
    Data& data = m_data.write();
    replaceOrAppend(data.properties, property);
    if (property.isKey()) {
        data.rebuildKeys();
    }
    return *this;
}

CIMInstance& CIMInstance::removeProperty(const CIMName& name)
{
    removeElement(m_data.write().properties, name);
    return *this;
}

CIMInstance& CIMInstance::updatePropertyValue(const CIMProperty& property)
{
    return updatePropertyValue(property.getName(), property.getValue());
}

CIMInstance& CIMInstance::updatePropertyValue(const CIMName& name, const CIMValue& value)
{
    return getProperty(name) ? setProperty(name, value) : *this;
}

CIMInstance& CIMInstance::updatePropertyValues(const CIMPropertyArray& properties)
{
    for (const CIMProperty& property : properties) {
        updatePropertyValue(property);
    }
    return *this;
}

CIMPropertyArray CIMInstance::getKeyValuePairs() const
{
    return m_data.read().keys;
}

CIMInstance& CIMInstance::setKeys(const CIMPropertyArray& keys)
{
    m_data.write().keys = keys;
    return *this;
}

CIMQualifierArray CIMInstance::getQualifiers() const
{
    return m_data.read().qualifiers;
}

CIMQualifier CIMInstance::getQualifier(const CIMName& name) const
{
    return findElement(m_data.read().qualifiers, name);
}

CIMInstance& CIMInstance::setQualifiers(const CIMQualifierArray& qualifiers)
{
    m_data.write().qualifiers = qualifiers;
    return *this;
}

CIMInstance& CIMInstance::setQualifier(const CIMQualifier& qualifier)
{
    replaceOrAppend(m_data.write().qualifiers, qualifier);
    return *this;
}

CIMInstance& CIMInstance::removeQualifier(const CIMName& name)
{
    removeElement(m_data.write().qualifiers, name);
    return *this;
}

String CIMInstance::toString() const
{
    String text = "instance of " + getClassName() + " {\n";
    for (const CIMProperty& property : m_data.read().properties) {
        if (property.hasTrueQualifier("Invisible")) {
            continue;
        }
        const CIMValue value = property.getValue();
        text += property.getName() + " = " + (value ? value.toString() : String("null")) + ";\n";
    }
    return text += "}\n";
}

String CIMInstance::toMOF() const
{
    String text = "INSTANCE OF " + getClassName() + "\n{\n";
    for (const CIMProperty& property : m_data.read().properties) {
        const CIMValue value = property.getValue();
        text += "  " + property.getName() + "=" + (value ? value.toMOF() : String("NULL")) + ";\n";
    }
    return text += "};\n";
}

} // namespace OpenWBEM
