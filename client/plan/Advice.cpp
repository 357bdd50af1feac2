#include "plan/Advice.hpp"

namespace lanctl::plan
{

const std::vector<Advice>& allAdvice()
{
    static const std::vector<Advice> advice{
        {"class does not exist", "", "correct the class name"},
        {"requested object could not be found", "",
         "send the keys; a modification needs them among the properties"},
        {"requested operation is not supported", "", "not possible by design"},
        {"extrinsic method does not exist", "", "correct the method name"},
        {"Cannot find the corresponding if interface", "LAN_ERROR_noIFNameMapping",
         "the name is neither eth0, eth1, eth2 nor \"Internal LAN\", \"Customer LAN\", \"OAM "
         "LAN\"; correct it"},
        {"MTU size entered is out of the range: (68-1500)", "", "send 68 to 1500"},
        {"MTU size not set. Error reported in kernel", "",
         "the driver refuses the MTU, or the interface is missing; nothing was changed"},
        {"Invalid IP address format", "",
         "endpoint: the address is not usable, its host part is zero, the mask is no address at "
         "all, the router card cannot be queried, or the gateway is not usable (with a router card "
         "an empty gateway, or the own address, is not). Nothing of address, mask and gateway was "
         "changed; an MTU or DHCP change of the same request was"},
        {"Invalid IP address format", "LAN_ERROR_invalidIP",
         "setting: a DNS server's address is not usable; properties before it in the request were "
         "applied"},
        {"Invalid subnet format", "",
         "the mask is not a run of ones followed by zeros; nothing of address, mask and gateway "
         "was changed"},
        {"The IP/mask pair overlaps with another interface", "",
         "the network contains, or lies in, another interface's; choose another. Also when another "
         "interface's address cannot be read as one"},
        {"Failed to notify related components on the address change", "",
         "the new address is in force, mask and gateway of the same request are not; the "
         "element-management service was not told. Repeat mask and gateway, check the service"},
        {"Failed to execute the command:", "",
         "stopping or starting voice messaging failed, or the script that takes a DHCP lease could "
         "not be started; the change ended there. The results of the other helper commands are not "
         "looked at"},
        {"Error getting host info.", "LAN_ERROR_cannotGetHostInfo",
         "the server's own host name cannot be looked up; check /etc/hosts"},
        {"Error reading information", "LAN_ERROR_cannotReadInformation", "the router card cannot be queried"},
        {"Invalid domain name", "LAN_ERROR_domainNameBadFormat",
         "the name must begin with a letter and hold letters, digits, dots and hyphens only"},
        {"No router attached", "LAN_ERROR_noRouterAttached", "no router card is fitted"},
        {"Failed to press the router reset button", "LAN_ERROR_routerResetFailed",
         "the card's button did not answer; try again, then check the card"},
        {"Router reset failed", "LAN_ERROR_routerResetFailed", "any other failure of the reset"},
        {"Unknown Error:", "",
         "something unexpected; the detail is the exception's own text. Logged by the request's "
         "logger"},
    };
    return advice;
}

std::string adviceFor(const std::string& text, const std::string& identifier)
{
    for (const Advice& advice : allAdvice())
        if (advice.identifier == identifier && text.compare(0, advice.text.size(), advice.text) == 0)
            return std::string(advice.advice);
    return {};
}

} // namespace lanctl::plan
