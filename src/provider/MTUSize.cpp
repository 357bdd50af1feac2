#include "provider/MTUSize.hpp"

#include "netutil/InterfaceRequest.hpp"
#include "netutil/StoredMtu.hpp"

#include <cstdint>
#include <cstdio>

void setMTUSize(const char* ifName)
{
    InterfaceRequest interface(ifName);
    if (!interface.isOpen()) {
        std::perror("socket");
        return;
    }

    std::uint16_t mtu = 0;
    const unsigned int status = storedmtu::read(ifName, mtu);
    if (status == storedmtu::absent) {
        int liveMtu = 0;
        if (!interface.getMtu(liveMtu))
            return;
        mtu = static_cast<std::uint16_t>(liveMtu);
        storedmtu::write(ifName, mtu);
    } else if (status != 0) {
        return; // An MTU of 0 would cut the interface off.
    }
    interface.setMtu(mtu);
}
