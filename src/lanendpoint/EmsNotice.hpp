#ifndef KV_LANENDPOINT_EMSNOTICE_HPP
#define KV_LANENDPOINT_EMSNOTICE_HPP

#include <ems_client.h>

/// Tells the element-management service that an interface's address has changed; bit n of `interfaces` stands
/// for "eth" and n. Waits a second for the service's answer. Returns 0, or -1 with a line in the system log.
int sendEmsNotice(unsigned int interfaces);

/// What the element-management service calls with each packet that answers a notice, possibly on a thread of
/// its library. Writes what came to the system log, at notice level. Reads the packet byte by byte, because
/// it is packed and big-endian. Always returns 0: an answer never influences a change.
extern "C" int EmsIPChangePacketHandler(sEmsPacket* packet);

#endif
