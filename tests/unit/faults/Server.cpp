#include "Server.hpp"

#include "MarkingService.hpp"
#include "lansetting/ORX_LANSettingProvider.hpp"
#include "reporting/Logging.hpp"

#include <OW_CIM.hpp>
#include <OW_CIMParamValue.hpp>
#include <OW_ResultHandlers.hpp>

#include <unistd.h>

namespace faults
{

using namespace OpenWBEM; // the provider's interface is all of OpenWBEM's types

namespace
{

const CIMClass noClass(CIMNULL);

CIMInstance instanceOf(const char* className, const std::vector<CIMProperty>& properties)
{
    CIMInstance instance(className);
    for (const CIMProperty& property : properties)
        instance.setProperty(property);
    return instance;
}

/// Interfaces with both kinds of MII requests and with none.
void connect(fakes::World& world)
{
    world.interfaces["eth0"].mii = fakes::Interface::Mii::Standard;
    world.interfaces["eth1"].mii = fakes::Interface::Mii::Private;
    for (auto& [name, interface] : world.interfaces) {
        interface.mtu = 1500;
        interface.registers = {0x1000, 0x7869, 0, 0, 0x01E1, 0x45E1, 0, 0};
    }
}

} // namespace

Server::Server()
{
    prepare();
}

Server::~Server()
{
    fakes::releaseMarkingService();
    setting = ORX_LANSetting();
    const auto open = world.descriptors;
    for (const auto& [descriptor, what] : open)
        ::close(descriptor);
    gLogger = LoggerRef();
}

void Server::configureStatic(const std::string& ifName, const std::string& address)
{
    world.write("/etc/sysconfig/network-scripts/ifcfg-" + ifName,
                "DEVICE=" + ifName + "\nBOOTPROTO=static\nIPADDR=" + address +
                    "\nNETMASK=255.255.255.0\nONBOOT=yes\n");
    world.addresses[ifName] = {address, "255.255.255.0", ""};
    world.registry[{"providers\\ORX_LANProvider\\" + ifName, "MTUSize"}] = 1500;
}

void Server::configureDhcp()
{
    world.write("/etc/sysconfig/network-scripts/ifcfg-eth1", "DEVICE=eth1\nBOOTPROTO=dhcp\n");
}

void Server::prepare()
{
    connect(world);
    world.registry.clear();
    configureStatic("eth0", "192.168.0.1");
    configureStatic("eth1", "10.0.0.5");
    configureStatic("eth2", "172.16.0.1");
    world.defaultGateway = "10.0.0.1";
    world.write("/etc/resolv.conf", "search\tsite.example\nnameserver 10.0.0.2\nnameserver 10.0.0.3\n");
    world.write("/kv/etc/kv_netfilter.cfg", "kv_netfilter_icmp 1\nkv_netfilter_arp 0\n"
                                            "kv_netfilter_broadcast 0\nkv_netfilter_ipconflict 0\n");
    for (const char* key :
         {"KLonKLEnabled", "voipsigmenu", "voipsigtosbyte", "voicemediamenu", "voicemediatosbyte",
          "videomediamenu", "videomediatosbyte", "faxmediamenu", "faxmediatosbyte"})
        world.registry[{"HTS\\DSCPMarking", key}] = 0;

    fakes::releaseMarkingService();
    setting = ORX_LANSetting();
    provider.initialize(env);
    readEverything();
    world.clearJournal();
}

void Server::readEverything()
{
    for (const char* className : {"ORX_LANEndpoint", "ORX_LANServiceSetting", "ORX_ALGService"}) {
        names(className);
        instances(className);
    }
}

State Server::state()
{
    State state;
    for (const auto& [key, value] : world.registry)
        state[key.first + " " + key.second] = std::to_string(value);
    for (const auto& [name, interface] : world.interfaces)
        state["MTU of " + name] = std::to_string(interface.mtu);
    for (const char* path : {"/etc/resolv.conf", "/kv/etc/kv_netfilter.cfg"})
        state[path] = world.read(path);

    String value;
    setting.getDomainName(value);
    state["domain"] = value.c_str();
    setting.getPrimaryDNS(value);
    state["primary"] = value.c_str();
    setting.getSecondaryDNS(value);
    state["secondary"] = value.c_str();
    bool on = false;
    setting.getIsIcmpFilterEnabled(on);
    state["ICMP"] = std::to_string(on);
    setting.getIsArpFilterEnabled(on);
    state["ARP"] = std::to_string(on);

    for (const CIMInstance& service : instances("ORX_ALGService")) { // from memory
        const CIMPropertyArray properties = service.getProperties();
        for (const CIMProperty& property : properties)
            state[std::string("service ") + property.getName().c_str()] =
                property.getValue().toString().c_str();
    }
    return state;
}

std::vector<CIMObjectPath> Server::names(const char* className)
{
    CIMObjectPathArray names;
    CIMObjectPathArrayBuilder result(names);
    provider.enumInstanceNames(env, "root/cimv2", className, result, noClass);
    return {names.begin(), names.end()};
}

std::vector<CIMInstance> Server::instances(const char* className)
{
    CIMInstanceArray instances;
    CIMInstanceArrayBuilder result(instances);
    provider.enumInstances(env, "root/cimv2", className, result, WBEMFlags::E_NOT_LOCAL_ONLY,
                           WBEMFlags::E_DEEP, WBEMFlags::E_INCLUDE_QUALIFIERS,
                           WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, nullptr, noClass, noClass);
    return {instances.begin(), instances.end()};
}

CIMInstance Server::get(const CIMObjectPath& path)
{
    return provider.getInstance(env, "root/cimv2", path, WBEMFlags::E_NOT_LOCAL_ONLY,
                                WBEMFlags::E_INCLUDE_QUALIFIERS, WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, nullptr,
                                noClass);
}

void Server::modify(const CIMInstance& modified)
{
    provider.modifyInstance(env, "root/cimv2", modified, CIMInstance(CIMNULL),
                            WBEMFlags::E_INCLUDE_QUALIFIERS, nullptr, noClass);
}

void Server::modifyEndpoint(const char* name, const std::vector<CIMProperty>& properties)
{
    std::vector<CIMProperty> all = {text("Name", name)};
    all.insert(all.end(), properties.begin(), properties.end());
    modify(instanceOf("ORX_LANEndpoint", all));
}

void Server::modifySetting(const std::vector<CIMProperty>& properties)
{
    modify(instanceOf("ORX_LANServiceSetting", properties));
}

void Server::modifyService(const std::vector<CIMProperty>& properties)
{
    modify(serviceInstance("Name", properties));
}

void Server::create(const CIMInstance& instance)
{
    provider.createInstance(env, "root/cimv2", instance);
}

void Server::remove(const CIMObjectPath& path)
{
    provider.deleteInstance(env, "root/cimv2", path);
}

void Server::invoke(const char* className, const char* method)
{
    CIMParamValueArray out;
    provider.invokeMethod(env, "root/cimv2", CIMObjectPath(className), method, CIMParamValueArray(), out);
}

CIMProperty text(const char* name, const char* value)
{
    return CIMProperty(name, CIMValue(String(value)));
}

CIMProperty number(const char* name, int value)
{
    return CIMProperty(name, CIMValue(Int32(value)));
}

CIMProperty uint16(const char* name, unsigned short value)
{
    return CIMProperty(name, CIMValue(UInt16(value)));
}

CIMProperty flag(const char* name, bool value)
{
    return CIMProperty(name, CIMValue(Bool(value)));
}

CIMObjectPath endpointPath(const char* name)
{
    CIMObjectPath path("ORX_LANEndpoint");
    path.setKeyValue("Name", CIMValue(String(name)));
    return path;
}

std::vector<CIMProperty> serviceKeys(const char* name)
{
    return {text("SystemCreationClassName", "SCCN"), text("SystemName", "SN"),
            text("CreationClassName", "CCN"), text("Name", name)};
}

CIMObjectPath servicePath()
{
    CIMObjectPath path("ORX_ALGService");
    for (const CIMProperty& key : serviceKeys())
        path.setKeyValue(key.getName(), key.getValue());
    return path;
}

CIMInstance serviceInstance(const char* name, const std::vector<CIMProperty>& properties)
{
    std::vector<CIMProperty> all = serviceKeys(name);
    all.insert(all.end(), properties.begin(), properties.end());
    return instanceOf("ORX_ALGService", all);
}

} // namespace faults
