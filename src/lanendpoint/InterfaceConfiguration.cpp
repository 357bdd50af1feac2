#include "lanendpoint/InterfaceConfiguration.hpp"

#include "netutil/ServerInterfaces.hpp"
#include "system/Stream.hpp"

#include <OW_Array.hpp>

#include <dhcp_ip_info.h>

#include <array>
#include <cstdio>
#include <string>

namespace
{

using OpenWBEM::String;
using OpenWBEM::StringArray;

using AddressBuffer = std::array<char, 32>; // the size that the library asks for

String defaultGateway()
{
    AddressBuffer gateway = {};
    dhcpIpInfoGetDefaultGateway(gateway.data());
    return String(gateway.data());
}

// Appends the content of a file to `content`. False when it cannot be opened.
bool readFile(const String& path, std::string& content)
{
    const Stream file(std::fopen(path.c_str(), "re"));
    if (!file)
        return false;
    char part[1024];
    while (std::fgets(part, sizeof part, file.get()) != nullptr)
        content += part;
    return true;
}

// Takes the tokens of an interface file as keys and values in turn. A comment or a key without a value would
// shift the pairing, but the server's own tools write neither. A value missing at the end is empty.
void takeSettings(const StringArray& tokens, InterfaceConfiguration& configuration)
{
    for (StringArray::size_type i = 0; i < tokens.size(); i += 2) {
        const String& key = tokens[i];
        const String value = i + 1 < tokens.size() ? tokens[i + 1] : String("");
        if (key == "BOOTPROTO")
            configuration.isDhcpEnabled = value != "static";
        else if (key == "IPADDR")
            configuration.ipAddress = value;
        else if (key == "NETMASK")
            configuration.subnetMask = value;
    }
}

void readInterfaceFile(const String& name, InterfaceConfiguration& configuration)
{
    std::string content;
    if (readFile(ifcfgPath + name, content))
        takeSettings(String(content.c_str()).tokenize("=\n\r\t\v"), configuration);
}

} // namespace

AddressInForce addressInForce(const String& name)
{
    AddressBuffer ipAddress = {};
    AddressBuffer subnetMask = {};
    AddressBuffer gateway = {};
    dhcpIpInfoGetIPInfo(name.c_str(), ipAddress.data(), subnetMask.data(), gateway.data());
    return {String(ipAddress.data()), String(subnetMask.data()), String(gateway.data())};
}

void readInterfaceConfiguration(const String& name, InterfaceConfiguration& configuration)
{
    readInterfaceFile(name, configuration);
    if (name != customerLanName)
        return;
    if (configuration.isDhcpEnabled) {
        const AddressInForce current = addressInForce(name);
        configuration.ipAddress = current.ipAddress;
        configuration.subnetMask = current.subnetMask;
    }
    configuration.gateway = defaultGateway();
}
