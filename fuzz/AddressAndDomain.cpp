#include "Targets.hpp"
#include "World.hpp"
#include "lanendpoint/ORX_LANEndpoint.hpp"
#include "lansetting/DomainName.hpp"
#include "lansetting/ORX_LANSetting.hpp"

#include <OW_CIMException.hpp>

#include <set>
#include <string>

namespace
{

using OpenWBEM::String;

constexpr const char* letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr const char* domainCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.-";

std::set<std::string> allMasks()
{
    std::set<std::string> masks;
    for (unsigned prefix = 0; prefix <= 32; ++prefix) {
        const std::uint64_t bits = (0xFFFFFFFFULL << (32 - prefix)) & 0xFFFFFFFFULL;
        std::string mask;
        for (int shift = 24; shift >= 0; shift -= 8)
            mask += (mask.empty() ? "" : ".") + std::to_string(bits >> shift & 0xFF);
        masks.insert(mask);
    }
    return masks;
}

/// Repeated, leading and trailing dots do not count.
std::string withSingleDots(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '.')
            result += text[i];
        else if (!result.empty() && result.back() != '.')
            result += '.';
    }
    if (!result.empty() && result.back() == '.')
        result.pop_back();
    return result;
}

void checkMask(std::string_view input, const String& value)
{
    static const std::set<std::string> masks = allMasks();
    const bool valid = ORX_LANEndpointAPI().isMaskValid(value) == 1;
    fuzz::expect(valid == (masks.count(withSingleDots(input)) == 1), "a mask is one of the 33");
}

void checkDomain(std::string_view input, const String& value)
{
    const bool valid = !input.empty() && input.substr(0, 1).find_first_of(letters) == 0 &&
                       input.find_first_not_of(domainCharacters) == std::string_view::npos;
    fuzz::expect(isValidDomainName(value) == valid, "a domain is letters, digits, dots and hyphens");
}

void giveAddress(fakes::World& world, const std::string& ifName, const std::string& ipAddress)
{
    world.write("/etc/sysconfig/network-scripts/ifcfg-" + ifName,
                "BOOTPROTO=static\nIPADDR=" + ipAddress + "\nNETMASK=255.255.255.0\n");
    world.addresses[ifName] = {ipAddress, "255.255.255.0", ""};
}

template <typename Change>
void attempt(const Change& change)
{
    try {
        change();
    } catch (const OpenWBEM::CIMException&) { // a refusal
    }
}

void changeEndpoint(int (ORX_LANEndpoint::*set)(const String&), const String& value)
{
    attempt([&] {
        ORX_LANEndpoint endpoint(1);
        endpoint.get();
        endpoint.startChange();
        (endpoint.*set)(value);
        endpoint.endChange();
    });
}

/// The one command line that means more than one command.
bool isRestart(const std::string& line)
{
    return line == "runcommand ifdown eth1;ifup eth1";
}

void expectHarmlessCommands(const fakes::World& world)
{
    for (const std::string& line : world.journal(fakes::Command))
        fuzz::expect(isRestart(line) ||
                         line.find_first_not_of(std::string(domainCharacters) + " /_") == std::string::npos,
                     "a command line holds nothing that a shell would act on");
}

void change(const String& value)
{
    fakes::World world;
    giveAddress(world, "eth0", "192.168.0.1");
    giveAddress(world, "eth1", "10.0.0.5");
    giveAddress(world, "eth2", "172.16.0.1");
    world.defaultGateway = "10.0.0.1";
    changeEndpoint(&ORX_LANEndpoint::setIPAddress, value);
    changeEndpoint(&ORX_LANEndpoint::setSubnetMask, value);
    changeEndpoint(&ORX_LANEndpoint::setGateway, value);
    attempt([&] { ORX_LANSetting().setDomainName(value); });
    attempt([&] { ORX_LANSetting().setPrimaryDNS(value); });
    expectHarmlessCommands(world);
    fuzz::expect(world.problems().empty(), "nothing is left behind");
}

} // namespace

void fuzz::address_and_domain(std::string_view input)
{
    const String value(input.data(), input.size());
    checkMask(input, value);
    checkDomain(input, value);
    change(value);
}
