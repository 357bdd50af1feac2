#include "RequestSync.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMMethod.hpp"
#include "OW_CIMParameter.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"
#include "OW_CIMValueCast.hpp"

namespace cimom
{

using namespace OpenWBEM;

namespace
{

CIMParamValue cast(const CIMParamValue& argument, const CIMParameter& parameter)
{
    const CIMValue value = argument.getValue();
    if (!value) {
        return argument;
    }
    try {
        return CIMParamValue(argument.getName(),
                             CIMValueCast::castValueToDataType(value, parameter.getType()));
    } catch (const CIMException& e) {
        throw CIMException("RequestSync.cpp", __LINE__, CIMException::INVALID_PARAMETER,
                           e.Exception::getMessage());
    }
}

// Takes the named argument out of the list; null when it is not there.
CIMParamValue take(CIMParamValueArray& arguments, const CIMName& name)
{
    for (size_t i = 0; i < arguments.size(); ++i) {
        CIMParamValue argument = arguments[i];
        if (argument.getName() == name) {
            arguments.remove(i);
            return argument;
        }
    }
    return CIMParamValue(CIMNULL);
}

} // namespace

CIMObjectPath syncedPath(const CIMObjectPath& path, const CIMClass& cimClass)
{
    CIMObjectPath result(path);
    return result.syncWithClass(cimClass);
}

CIMInstance syncedInstance(const CIMInstance& instance, const CIMClass& cimClass)
{
    CIMInstance result(instance);
    result.syncWithClass(cimClass);
    CIMQualifierArray qualifiers;
    for (const CIMQualifier& qualifier : instance.getQualifiers()) {
        if (const CIMQualifier ofClass = cimClass.getQualifier(qualifier.getName())) {
            qualifiers.push_back(ofClass);
        }
    }
    return result.setQualifiers(qualifiers);
}

CIMInstance restrictedTo(const StringArray& names, const CIMInstance& instance)
{
    CIMPropertyArray properties;
    for (const String& name : names) {
        properties.push_back(instance.getPropertyT(name));
    }
    CIMInstance result(instance);
    result.setProperties(properties);
    return result.setKeys(instance.getKeyValuePairs());
}

CIMParamValueArray syncedArguments(const CIMParamValueArray& arguments, const CIMMethod& method)
{
    CIMParamValueArray left(arguments);
    CIMParamValueArray result;
    for (const CIMParameter& parameter : method.getINParameters()) {
        const CIMParamValue given = take(left, parameter.getName());
        result.push_back(given ? cast(given, parameter) : CIMParamValue(CIMName(parameter.getName())));
    }
    if (!left.empty()) {
        const String message = "Unknown or duplicate parameter: " + left[0].getName();
        throw CIMException("RequestSync.cpp", __LINE__, CIMException::INVALID_PARAMETER, message.c_str());
    }
    return result;
}

CIMObjectPath bareName(const CIMInstance& instance)
{
    return CIMObjectPath(instance.getClassName(), instance.getKeyValuePairs());
}

CIMObjectPath instanceName(const CIMInstance& instance, const CIMClass& cimClass)
{
    CIMPropertyArray keys = instance.getKeyValuePairs();
    if (keys.empty()) {
        for (const CIMProperty& key : cimClass.getKeys()) {
            if (instance.propertyHasValue(key.getName())) {
                keys.push_back(CIMProperty(key.getName(), instance.getPropertyValue(key.getName())));
            }
        }
    }
    return CIMObjectPath(instance.getClassName(), keys);
}

} // namespace cimom
