#include "InterfaceRequest.hpp"

#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace
{

int openDatagramSocket()
{
    const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    // Kernels before 2.6.27 know no flags here and answer EINVAL.
    return fd < 0 && errno == EINVAL ? socket(AF_INET, SOCK_DGRAM, 0) : fd;
}

} // namespace

InterfaceRequest::InterfaceRequest(const char* ifName) : socket_(openDatagramSocket()), request_()
{
    std::strncpy(request_.ifr_name, ifName, IFNAMSIZ - 1);
}

InterfaceRequest::~InterfaceRequest()
{
    if (isOpen())
        close(socket_);
}

bool InterfaceRequest::getMtu(int& mtu)
{
    request_.ifr_mtu = 0;
    if (!issue(SIOCGIFMTU))
        return false;
    mtu = request_.ifr_mtu;
    return true;
}

bool InterfaceRequest::setMtu(int mtu)
{
    request_.ifr_mtu = mtu;
    return issue(SIOCSIFMTU);
}

bool InterfaceRequest::getFlags(short& flags)
{
    if (!issue(SIOCGIFFLAGS))
        return false;
    flags = request_.ifr_flags;
    return true;
}

bool InterfaceRequest::getHardwareAddress(HardwareAddress& address)
{
    if (!issue(SIOCGIFHWADDR))
        return false;
    std::memcpy(address.data(), request_.ifr_hwaddr.sa_data, address.size());
    return true;
}

bool InterfaceRequest::mii(unsigned long request, mii_ioctl_data& mii)
{
    static_assert(sizeof(mii_ioctl_data) <= sizeof(request_.ifr_ifru), "an MII request fits into the union");
    std::memcpy(&request_.ifr_ifru, &mii, sizeof(mii));
    const bool done = issue(request);
    std::memcpy(&mii, &request_.ifr_ifru, sizeof(mii));
    return done;
}

bool InterfaceRequest::issue(unsigned long request)
{
    return ioctl(socket_, request, &request_) >= 0;
}
