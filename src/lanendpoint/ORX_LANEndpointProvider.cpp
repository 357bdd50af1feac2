#include "lanendpoint/ORX_LANEndpointProvider.hpp"

#include "reporting/Failure.hpp"
#include "reporting/Logging.hpp"
#include "reporting/OperationGuard.hpp"

#include <OW_CIMException.hpp>
#include <OW_CIMNULL.hpp>
#include <OW_CIMParamValue.hpp>
#include <OW_CIMValue.hpp>
#include <OW_Types.hpp>

#include <utility>

namespace
{

using OpenWBEM::Array;
using OpenWBEM::Bool;
using OpenWBEM::CIMClass;
using OpenWBEM::CIMDateTime;
using OpenWBEM::CIMException;
using OpenWBEM::CIMInstance;
using OpenWBEM::CIMInstanceResultHandlerIFC;
using OpenWBEM::CIMObjectPath;
using OpenWBEM::CIMObjectPathResultHandlerIFC;
using OpenWBEM::CIMParamValueArray;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMPropertyArray;
using OpenWBEM::CIMQualifier;
using OpenWBEM::CIMValue;
using OpenWBEM::Int32;
using OpenWBEM::ProviderEnvironmentIFCRef;
using OpenWBEM::String;
using OpenWBEM::StringArray;
using OpenWBEM::UInt16;
using OpenWBEM::UInt64;
namespace WBEMFlags = OpenWBEM::WBEMFlags;

constexpr const char* unit = "ORX_LANEndpointProvider.cpp";

// Clients match on these values. The system's class name is intended to be the endpoint's own.
constexpr const char* systemCreationClassName = "ORX_LANEndpoint";
constexpr const char* systemName = "ORX_K30v";
constexpr const char* creationClassName = "ORX_LANEndpoint";

// Replaces a property whole. Setting it by name and value would cast the value to the type that an instance
// in use already holds, and make 0 of "".
template <typename Value>
void set(CIMInstance& instance, const char* name, const Value& value)
{
    instance.setProperty(CIMProperty(name, CIMValue(value)));
}

template <typename Value>
void setWithWarning(CIMInstance& instance, const char* name, const Value& value,
                    const Array<CIMQualifier>& warning)
{
    CIMProperty property(name, CIMValue(value));
    property.setQualifiers(warning);
    instance.setProperty(property);
}

void setIdentity(CIMInstance& instance, const ORX_LANEndpoint& endpoint)
{
    set(instance, "SystemCreationClassName", String(systemCreationClassName));
    set(instance, "SystemName", String(systemName));
    set(instance, "CreationClassName", String(creationClassName));
    String text;
    if (endpoint.getName(text) == 1)
        set(instance, "Name", text);
    if (endpoint.getMACAddress(text) == 1)
        set(instance, "MACAddress", text);
    int mtu = 0;
    if (endpoint.getMaxDataSize(mtu) == 1)
        set(instance, "MaxDataSize", Int32(mtu));
}

void setIPConfiguration(CIMInstance& instance, const ORX_LANEndpoint& endpoint)
{
    String text;
    Array<CIMQualifier> warning;
    // "set" is intended: tools know the text as it is.
    if (endpoint.getIPAddress(text, warning) != 1)
        reporting::fail({unit, __LINE__}, CIMException::FAILED, "Error: setIPAddress!!");
    setWithWarning(instance, "IPAddress", text, warning);
    warning.clear();
    if (endpoint.getSubnetMask(text, warning) == 1)
        setWithWarning(instance, "SubnetMask", text, warning);
    if (endpoint.getGateway(text) == 1)
        set(instance, "DefaultGateway", text);
    warning.clear();
    bool isDhcpEnabled = false;
    if (endpoint.getIsDHCPEnabled(isDhcpEnabled, warning) == 1)
        setWithWarning(instance, "isDhcpEnabled", Bool(isDhcpEnabled), warning);
}

void setState(CIMInstance& instance, const ORX_LANEndpoint& endpoint)
{
    String description;
    if (endpoint.getDescription(description) == 1)
        set(instance, "Description", description);
    unsigned short number = 0;
    if (endpoint.getOperationalStatus(number) == 1)
        set(instance, "OperationalStatus", UInt16(number));
    // Intended: a state that cannot be read is the empty text, not a number.
    if (endpoint.getEnabledState(number) == 1)
        set(instance, "EnabledState", UInt16(number));
    else
        set(instance, "EnabledState", String(""));
    CIMDateTime time;
    if (endpoint.getTimeOfLastStateChange(time) == 1)
        set(instance, "TimeOfLastStateChange", time);
    if (endpoint.getProtocolIFType(number) == 1)
        set(instance, "ProtocolIFType", UInt16(number));
    unsigned long long speed = 0;
    if (endpoint.getSpeed(speed) == 1)
        set(instance, "Speed", UInt64(speed));
}

// Builds the endpoint that a Name key or property stands for, from whatever the system says about it.
void findByName(const CIMProperty& name, ORX_LANEndpoint& endpoint)
{
    const CIMValue value = name ? name.getValue() : CIMValue(OpenWBEM::CIMNULL);
    if (!value)
        reporting::fail({unit, __LINE__}, CIMException::NOT_FOUND);
    ORX_LANEndpoint found(value.toString());
    found.get();
    endpoint = std::move(found);
}

// Operators read these traces in the error log; their level and their spelling are intended.
int setIPAddressAndTrace(ORX_LANEndpoint& endpoint, const String& ipAddress)
{
    const int result = endpoint.setIPAddress(ipAddress);
    reporting::logError("PMDPMD Returing from setIPAddress!!");
    reporting::logError(result != 0 ? "PMDPMDSetIPAddress Succeeded!!!!!!!!!!!!!!!!!!!!!!!"
                                    : "PMDPMDSetIPAddress Failed!!!!!!!!!!!!!!!!!!!!!!!");
    return result;
}

// Applies one property of a modification. Names are compared exactly; properties that cannot be changed and
// those without a value are passed over. 0 when the endpoint refused the value.
int applyProperty(ORX_LANEndpoint& endpoint, const String& name, const CIMValue& value)
{
    if (!value)
        return 1;
    if (name == "MaxDataSize")
        return endpoint.setMaxDataSize(value.toInt32());
    if (name == "IPAddress")
        return setIPAddressAndTrace(endpoint, value.toString());
    if (name == "SubnetMask")
        return endpoint.setSubnetMask(value.toString());
    if (name == "DefaultGateway")
        return endpoint.setGateway(value.toString());
    if (name == "isDhcpEnabled")
        return endpoint.setIsDHCPEnabled(value.toBool());
    return 1;
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
    setIdentity(instance, endpoint);
    setIPConfiguration(instance, endpoint);
    setState(instance, endpoint);
}

void ORX_LANEndpointProvider::ORX_LANEndpointToCIMObjectPath(const ORX_LANEndpoint& endpoint,
                                                             CIMObjectPath& path)
{
    String name;
    if (endpoint.getName(name) != 1)
        reporting::fail({unit, __LINE__}, CIMException::NOT_FOUND);
    CIMPropertyArray keys;
    keys.push_back(CIMProperty("SystemCreationClassName", CIMValue(String(systemCreationClassName))));
    keys.push_back(CIMProperty("SystemName", CIMValue(String(systemName))));
    keys.push_back(CIMProperty("CreationClassName", CIMValue(String(creationClassName))));
    keys.push_back(CIMProperty("Name", CIMValue(name)));
    path.setKeys(keys);
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
    const CIMPropertyArray properties = instance.getProperties();
    for (const CIMProperty& property : properties) {
        const String name = property.getName();
        // The code in the log is fixed: a setter answers with a flag, of which only 0 refuses.
        if (applyProperty(endpoint, name, property.getValue()) == 0)
            reporting::logAndFail({unit, __LINE__},
                                  "Failed to modify property  " + instance.toString() + "." + name,
                                  "LAN_ERROR_failedModifyProperty", ":  with return code: 0");
    }
    if (endpoint.endChange() == 0)
        reporting::fail({unit, __LINE__}, CIMException::INVALID_PARAMETER,
                        "One or more of the values specified was invalid.\n");
}
