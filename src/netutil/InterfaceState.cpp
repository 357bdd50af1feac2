#include "netutil/InterfaceState.hpp"

#include "netutil/InterfaceRequest.hpp"
#include "netutil/LinkSpeed.hpp"

namespace
{

// The flags of an interface as far as they can be read, with IFF_RUNNING cleared when the interface is up but
// its PHY has no link: some drivers leave it set without one.
int flagsWithLink(InterfaceRequest& request, const char* ifName)
{
    short flags = 0;
    request.getFlags(flags);
    std::uint64_t speed = 0;
    if (kv_get_EthernetIfSpeed(ifName, &speed) < 0)
        speed = 0;
    if (speed == 0 && (flags & IFF_UP) != 0)
        return flags & ~IFF_RUNNING;
    return flags;
}

// Writes 1 when `flag` is set, 2 when it is not.
int stateFromFlag(const char* ifName, int flag, std::uint16_t* state)
{
    InterfaceRequest request(ifName);
    if (!request.isOpen() || state == nullptr)
        return -1;
    *state = (flagsWithLink(request, ifName) & flag) != 0 ? 1 : 2;
    return 0;
}

} // namespace

int kv_get_IfType(std::uint16_t* type)
{
    constexpr std::uint16_t ethernetCsmacd = 6;
    *type = ethernetCsmacd;
    return 0;
}

int kv_get_enabledState(const char* ifName, std::uint16_t* state)
{
    return stateFromFlag(ifName, IFF_UP, state);
}

int kv_get_operationalStatus(const char* ifName, std::uint16_t* status)
{
    return stateFromFlag(ifName, IFF_RUNNING, status);
}
