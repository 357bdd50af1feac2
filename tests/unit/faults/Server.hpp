#ifndef KV_TESTS_FAULTS_SERVER_HPP
#define KV_TESTS_FAULTS_SERVER_HPP

#include "Environment.hpp"
#include "World.hpp"
#include "provider/LANProvider.hpp"

#include <OW_CIMInstance.hpp>
#include <OW_CIMObjectPath.hpp>
#include <OW_CIMProperty.hpp>

#include <map>
#include <string>
#include <vector>

namespace faults
{

/// What is kept somewhere, by name: in the registry, in the kernel, in a file or in a model.
using State = std::map<std::string, std::string>;

/// A server on which the library has been loaded and initialised and has read everything once:
/// eth0 192.168.0.1, eth1 10.0.0.5, eth2 172.16.0.1 with masks 255.255.255.0, gateway 10.0.0.1, MTUs of 1500
/// stored; domain site.example, name servers 10.0.0.2 and 10.0.0.3, all switches off but ICMP; marking off.
class Server
{
  public:
    Server();
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// Brings everything back to what it was after construction.
    void prepare();

    /// Makes eth1 take its address from DHCP.
    void configureDhcp();

    /// Reads all three classes; throws what the provider throws.
    void readEverything();

    /// Registry, MTUs, files, the settings' model and the marking service, without asking the provider for
    /// anything that reads.
    State state();

    std::vector<OpenWBEM::CIMObjectPath> names(const char* className);
    std::vector<OpenWBEM::CIMInstance> instances(const char* className);
    OpenWBEM::CIMInstance get(const OpenWBEM::CIMObjectPath& path);
    void modify(const OpenWBEM::CIMInstance& modified);
    void modifyEndpoint(const char* name, const std::vector<OpenWBEM::CIMProperty>& properties);
    void modifySetting(const std::vector<OpenWBEM::CIMProperty>& properties);
    void modifyService(const std::vector<OpenWBEM::CIMProperty>& properties);
    void create(const OpenWBEM::CIMInstance& instance);
    void remove(const OpenWBEM::CIMObjectPath& path);
    void invoke(const char* className, const char* method);

    fakes::World world;
    OpenWBEM::ProviderEnvironmentIFCRef env = fakes::environment("request");
    LANProvider provider;

  private:
    void configureStatic(const std::string& ifName, const std::string& address);
};

OpenWBEM::CIMProperty text(const char* name, const char* value);
OpenWBEM::CIMProperty number(const char* name, int value);
OpenWBEM::CIMProperty uint16(const char* name, unsigned short value);
OpenWBEM::CIMProperty flag(const char* name, bool value);

OpenWBEM::CIMObjectPath endpointPath(const char* name);

/// The keys of the marking service that initialize builds, or of another one with this name.
std::vector<OpenWBEM::CIMProperty> serviceKeys(const char* name = "Name");
OpenWBEM::CIMObjectPath servicePath();
OpenWBEM::CIMInstance serviceInstance(const char* name, const std::vector<OpenWBEM::CIMProperty>& properties);

} // namespace faults

#endif
