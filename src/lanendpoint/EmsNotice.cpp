#include "lanendpoint/EmsNotice.hpp"

#include <syslog.h>
#include <unistd.h>

#include <cstddef>

namespace
{

constexpr std::size_t packetTypeOffset = 0;
constexpr std::size_t requestCodeOffset = 6;

constexpr unsigned int packetTypeResponse = 1;
constexpr unsigned int packetTypeEvent = 2;
constexpr unsigned int requestCodeIPChange = 1;

unsigned int bigEndian(const unsigned char* first, std::size_t width)
{
    unsigned int value = 0;
    for (const unsigned char* byte = first; byte != first + width; ++byte)
        value = value << 8 | *byte;
    return value;
}

} // namespace

int sendEmsNotice(unsigned int interfaces)
{
    int code = EmsConnectionOpen(0, EmsIPChangePacketHandler);
    if (code != 0) {
        syslog(LOG_NOTICE, "ORX_LANEndpointAPI: Cannot Open EMS connection: error code: %d\n", code);
        return -1;
    }
    code = EmsIpAddressChange(1, 1, interfaces);
    if (code != 0) {
        // Kept: the connection stays open.
        syslog(LOG_NOTICE, "ORX_LANEndpointAPI: Cannot notify IP address change: error code: %d\n", code);
        return -1;
    }
    sleep(1); // for the answer
    code = EmsConnectionClose();
    if (code != 0)
        syslog(LOG_NOTICE, "ORX_LANEndpointAPI: Cannot close EMS connection: error code: %d\n", code);
    return 0;
}

int EmsIPChangePacketHandler(sEmsPacket* packet)
{
    const auto* const bytes = reinterpret_cast<const unsigned char*>(packet);
    const unsigned int type = bigEndian(bytes + packetTypeOffset, 2);
    // Operators' tools look for these texts as they are, "PACKRT" included.
    if (type == packetTypeEvent)
        syslog(LOG_NOTICE, "ORX_LANEndpointAPI: EMS_PACKRT_TYPE_EVENT");
    if (type == packetTypeResponse) {
        syslog(LOG_NOTICE, "ORX_LANEndpointAPI: EMS_PACKRT_TYPE_RESPONSE");
        if (bigEndian(bytes + requestCodeOffset, 4) == requestCodeIPChange)
            syslog(LOG_NOTICE, "ORX_LANEndpointAPI: EMS_IP_CHANGE_REQUEST");
    }
    return 0;
}
