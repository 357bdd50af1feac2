#include "netutil/InterfaceMtu.hpp"

#include "netutil/InterfaceRequest.hpp"

#include <cstdio>

int kv_set_mtu(const char* ifName, std::uint32_t mtu)
{
    InterfaceRequest request(ifName);
    if (!request.isOpen()) {
        std::perror("socket");
        return -1;
    }
    if (!request.setMtu(static_cast<int>(mtu)))
        return -1;
    // Kept: the MTU is read back, although nothing looks at it.
    std::uint32_t readBack = 0;
    kv_get_mtu(ifName, &readBack);
    return 0;
}

int kv_get_mtu(const char* ifName, std::uint32_t* mtu)
{
    InterfaceRequest request(ifName);
    if (!request.isOpen()) {
        std::perror("socket");
        return -1;
    }
    int value = 0;
    if (!request.getMtu(value))
        return -1;
    *mtu = static_cast<std::uint32_t>(value);
    return 0;
}
