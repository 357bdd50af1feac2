#include "RoofFixture.hpp"

#include "MarkingService.hpp"
#include "StandardOutput.hpp"

#include <OW_ResultHandlers.hpp>

#include <stdexcept>

namespace fakes
{

using namespace OpenWBEM; // the provider's interface is all of OpenWBEM's types

Roof::~Roof()
{
    releaseMarkingService();
}

CIMObjectPathArray Roof::namesOf(const char* className)
{
    CIMObjectPathArray names;
    CIMObjectPathArrayBuilder result(names);
    enumNames(className, result);
    return names;
}

CIMInstanceArray Roof::instancesOf(const char* className)
{
    CIMInstanceArray instances;
    CIMInstanceArrayBuilder result(instances);
    enumInstances(className, result);
    return instances;
}

void Roof::enumNames(const char* className, CIMObjectPathResultHandlerIFC& result)
{
    provider.enumInstanceNames(env, "root/cimv2", className, result, noClass);
}

void Roof::enumInstances(const char* className, CIMInstanceResultHandlerIFC& result)
{
    provider.enumInstances(env, "root/cimv2", className, result, WBEMFlags::E_NOT_LOCAL_ONLY,
                           WBEMFlags::E_DEEP, WBEMFlags::E_INCLUDE_QUALIFIERS,
                           WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, nullptr, noClass, noClass);
}

CIMInstance Roof::get(const CIMObjectPath& path)
{
    return provider.getInstance(env, "root/cimv2", path, WBEMFlags::E_NOT_LOCAL_ONLY,
                                WBEMFlags::E_INCLUDE_QUALIFIERS, WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, nullptr,
                                noClass);
}

void Roof::modify(const CIMInstance& modified, const CIMInstance& previous)
{
    provider.modifyInstance(env, "root/cimv2", modified, previous, WBEMFlags::E_INCLUDE_QUALIFIERS, nullptr,
                            noClass);
}

CIMValue Roof::invoke(const char* className, const char* method)
{
    CIMParamValueArray out;
    return provider.invokeMethod(env, "root/cimv2", CIMObjectPath(className), method, CIMParamValueArray(),
                                 out);
}

std::map<std::string, std::function<void()>> Roof::operationsOn(const char* className)
{
    return {{"enumInstanceNames", [=] { namesOf(className); }},
            {"enumInstances", [=] { instancesOf(className); }},
            {"getInstance", [=] { get(CIMObjectPath(className)); }},
            {"createInstance", [=] { provider.createInstance(env, "root/cimv2", CIMInstance(className)); }},
            {"deleteInstance", [=] { provider.deleteInstance(env, "root/cimv2", CIMObjectPath(className)); }},
            {"modifyInstance", [=] { modify(CIMInstance(className), CIMInstance("ORX_LANEndpoint")); }},
            {"invokeMethod", [=] { invoke(className, "ResetRouter"); }}};
}

std::string Roof::traceOf(const std::function<void()>& operation)
{
    const StandardOutput output;
    operation();
    return output.text();
}

CIMException Roof::failureOf(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const CIMException& e) {
        return e;
    }
    throw std::logic_error("nothing was thrown");
}

CIMObjectPath Roof::endpointPath(const char* name)
{
    CIMObjectPath path("ORX_LANEndpoint");
    path.setKeyValue("Name", CIMValue(String(name)));
    return path;
}

} // namespace fakes
