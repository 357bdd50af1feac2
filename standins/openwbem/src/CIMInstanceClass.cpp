#include "CIMInstanceData.hpp"
#include "NamedElements.hpp"
#include "OW_CIMClass.hpp"
#include "OW_CIMValueCast.hpp"

// What a property list or a class definition makes of an instance.
namespace OpenWBEM
{

using namespace WBEMFlags;

namespace
{

bool isListed(const StringArray& names, const CIMName& name)
{
    for (const String& listed : names) {
        if (name == listed) {
            return true;
        }
    }
    return false;
}

// The class's property with the instance's value; the class's default stands in for a null value.
CIMProperty synchronized(const CIMProperty& ofInstance, const CIMProperty& ofClass)
{
    CIMProperty result(ofClass);
    const CIMValue value = CIMValueCast::castValueToDataType(ofInstance.getValue(), ofClass.getDataType());
    if (value) {
        result.setValue(value);
    }
    return result;
}

CIMPropertyArray knownProperties(const CIMPropertyArray& properties, const CIMClass& cimClass)
{
    CIMPropertyArray known;
    for (const CIMProperty& property : properties) {
        if (cimClass.getProperty(property.getName())) {
            known.push_back(property);
        }
    }
    return known;
}

} // namespace

CIMInstance CIMInstance::clone(ELocalOnlyFlag localOnly, EIncludeQualifiersFlag includeQualifiers,
                               EIncludeClassOriginFlag includeClassOrigin,
                               const StringArray* propertyList) const
{
    CIMInstance result = filterProperties(propertyList ? *propertyList : StringArray(), includeQualifiers,
                                          includeClassOrigin, propertyList == nullptr);
    if (localOnly == E_LOCAL_ONLY) {
        CIMPropertyArray local;
        for (const CIMProperty& property : result.m_data.read().properties) {
            if (!property.getPropagated()) {
                local.push_back(property);
            }
        }
        result.m_data.write().properties = local;
    }
    return result;
}

CIMInstance CIMInstance::filterProperties(const StringArray& propertyList,
                                          EIncludeQualifiersFlag includeQualifiers,
                                          EIncludeClassOriginFlag includeClassOrigin,
                                          bool ignorePropertyList) const
{
    CIMInstance result(*this);
    Data& data = result.m_data.write();
    data.properties.clear();
    for (CIMProperty property : m_data.read().properties) {
        if (!ignorePropertyList && !isListed(propertyList, property.getName())) {
            continue;
        }
        if (includeQualifiers == E_EXCLUDE_QUALIFIERS) {
            property.clearQualifiers();
        }
        if (includeClassOrigin == E_EXCLUDE_CLASS_ORIGIN) {
            property.setOriginClass("");
        }
        data.properties.push_back(property);
    }
    if (includeQualifiers == E_EXCLUDE_QUALIFIERS) {
        data.qualifiers.clear();
    }
    return result;
}

CIMInstance& CIMInstance::syncWithClass(const CIMClass& cimClass, EIncludeQualifiersFlag includeQualifiers)
{
    if (!cimClass) {
        return *this;
    }
    CIMPropertyArray properties = knownProperties(m_data.read().properties, cimClass);
    for (const CIMProperty& ofClass : cimClass.getAllProperties()) {
        // Of two properties with one name the first is synchronized; the other stays as it came.
        const size_t position = positionOf(properties, ofClass.getName());
        if (position < properties.size()) {
            properties[position] = synchronized(properties[position], ofClass);
        } else {
            properties.push_back(ofClass);
        }
    }
    if (includeQualifiers == E_INCLUDE_QUALIFIERS) {
        setQualifiers(cimClass.getQualifiers());
    }
    return setProperties(properties);
}

CIMInstance CIMInstance::createModifiedInstance(const CIMInstance& previousInstance,
                                                EIncludeQualifiersFlag includeQualifiers,
                                                const StringArray* propertyList,
                                                const CIMClass& theClass) const
{
    CIMInstance result(previousInstance);
    for (const CIMProperty& property : m_data.read().properties) {
        if (!propertyList || isListed(*propertyList, property.getName())) {
            result.setProperty(property);
        }
    }
    if (includeQualifiers == E_INCLUDE_QUALIFIERS) {
        result.setQualifiers(getQualifiers());
    }
    return result.syncWithClass(theClass, E_EXCLUDE_QUALIFIERS);
}

bool CIMInstance::propertiesAreEqualTo(const CIMInstance& other) const
{
    const CIMPropertyArray& mine = m_data.read().properties;
    bool same = mine.size() == other.m_data.read().properties.size();
    for (size_t i = 0; same && i < mine.size(); ++i) {
        const CIMProperty theirs = other.getProperty(mine[i].getName());
        same = theirs && mine[i].getValue() == theirs.getValue();
    }
    return same;
}

} // namespace OpenWBEM
