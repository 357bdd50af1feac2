#include "Targets.hpp"
#include "World.hpp"
#include "lanendpoint/InterfaceConfiguration.hpp"

#include <string>

namespace
{

void expectToken(const OpenWBEM::String& value)
{
    const std::string text(value.c_str(), value.length());
    fuzz::expect(text.find_first_of(std::string("=\n\r\t\v\0", 6)) == std::string::npos,
                 "a value is one token of the file");
}

} // namespace

void fuzz::interface_file(std::string_view input)
{
    const fakes::World world;
    world.write("/etc/sysconfig/network-scripts/ifcfg-eth0", std::string(input));
    InterfaceConfiguration configuration;
    configuration.gateway = "kept";
    readInterfaceConfiguration("eth0", configuration);

    expectToken(configuration.ipAddress);
    expectToken(configuration.subnetMask);
    expect(configuration.gateway == "kept", "the file says nothing of the gateway");
    expect(!configuration.isDhcpEnabled || input.find("BOOTPROTO") != std::string_view::npos,
           "DHCP is what the file says, not a default");
    expect(configuration.ipAddress.empty() || input.find("IPADDR") != std::string_view::npos,
           "an address stands in the file");
    expect(world.problems().empty(), "nothing is left behind");
}
