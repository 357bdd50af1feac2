#ifndef KV_NETUTIL_INTERFACEREQUEST_HPP
#define KV_NETUTIL_INTERFACEREQUEST_HPP

#include <linux/mii.h>
#include <net/if.h>

#include <array>

/// One network interface, asked and told through an IPv4 datagram socket. The constructor opens the socket
/// and the destructor closes it. Each query and each setter is exactly one ioctl. Nothing is ever printed or
/// thrown.
class InterfaceRequest
{
  public:
    /// Takes the first 15 characters of `ifName`: the kernel's name field holds no more beside its NUL.
    explicit InterfaceRequest(const char* ifName);
    ~InterfaceRequest();
    InterfaceRequest(const InterfaceRequest&) = delete;
    InterfaceRequest& operator=(const InterfaceRequest&) = delete;

    /// Whether there is a socket; errno says why not. Without one, nothing else may be called.
    bool isOpen() const { return m_socket >= 0; }

    /// Reads the MTU in bytes (SIOCGIFMTU). False when the kernel refuses; `mtu` is then left alone.
    bool getMtu(int& mtu);

    /// Sets the MTU in bytes (SIOCSIFMTU). False when the kernel refuses.
    bool setMtu(int mtu);

    /// Reads the interface flags, IFF_UP and so on (SIOCGIFFLAGS). False when the kernel refuses; `flags` is
    /// then left alone.
    bool getFlags(short& flags);

    /// The six bytes of an Ethernet hardware address, in the order in which they are written.
    using HardwareAddress = std::array<unsigned char, 6>;

    /// Reads the hardware address (SIOCGIFHWADDR). False when the kernel refuses; `address` is then left
    /// alone.
    bool getHardwareAddress(HardwareAddress& address);

    /// Issues one of the MII requests, which carry a structure of their own. The driver gets `mii` and leaves
    /// its answer there. False when the driver refuses.
    bool mii(unsigned long request, mii_ioctl_data& mii);

  private:
    bool issue(unsigned long request);

    int m_socket;
    ifreq m_request;
};

#endif
