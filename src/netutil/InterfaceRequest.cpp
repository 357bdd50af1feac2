#include "netutil/InterfaceRequest.hpp"

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

InterfaceRequest::InterfaceRequest(const char* ifName) : m_socket(openDatagramSocket()), m_request()
{
    std::strncpy(m_request.ifr_name, ifName, IFNAMSIZ - 1);
}

InterfaceRequest::~InterfaceRequest()
{
    if (isOpen())
        close(m_socket);
}

bool InterfaceRequest::getMtu(int& mtu)
{
    m_request.ifr_mtu = 0;
    if (!issue(SIOCGIFMTU))
        return false;
    mtu = m_request.ifr_mtu;
    return true;
}

bool InterfaceRequest::setMtu(int mtu)
{
    m_request.ifr_mtu = mtu;
    return issue(SIOCSIFMTU);
}

bool InterfaceRequest::getFlags(short& flags)
{
    if (!issue(SIOCGIFFLAGS))
        return false;
    flags = m_request.ifr_flags;
    return true;
}

bool InterfaceRequest::getHardwareAddress(HardwareAddress& address)
{
    if (!issue(SIOCGIFHWADDR))
        return false;
    std::memcpy(address.data(), m_request.ifr_hwaddr.sa_data, address.size());
    return true;
}

bool InterfaceRequest::mii(unsigned long request, mii_ioctl_data& mii)
{
    static_assert(sizeof(mii_ioctl_data) <= sizeof(m_request.ifr_ifru), "an MII request fits into the union");
    std::memcpy(&m_request.ifr_ifru, &mii, sizeof(mii));
    const bool done = issue(request);
    std::memcpy(&mii, &m_request.ifr_ifru, sizeof(mii));
    return done;
}

bool InterfaceRequest::issue(unsigned long request)
{
    return ioctl(m_socket, request, &m_request) >= 0;
}
