#include "EndpointServer.hpp"

namespace fakes
{

EndpointServer::EndpointServer()
{
    configureStatic("eth0", "192.168.0.1", "255.255.255.0");
    configureStatic("eth1", "10.0.0.5", "255.255.255.0");
    configureStatic("eth2", "172.16.0.1", "255.255.255.0");
    world.defaultGateway = "10.0.0.1";
    for (const char* ifName : {"eth0", "eth1", "eth2"})
        world.registry[{std::string("providers\\ORX_LANProvider\\") + ifName, "MTUSize"}] = 1500;
}

std::string EndpointServer::fileOf(const std::string& ifName)
{
    return "/etc/sysconfig/network-scripts/ifcfg-" + ifName;
}

void EndpointServer::writeInterfaceFile(const std::string& ifName, const std::string& content)
{
    world.write(fileOf(ifName), content);
}

void EndpointServer::configureStatic(const std::string& ifName, const std::string& address,
                                     const std::string& mask)
{
    writeInterfaceFile(ifName, "DEVICE=" + ifName + "\nBOOTPROTO=static\nIPADDR=" + address +
                                   "\nNETMASK=" + mask + "\nONBOOT=yes\n");
    world.addresses[ifName] = {address, mask, ""};
}

void EndpointServer::configureDhcp(const std::string& ifName, const std::string& address,
                                   const std::string& mask)
{
    writeInterfaceFile(ifName, "DEVICE=" + ifName + "\nBOOTPROTO=dhcp\nIPADDR=1.1.1.1\nNETMASK=255.0.0.0\n");
    world.addresses[ifName] = {address, mask, "10.0.0.254"};
}

Lines operator+(const Lines& first, const Lines& second)
{
    Lines both = first;
    both.insert(both.end(), second.begin(), second.end());
    return both;
}

Lines reading(const std::string& ifName)
{
    const std::string file = "/etc/sysconfig/network-scripts/ifcfg-" + ifName;
    Lines lines = {"fopen " + file + " r", "fclose " + file};
    if (ifName == "eth1")
        lines.push_back("dhcpIpInfoGetDefaultGateway");
    return lines;
}

Lines checking(const std::string& ifName, const std::string& address, const std::string& gateway)
{
    Lines neighbours;
    for (const std::string other : {"eth0", "eth1", "eth2"})
        if (other != ifName)
            neighbours.push_back("dhcpIpInfoGetIPInfo " + other);
    return Lines{"dhcpIpInfoIsIPAddrValid " + address} + neighbours + neighbours +
           Lines{"osIsZODAOnePresent", "dhcpIpInfoIsIPAddrValid " + (gateway.empty() ? address : gateway)};
}

Lines bracketed(const std::string& command)
{
    return {"dhcpIpInfoRequestDHCPLANSemaphore", "runcommand " + command,
            "dhcpIpInfoReleaseDHCPLANSemaphore"};
}

Lines restart(const std::string& ifName)
{
    return {"runcommand /kv/bin/processcontrol stop voicemail",
            "runcommand ifdown " + ifName + ";ifup " + ifName,
            "runcommand /kv/bin/processcontrol start voicemail"};
}

Lines dhcpNotice(const std::string& ifName)
{
    return ifName == "eth0" ? Lines{} : Lines{"dhcpIpInfoInformDHCPProviderOfIPConfigChange"};
}

Lines emsNotice(const std::string& ifName)
{
    const std::string mask = ifName == "eth0" ? "1" : ifName == "eth1" ? "2" : "4";
    return {"EmsConnectionOpen 0", "EmsIpAddressChange 1 1 " + mask, "sleep 1", "EmsConnectionClose"};
}

Lines addressChange(const std::string& ifName, const std::string& address)
{
    const Lines hosts = ifName == "eth1" ? bracketed("/kv/bin/updatehosts ipaddress " + address) : Lines{};
    return bracketed("/kv/bin/updateFile ifcfg " + ifName + " IPADDR " + address) + hosts + restart(ifName) +
           dhcpNotice(ifName) + emsNotice(ifName);
}

Lines maskChange(const std::string& ifName, const std::string& mask)
{
    return bracketed("/kv/bin/updateFile ifcfg " + ifName + " NETMASK " + mask) + restart(ifName) +
           dhcpNotice(ifName);
}

Lines gatewayChange(const std::string& ifName, const std::string& oldGateway, const std::string& gateway)
{
    return bracketed("/kv/bin/updatehosts routeraddress " + gateway) +
           bracketed("/kv/bin/updateFile gateway " + gateway) +
           Lines{"runcommand route delete default gw " + oldGateway + " eth1",
                 "runcommand route add default gw " + gateway + " eth1"} +
           dhcpNotice(ifName);
}

} // namespace fakes
