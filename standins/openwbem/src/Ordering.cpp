#include "OW_CIM.hpp"
#include <tuple>

// The order of the CIM objects, for sorted containers: by all that they hold, the name first.
namespace OpenWBEM
{

namespace
{

auto parts(const CIMFlavor& flavor)
{
    return std::make_tuple(flavor.getFlavor());
}

auto parts(const CIMDataType& type)
{
    return std::make_tuple(Int32(type.getType()), type.getSize(), CIMName(type.getRefClassName()));
}

auto parts(const CIMQualifier& qualifier)
{
    return std::make_tuple(CIMName(qualifier.getName()), qualifier.getValue(), qualifier.getFlavor(),
                           qualifier.getPropagated());
}

auto parts(const CIMQualifierType& type)
{
    return std::make_tuple(CIMName(type.getName()), type.getDataType(), type.getDefaultValue(),
                           type.getFlavors());
}

auto parts(const CIMProperty& property)
{
    return std::make_tuple(CIMName(property.getName()), property.getDataType(), property.getValue(),
                           property.getQualifiers(), CIMName(property.getOriginClass()),
                           property.getPropagated());
}

auto parts(const CIMParameter& parameter)
{
    return std::make_tuple(CIMName(parameter.getName()), parameter.getType(), parameter.getQualifiers());
}

auto parts(const CIMParamValue& argument)
{
    return std::make_tuple(CIMName(argument.getName()), argument.getValue());
}

auto parts(const CIMMethod& method)
{
    return std::make_tuple(CIMName(method.getName()), method.getReturnType(), method.getParameters(),
                           method.getQualifiers(), CIMName(method.getOriginClass()), method.getPropagated());
}

auto parts(const CIMInstance& instance)
{
    return std::make_tuple(CIMName(instance.getClassName()), instance.getProperties(),
                           instance.getKeyValuePairs(), instance.getQualifiers(), instance.getLanguage());
}

auto parts(const CIMClass& cimClass)
{
    return std::make_tuple(CIMName(cimClass.getName()), CIMName(cimClass.getSuperClass()),
                           cimClass.getAllProperties(), cimClass.getQualifiers(), cimClass.getAllMethods());
}

} // namespace

// clang-format off
bool operator<(const CIMFlavor& lhs, const CIMFlavor& rhs) { return parts(lhs) < parts(rhs); }
bool operator<(const CIMDataType& lhs, const CIMDataType& rhs) { return parts(lhs) < parts(rhs); }
bool operator<=(const CIMDataType& lhs, const CIMDataType& rhs) { return !(rhs < lhs); }
bool operator<(const CIMQualifier& lhs, const CIMQualifier& rhs) { return parts(lhs) < parts(rhs); }
bool operator<(const CIMQualifierType& lhs, const CIMQualifierType& rhs) { return parts(lhs) < parts(rhs); }
bool operator<(const CIMProperty& lhs, const CIMProperty& rhs) { return parts(lhs) < parts(rhs); }
bool operator<(const CIMParameter& lhs, const CIMParameter& rhs) { return parts(lhs) < parts(rhs); }
bool operator<(const CIMParamValue& lhs, const CIMParamValue& rhs) { return parts(lhs) < parts(rhs); }
bool operator<(const CIMMethod& lhs, const CIMMethod& rhs) { return parts(lhs) < parts(rhs); }
bool operator<(const CIMInstance& lhs, const CIMInstance& rhs) { return parts(lhs) < parts(rhs); }
bool operator<(const CIMClass& lhs, const CIMClass& rhs) { return parts(lhs) < parts(rhs); }
bool operator<=(const CIMClass& lhs, const CIMClass& rhs) { return !(rhs < lhs); }
bool operator>(const CIMClass& lhs, const CIMClass& rhs) { return rhs < lhs; }
bool operator>=(const CIMClass& lhs, const CIMClass& rhs) { return !(lhs < rhs); }
// clang-format on

} // namespace OpenWBEM
