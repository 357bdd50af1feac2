#include "lansetting/PacketFilterDevice.hpp"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

int packetfilter::setSwitch(std::uint32_t request, std::uint32_t value)
{
    const int device = open("/dev/kv_netfilter", O_RDWR | O_CLOEXEC);
    if (device < 0)
        return -1;
    if (ioctl(device, request, &value) < 0)
        return -1; // Kept: the device stays open after a refusal.
    close(device);
    return 0;
}
