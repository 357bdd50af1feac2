#ifndef KV_LANENDPOINT_INTERFACECONFIGURATION_HPP
#define KV_LANENDPOINT_INTERFACECONFIGURATION_HPP

#include <OW_config.h>

#include <OW_Bool.hpp>
#include <OW_String.hpp>

/// Configuration file of an interface; the interface's name is appended.
constexpr const char* ifcfgPath = "/etc/sysconfig/network-scripts/ifcfg-";
/// Holds the default gateway. Changed through "/kv/bin/updateFile gateway" only and never opened here.
constexpr const char* gatewayFile = "/etc/sysconfig/network";
/// Changed through "/kv/bin/updatehosts" only and never opened here.
constexpr const char* hostFile = "/etc/hosts";

/// The IP configuration of one interface. Addresses are dotted decimal text, empty when not known.
struct InterfaceConfiguration {
    OpenWBEM::String ipAddress = OpenWBEM::String("");
    OpenWBEM::String subnetMask = OpenWBEM::String("");
    OpenWBEM::String gateway = OpenWBEM::String(""); ///< the system's default gateway; known for "eth1" only
    OpenWBEM::Bool isDhcpEnabled = false;            ///< whether the interface takes its address from DHCP
};

/// What the server's DHCP and IP information library says about an interface now. Texts are empty when not
/// known.
struct AddressInForce {
    OpenWBEM::String ipAddress;
    OpenWBEM::String subnetMask;
    OpenWBEM::String gateway;
};

AddressInForce addressInForce(const OpenWBEM::String& name);

/// Reads what is stored for the interface `name` into `configuration`. What the interface's file does not
/// name keeps its value, and so does everything when the file cannot be opened. Unknown content is never an
/// error. For "eth1", the customer LAN, the gateway is the system's default gateway; address and mask are
/// those in force if they come from DHCP.
void readInterfaceConfiguration(const OpenWBEM::String& name, InterfaceConfiguration& configuration);

#endif
