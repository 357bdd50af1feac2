#include "CIMInstanceData.hpp"
#include "MofText.hpp"
#include "NamedElements.hpp"
#include "OW_CIMClass.hpp"
#include "OW_NoSuchPropertyException.hpp"

namespace OpenWBEM
{

namespace
{
const int E_NO_SUCH_PROPERTY = 0;
const char* const INVISIBLE = "Invisible";
} // namespace

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

CIMInstance::CIMInstance(const CIMName& className) : m_data(new Data)
{
    m_data.write().className = className;
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
        OW_THROW_ERR(NoSuchPropertyException, name.toString().c_str(), E_NO_SUCH_PROPERTY);
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
        return setProperty(property.setValue(value));
    }
    // Without a look at the keys: a reference becomes one when they are next rebuilt.
    m_data.write().properties.push_back(value ? CIMProperty(name, value) : CIMProperty(name));
    return *this;
}

CIMInstance& CIMInstance::setProperty(const CIMProperty& property)
{
    if (!property) {
        return *this;
    }
    Data& data = m_data.write();
    const CIMProperty replaced = findElement(data.properties, property.getName());
    replaceOrAppend(data.properties, property);
    if (property.isKey() || (replaced && replaced.isKey())) {
        data.rebuildKeys();
    }
    return *this;
}

CIMInstance& CIMInstance::removeProperty(const CIMName& name)
{
    const CIMProperty removed = getProperty(name);
    Data& data = m_data.write();
    if (removeElement(data.properties, name) && removed.isKey()) {
        data.rebuildKeys();
    }
    return *this;
}

CIMInstance& CIMInstance::updatePropertyValue(const CIMProperty& property)
{
    if (!property) {
        return *this;
    }
    updatePropertyValue(property.getName(), property.getValue());
    if (property.isKey()) {
        m_data.write().rebuildKeys();
    }
    return *this;
}

CIMInstance& CIMInstance::updatePropertyValue(const CIMName& name, const CIMValue& value)
{
    if (!value) {
        throwNullReference();
    }
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
    if (qualifier) {
        replaceOrAppend(m_data.write().qualifiers, qualifier);
    }
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
        if (property.hasTrueQualifier(INVISIBLE)) {
            continue;
        }
        const CIMValue value = property.getValue();
        text += property.getName() + " = " + (value ? value.toString() : String("null")) + ";\n";
    }
    return text += "}\n";
}

String CIMInstance::toMOF() const
{
    const Data& data = m_data.read();
    String text =
        data.qualifiers.empty() ? "" : "[\n" + qualifiersMOF(data.qualifiers, ",").substring(1) + "\n";
    text += "INSTANCE OF " + getClassName() + "\n{\n";
    for (const CIMProperty& property : data.properties) {
        if (property.hasTrueQualifier(INVISIBLE)) {
            continue;
        }
        const CIMValue value = property.getValue();
        text += propertyQualifiersMOF(property) + "  " + property.getName() + "=" +
                (value ? value.toMOF() : String("NULL")) + ";\n";
    }
    return text += "};\n";
}

} // namespace OpenWBEM
