#ifndef KV_TESTS_PROVIDERFIXTURE_HPP
#define KV_TESTS_PROVIDERFIXTURE_HPP

#include "EndpointServer.hpp"
#include "Overrides.hpp"
#include "lanendpoint/ORX_LANEndpointProvider.hpp"

#include <OW_CIM.hpp>

#include <functional>
#include <vector>

namespace fakes
{

/// An initialised provider on the EndpointServer, asked as the object manager asks it.
class ProviderTest : public EndpointServer
{
  protected:
    ProviderTest();

    /// Called with each result of an enumeration before it is kept; may throw.
    std::function<void()> onResult = [] {};

    std::vector<OpenWBEM::CIMObjectPath>
    enumInstanceNames(const OpenWBEM::String& className = "ORX_LANEndpoint",
                      const OpenWBEM::String& ns = "root/cimv2");
    std::vector<OpenWBEM::CIMInstance> enumInstances(const OpenWBEM::String& className = "ORX_LANEndpoint");
    OpenWBEM::CIMInstance getInstance(const OpenWBEM::CIMObjectPath& path);
    OpenWBEM::CIMInstance getInstance(const OpenWBEM::String& name);
    void modifyInstance(const OpenWBEM::CIMInstance& modified);

    static OpenWBEM::CIMObjectPath pathTo(const OpenWBEM::String& name);

    /// An instance with the Name property and these others.
    static OpenWBEM::CIMInstance instanceOf(const OpenWBEM::String& name,
                                            const std::vector<OpenWBEM::CIMProperty>& properties);
    static OpenWBEM::CIMProperty property(const char* name, const char* value);
    static OpenWBEM::CIMProperty property(const char* name, OpenWBEM::Int32 value);
    static OpenWBEM::CIMProperty property(const char* name, bool value);

    /// One line a property, in order: "<type>:<name>=<value>", followed by " [<qualifier>=<value>]" for each
    /// qualifier.
    static Lines shown(const OpenWBEM::CIMInstance& instance);

    /// The line of shown() with this property, or "" when the instance lacks it.
    static std::string shown(const OpenWBEM::CIMInstance& instance, const std::string& name);

    /// What the failure texts of the guard call the request's target, with the line break behind it.
    static std::string unknownError(const char* operation, const OpenWBEM::String& target);

    /// shown() of eth1 as the EndpointServer has it.
    const Lines eth1Instance = {
        "string:SystemCreationClassName=ORX_LANEndpoint",
        "string:SystemName=ORX_K30v",
        "string:CreationClassName=ORX_LANEndpoint",
        "string:Name=eth1",
        "string:MACAddress=00:0a:f7:01:02:a1",
        "sint32:MaxDataSize=1500",
        "string:IPAddress=10.0.0.5 [ImpactWarning=Changing IP address will restart Voice Messaging.]",
        "string:SubnetMask=255.255.255.0 [ImpactWarning=Changing subnet mask will restart Voice Messaging.]",
        "string:DefaultGateway=10.0.0.1",
        "boolean:isDhcpEnabled=false [ImpactWarning=Changing DHCP will restart Voice Messaging.]",
        "string:Description=Customer LAN",
        "uint16:OperationalStatus=1",
        "uint16:EnabledState=1",
        "datetime:TimeOfLastStateChange=00000000000000.000000+000",
        "uint16:ProtocolIFType=6",
        "uint64:Speed=10000000"};

    ORX_LANEndpointProvider provider;
    Overrides overrides;
};

} // namespace fakes

#endif
