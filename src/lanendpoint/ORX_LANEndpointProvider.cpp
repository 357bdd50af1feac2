#include "lanendpoint/ORX_LANEndpointProvider.hpp"

#include "cim/Modification.hpp"
#include "lanendpoint/EndpointProperty.hpp"
#include "reporting/Failure.hpp"
#include "reporting/OperationGuard.hpp"

#include <OW_CIMException.hpp>
#include <OW_CIMNULL.hpp>
#include <OW_CIMParamValue.hpp>
#include <OW_CIMValue.hpp>

#include <utility>

namespace
{

using OpenWBEM::CIMClass;
using OpenWBEM::CIMException;
using OpenWBEM::CIMInstance;
using OpenWBEM::CIMInstanceResultHandlerIFC;
using OpenWBEM::CIMObjectPath;
using OpenWBEM::CIMObjectPathResultHandlerIFC;
using OpenWBEM::CIMParamValueArray;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMValue;
using OpenWBEM::ProviderEnvironmentIFCRef;
using OpenWBEM::String;
using OpenWBEM::StringArray;
namespace WBEMFlags = OpenWBEM::WBEMFlags;

constexpr const char* unit = "ORX_LANEndpointProvider.cpp";

// Builds the endpoint that a Name key or property stands for, and reads its state from the system.
void findByName(const CIMProperty& name, ORX_LANEndpoint& endpoint)
{
    const CIMValue value = name ? name.getValue() : CIMValue(OpenWBEM::CIMNULL);
    if (!value)
        reporting::fail({unit, __LINE__}, CIMException::NOT_FOUND);
    ORX_LANEndpoint found(value.toString());
    found.get();
    endpoint = std::move(found);
}

} // namespace

ORX_LANEndpointProvider::~ORX_LANEndpointProvider() = default;

void ORX_LANEndpointProvider::initialize(const ProviderEnvironmentIFCRef&)
{
    m_instances.init();
}

void ORX_LANEndpointProvider::cleanup() {}

void ORX_LANEndpointProvider::enumInstanceNames(const ProviderEnvironmentIFCRef& env, const String& ns,
                                                const String& className,
                                                CIMObjectPathResultHandlerIFC& result, const CIMClass&)
{
    reporting::guarded(
        env, {unit, "enumInstanceNames", __LINE__, __LINE__ + 1}, [&] { return className; },
        [&] {
            CIMObjectPath path(className, ns);
            for (int number = m_instances.next(); number >= 0; number = m_instances.next()) {
                ORX_LANEndpointToCIMObjectPath(ORX_LANEndpoint(number), path);
                result.handle(path);
            }
        });
}

void ORX_LANEndpointProvider::enumInstances(const ProviderEnvironmentIFCRef& env, const String& ns,
                                            const String& className, CIMInstanceResultHandlerIFC& result,
                                            WBEMFlags::ELocalOnlyFlag, WBEMFlags::EDeepFlag,
                                            WBEMFlags::EIncludeQualifiersFlag,
                                            WBEMFlags::EIncludeClassOriginFlag, const StringArray*,
                                            const CIMClass&, const CIMClass& cimClass)
{
    reporting::guarded(
        env, {unit, "enumInstances", __LINE__, __LINE__ + 1}, [&] { return className; },
        [&] {
            CIMInstance instance;
            for (int number = m_instances.next(); number >= 0; number = m_instances.next()) {
                ORX_LANEndpoint endpoint(number);
                endpoint.get();
                ORX_LANEndpointToCIMInstance(ns, endpoint, cimClass, instance);
                result.handle(instance);
            }
        });
}

CIMInstance ORX_LANEndpointProvider::getInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                                 const CIMObjectPath& instanceName, WBEMFlags::ELocalOnlyFlag,
                                                 WBEMFlags::EIncludeQualifiersFlag,
                                                 WBEMFlags::EIncludeClassOriginFlag, const StringArray*,
                                                 const CIMClass& cimClass)
{
    return reporting::guarded(
        env, {unit, "getInstance", __LINE__, __LINE__ + 1}, [&] { return instanceName.toString(); },
        [&] {
            CIMInstance instance(creationClassName);
            ORX_LANEndpoint endpoint;
            getORX_LANEndpointWithCIMObjectPath(instanceName, endpoint);
            ORX_LANEndpointToCIMInstance(ns, endpoint, cimClass, instance);
            return instance;
        });
}

void ORX_LANEndpointProvider::modifyInstance(const ProviderEnvironmentIFCRef& env, const String&,
                                             const CIMInstance& modifiedInstance, const CIMInstance&,
                                             WBEMFlags::EIncludeQualifiersFlag, const StringArray*,
                                             const CIMClass&)
{
    reporting::guarded(
        env, {unit, "modifyInstance", __LINE__, __LINE__ + 1}, [&] { return modifiedInstance.toString(); },
        [&] {
            ORX_LANEndpoint endpoint;
            getORX_LANEndpointWithCIMInstance(modifiedInstance, endpoint);
            modifyInstance(endpoint, modifiedInstance);
        });
}

CIMObjectPath ORX_LANEndpointProvider::createInstance(const ProviderEnvironmentIFCRef&, const String&,
                                                      const CIMInstance&)
{
    reporting::fail({unit, __LINE__}, CIMException::NOT_SUPPORTED);
}

void ORX_LANEndpointProvider::deleteInstance(const ProviderEnvironmentIFCRef&, const String&,
                                             const CIMObjectPath&)
{
    reporting::fail({unit, __LINE__}, CIMException::NOT_SUPPORTED);
}

CIMValue ORX_LANEndpointProvider::invokeMethod(const ProviderEnvironmentIFCRef&, const String&,
                                               const CIMObjectPath&, const String&, const CIMParamValueArray&,
                                               CIMParamValueArray&)
{
    reporting::fail({unit, __LINE__}, CIMException::NOT_SUPPORTED);
}

void ORX_LANEndpointProvider::ORX_LANEndpointToCIMInstance(const String&, const ORX_LANEndpoint& endpoint,
                                                           const CIMClass&, CIMInstance& instance)
{
    instance.setClassName(creationClassName);
    endpointProperties.fill(instance, endpoint);
}

void ORX_LANEndpointProvider::ORX_LANEndpointToCIMObjectPath(const ORX_LANEndpoint& endpoint,
                                                             CIMObjectPath& path)
{
    const auto keys = endpointProperties.keys(numberOfEndpointKeys, endpoint);
    if (!keys)
        reporting::fail({unit, __LINE__}, CIMException::NOT_FOUND);
    path.setKeys(*keys);
}

void ORX_LANEndpointProvider::getORX_LANEndpointWithCIMObjectPath(const CIMObjectPath& path,
                                                                  ORX_LANEndpoint& endpoint)
{
    findByName(path.getKey("Name"), endpoint);
}

void ORX_LANEndpointProvider::getORX_LANEndpointWithCIMInstance(const CIMInstance& instance,
                                                                ORX_LANEndpoint& endpoint)
{
    findByName(instance.getProperty("Name"), endpoint);
}

void ORX_LANEndpointProvider::modifyInstance(ORX_LANEndpoint& endpoint, const CIMInstance& instance)
{
    if (endpoint.startChange() == 0)
        reporting::fail({unit, __LINE__}, CIMException::FAILED, "Could not make the requested change.\n");
    cim::applyProperties(instance, endpointProperties, endpoint, {unit, __LINE__});
    if (endpoint.endChange() == 0)
        reporting::fail({unit, __LINE__}, CIMException::INVALID_PARAMETER,
                        "One or more of the values specified was invalid.\n");
}
