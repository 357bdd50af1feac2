#include "CIMInstanceData.hpp"
#include "NamedElements.hpp"

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
    const CIMValue value = ofInstance.getValue();
    return value ? CIMProperty(ofClass).setValue(value) : ofClass;
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

CIMQualifierArray localQualifiers(const CIMQualifierArray& qualifiers)
{
    CIMQualifierArray local;
    for (const CIMQualifier& qualifier : qualifiers) {
        if (!qualifier.getPropagated()) {
            local.push_back(qualifier);
        }
    }
    return local;
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
        result.m_data.write().qualifiers = localQualifiers(result.m_data.read().qualifiers);
    }
    return result;
}

CIMInstance CIMInstance::clone(ELocalOnlyFlag localOnly, EIncludeQualifiersFlag includeQualifiers,
                               EIncludeClassOriginFlag includeClassOrigin,
                               const StringArray& propertyList) const
{
    return clone(localOnly, includeQualifiers, includeClassOrigin,
                 propertyList.empty() ? nullptr : &propertyList);
}

CIMInstance CIMInstance::filterProperties(const StringArray& propertyList,
                                          EIncludeQualifiersFlag includeQualifiers,
                                          EIncludeClassOriginFlag includeClassOrigin,
                                          bool ignorePropertyList) const
{
    const bool isRestricted = !ignorePropertyList || !propertyList.empty();
    CIMInstance result(*this);
    Data& data = result.m_data.write();
    data.properties.clear();
    for (CIMProperty property : m_data.read().properties) {
        if (isRestricted && !isListed(propertyList, property.getName())) {
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
    setProperties(properties);
    if (includeQualifiers == E_EXCLUDE_QUALIFIERS) { // of the properties, not of the keys
        for (CIMProperty& property : m_data.write().properties) {
            property.clearNonKeyQualifiers();
        }
    }
    return *this;
}

CIMInstance CIMInstance::createModifiedInstance(const CIMInstance& previousInstance,
                                                EIncludeQualifiersFlag includeQualifiers,
                                                const StringArray* propertyList,
                                                const CIMClass& theClass) const
{
    CIMInstance result(*this);
    if (includeQualifiers == E_EXCLUDE_QUALIFIERS) {
        result.setQualifiers(previousInstance.getQualifiers());
    }
    if (!propertyList) {
        return result;
    }
    result.setProperties(previousInstance.getProperties());
    for (const String& name : *propertyList) {
        CIMProperty modified = getProperty(name);
        if (!modified) {
            modified = theClass.getProperty(name);
        } else if (includeQualifiers == E_EXCLUDE_QUALIFIERS) {
            const CIMProperty ofClass = theClass.getProperty(name);
            modified.setQualifiers(ofClass ? ofClass.getQualifiers() : modified.getQualifiers());
        }
        modified ? result.setProperty(modified) : result.removeProperty(name);
    }
    return result;
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
