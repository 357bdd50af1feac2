#ifndef KV_LANENDPOINT_EMSIPCHANGEPACKETHANDLER_HPP
#define KV_LANENDPOINT_EMSIPCHANGEPACKETHANDLER_HPP

#include <ems_client.h>

/// What the element-management service calls with each packet that answers a notice, possibly on a thread of
/// its library. Writes to the system log at notice level what came, reading the packet byte by byte as it is
/// packed and big-endian, and always returns 0: an answer never influences a change.
extern "C" int EmsIPChangePacketHandler(sEmsPacket* packet);

#endif
