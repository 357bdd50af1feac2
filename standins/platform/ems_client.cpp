#include "ems_client.h"

#include "StateDirectory.hpp"

#include <array>
#include <cstdio>
#include <mutex>
#include <string>

namespace
{

using namespace kvplatform;

/** The answer to an announcement, byte by byte as it travels: type 1, response; request code 1, change of an
 *  address. */
using Packet = std::array<unsigned char, 10>;
constexpr Packet kChangeResponse = {0, 1, 0, 0, 0, 0, 0, 0, 0, 1};

/** The process's connection. The lock is held while the handler runs, so that no other thread can close the
 *  connection under it; it is recursive because the handler itself may. */
struct Connection {
    std::recursive_mutex mutex;
    EmsPacketHandler handler = nullptr;
};

Connection connection;

std::string hexadecimal(unsigned int number)
{
    std::array<char, 16> text = {};
    std::snprintf(text.data(), text.size(), "0x%X", number);
    return text.data();
}

void answerChange(EmsPacketHandler handler)
{
    Packet packet = kChangeResponse;
    handler(reinterpret_cast<sEmsPacket*>(packet.data()));
}

} // namespace

int EmsConnectionOpen(int flags, EmsPacketHandler handler)
{
    return guarded(__func__, [&](const char* function) {
        const std::lock_guard<std::recursive_mutex> lock(connection.mutex);
        // A caller that saw an announcement fail leaves its connection open; opening again replaces it.
        const int status = handler != nullptr ? 0 : kFailure;
        if (!recordEvent(function, {std::to_string(flags)}, status) || status != 0)
            return kFailure;
        connection.handler = handler;
        return 0;
    });
}

int EmsIpAddressChange(int area, int reason, unsigned int interfaceMask)
{
    return guarded(__func__, [&](const char* function) {
        const std::lock_guard<std::recursive_mutex> lock(connection.mutex);
        const int status = connection.handler != nullptr ? 0 : kFailure;
        const bool told = recordEvent(
            function, {std::to_string(area), std::to_string(reason), hexadecimal(interfaceMask)}, status);
        if (!told || status != 0)
            return kFailure;
        answerChange(connection.handler);
        return 0;
    });
}

int EmsConnectionClose(void)
{
    return guarded(__func__, [](const char* function) {
        const std::lock_guard<std::recursive_mutex> lock(connection.mutex);
        const int status = connection.handler != nullptr ? 0 : kFailure;
        connection.handler = nullptr;
        recordEvent(function, {}, status);
        return status;
    });
}
