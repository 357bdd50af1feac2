// Sockets, interface requests and the packet-filter device of the faked kernel.

#include "RealCalls.hpp"
#include "World.hpp"

#include <fcntl.h>
#include <linux/mii.h>
#include <linux/sockios.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

using fakes::Interface;
using fakes::World;

extern "C" {
int __wrap_socket(int domain, int type, int protocol);
int __wrap_ioctl(int fd, unsigned long request, ...);
int __wrap_close(int fd);
}

namespace
{

const char* nameOf(unsigned long request)
{
    switch (request) {
    case SIOCGIFFLAGS:
        return "SIOCGIFFLAGS";
    case SIOCGIFMTU:
        return "SIOCGIFMTU";
    case SIOCSIFMTU:
        return "SIOCSIFMTU";
    case SIOCGIFHWADDR:
        return "SIOCGIFHWADDR";
    case SIOCGMIIPHY:
        return "SIOCGMIIPHY";
    case SIOCGMIIREG:
        return "SIOCGMIIREG";
    case SIOCDEVPRIVATE:
        return "SIOCDEVPRIVATE";
    case SIOCDEVPRIVATE + 1:
        return "SIOCDEVPRIVATE+1";
    default:
        return nullptr;
    }
}

bool isRegisterRead(unsigned long request)
{
    return request == SIOCGMIIREG || request == SIOCDEVPRIVATE + 1;
}

mii_ioctl_data miiOf(const ifreq& request)
{
    mii_ioctl_data mii{};
    std::memcpy(&mii, &request.ifr_ifru, sizeof mii);
    return mii;
}

std::string describe(unsigned long number, const ifreq& request)
{
    std::string line = std::string("ioctl ") + nameOf(number) + " " + request.ifr_name;
    if (number == SIOCSIFMTU)
        line += " " + std::to_string(request.ifr_mtu);
    if (isRegisterRead(number)) {
        const mii_ioctl_data mii = miiOf(request);
        line += " phy " + std::to_string(mii.phy_id) + " register " + std::to_string(mii.reg_num);
    }
    return line;
}

bool answersMii(const Interface& interface, unsigned long number)
{
    const bool standard = number == SIOCGMIIPHY || number == SIOCGMIIREG;
    return interface.mii == (standard ? Interface::Mii::Standard : Interface::Mii::Private);
}

// The kernel copies a whole request. What the product has not cleared behind the name is copied, too.
bool isEmptyBehindTheName(const ifreq& request)
{
    const auto* begin = reinterpret_cast<const unsigned char*>(&request.ifr_ifru);
    return std::all_of(begin, begin + sizeof request.ifr_ifru, [](unsigned char byte) { return byte == 0; });
}

// A driver may leave anything in the two numbers that ask for a register. This one does.
void readRegister(const Interface& interface, mii_ioctl_data& mii)
{
    mii.val_out = mii.phy_id == interface.phy && mii.reg_num < 8 ? interface.registers[mii.reg_num] : 0xFFFF;
    mii.phy_id = static_cast<std::uint16_t>(~mii.phy_id);
    mii.reg_num = static_cast<std::uint16_t>(~mii.reg_num);
}

int answerMii(const Interface& interface, unsigned long number, ifreq& request)
{
    if (!answersMii(interface, number)) {
        errno = EOPNOTSUPP;
        return -1;
    }
    mii_ioctl_data mii = miiOf(request);
    if (!isRegisterRead(number) && mii.phy_id != 0)
        World::current()->problem("an MII request for the PHY address did not start from address 0");
    if (isRegisterRead(number))
        readRegister(interface, mii);
    else
        mii.phy_id = interface.phy;
    std::memcpy(&request.ifr_ifru, &mii, sizeof mii);
    return 0;
}

int answer(Interface& interface, unsigned long number, ifreq& request)
{
    switch (number) {
    case SIOCGIFFLAGS:
        request.ifr_flags = interface.flags;
        return 0;
    case SIOCGIFMTU:
        if (request.ifr_mtu != 0)
            World::current()->problem("SIOCGIFMTU with an MTU field that was not cleared");
        request.ifr_mtu = interface.mtu;
        return 0;
    case SIOCSIFMTU:
        interface.mtu = request.ifr_mtu;
        return 0;
    case SIOCGIFHWADDR:
        if (!isEmptyBehindTheName(request))
            World::current()->problem("SIOCGIFHWADDR with a request that was not cleared behind the name");
        std::memcpy(request.ifr_hwaddr.sa_data, interface.mac.data(), interface.mac.size());
        return 0;
    default:
        return answerMii(interface, number, request);
    }
}

int interfaceRequest(World& world, unsigned long number, ifreq& request)
{
    const std::string line = describe(number, request);
    world.record(fakes::Kernel, line);
    if (const auto code = world.failureOf("ioctl", line)) {
        errno = *code;
        return -1;
    }
    const auto found = world.interfaces.find(request.ifr_name);
    if (found == world.interfaces.end()) {
        errno = ENODEV;
        return -1;
    }
    return answer(found->second, number, request);
}

// All digits of the number are recorded: where it has 64 bits, they show a code that was sign-extended.
int packetFilterRequest(World& world, unsigned long number, const void* argument)
{
    std::uint32_t value = 0;
    std::memcpy(&value, argument, sizeof value);
    char text[64];
    std::snprintf(text, sizeof text, "ioctl /dev/kv_netfilter 0x%08lX %u", number, value);
    world.record(fakes::Kernel, text);
    if (const auto code = world.failureOf("ioctl", text)) {
        errno = *code;
        return -1;
    }
    return 0;
}

} // namespace

int __wrap_socket(int domain, int type, int protocol)
{
    World* world = World::current();
    if (!world)
        return __real_socket(domain, type, protocol);
    const bool asExpected = domain == AF_INET && (type & ~SOCK_CLOEXEC) == SOCK_DGRAM && protocol == 0;
    if (!asExpected)
        world->problem("unknown kind of socket");
    world->socketTypes.push_back(type);
    const std::string line = "socket";
    world->record(fakes::Kernel, line);
    if (const auto code = world->failureOf("socket", line)) {
        errno = *code;
        return -1;
    }
    const int fd = __real_open("/dev/null", O_RDWR | O_CLOEXEC);
    world->descriptors[fd] = "socket";
    return fd;
}

int __wrap_ioctl(int fd, unsigned long request, ...)
{
    va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);

    World* world = World::current();
    if (!world)
        return __real_ioctl(fd, request, argument);
    const auto found = world->descriptors.find(fd);
    if (found == world->descriptors.end()) {
        world->problem("ioctl on a descriptor that is not open");
        errno = EBADF;
        return -1;
    }
    if (found->second == "/dev/kv_netfilter")
        return packetFilterRequest(*world, request, argument);
    if (!nameOf(request)) {
        world->problem("unknown ioctl " + std::to_string(request));
        errno = ENOTTY;
        return -1;
    }
    return interfaceRequest(*world, request, *static_cast<ifreq*>(argument));
}

// Even a failing close closes the descriptor, as on Linux.
int __wrap_close(int fd)
{
    World* world = World::current();
    if (!world)
        return __real_close(fd);
    const auto found = world->descriptors.find(fd);
    if (found == world->descriptors.end()) {
        world->problem("close of a descriptor that is not open");
        return __real_close(fd);
    }
    const std::string line = "close " + found->second;
    world->record(fakes::Kernel, line);
    world->descriptors.erase(found);
    const int result = __real_close(fd);
    if (const auto code = world->failureOf("close", line)) {
        errno = *code;
        return -1;
    }
    return result;
}
