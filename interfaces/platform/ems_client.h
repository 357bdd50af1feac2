#ifndef EMS_CLIENT_H
#define EMS_CLIENT_H

/* For C too: NOLINTBEGIN(modernize-deprecated-headers, modernize-use-using) */

/*
 * Client of the server's element-management service (EMS), which is told when an interface changes its
 * address. One connection a process: open, announce, leave the service time to answer, close.
 */

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A packet of the service, owned by the library and valid during the handler's call only. Packed, without any
 * alignment, and big-endian whatever the host's byte order:
 *
 *   offset  type             meaning
 *   0       unsigned 16-bit  packet type: 1 response, 2 event
 *   6       unsigned 32-bit  request code that is answered: 1 change of an IP address
 *
 * The other bytes of these first ten are the service's own. The type is left incomplete: a reader takes the
 * fields byte by byte from their offsets.
 */
typedef struct sEmsPacket sEmsPacket;

/*
 * Receives one packet, possibly on a thread of the library. Returns 0.
 */
typedef int (*EmsPacketHandler)(sEmsPacket* packet);

/*
 * Opens the connection and registers the handler for the packets that arrive until it is closed.
 *
 * flags: the provider passes 0.
 *
 * Returns 0 on success, any other code on failure.
 */
int EmsConnectionOpen(int flags, EmsPacketHandler handler);

/*
 * Announces that the addresses of one or more interfaces have changed. Needs an open connection.
 *
 * area, reason: the provider passes 1 and 1.
 * interfaceMask: bit n stands for the interface "eth" followed by n; eth0 is 1, eth1 is 2, eth2 is 4.
 *
 * Returns 0 on success, any other code on failure.
 */
int EmsIpAddressChange(int area, int reason, unsigned int interfaceMask);

/*
 * Closes the connection; the handler is not called again once this has returned.
 *
 * Returns 0 on success, any other code on failure, for instance when no connection is open.
 */
int EmsConnectionClose(void);

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-deprecated-headers, modernize-use-using) */

#endif
