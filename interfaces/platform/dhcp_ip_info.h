#ifndef DHCP_IP_INFO_H
#define DHCP_IP_INFO_H

/*
 * The server's DHCP and IP information library: what addresses the interfaces have at this moment, which
 * addresses the server accepts, and the coordination with the DHCP service.
 *
 * Addresses are dotted decimal text ("192.168.0.1"). Every output buffer is owned by the caller and holds
 * 32 bytes, of which at most 16 (15 characters and the NUL) are used. The functions may be called from any
 * thread.
 */

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Gives an interface's current address, mask and gateway, whichever of the configuration file and the DHCP
 * client they come from.
 *
 * ifName: the interface, "eth0", "eth1" or "eth2".
 * ip, mask, gateway: 32-byte buffers; each holds the empty text when the item is not known, also when the
 *     call fails.
 *
 * Returns 0 on success, an unknown item included; any other code on failure. The provider looks at the texts
 * only.
 */
int dhcpIpInfoGetIPInfo(const char* ifName, char* ip, char* mask, char* gateway);

/*
 * Gives the system's default gateway.
 *
 * gateway: 32-byte buffer; the empty text when there is none, also when the call fails.
 *
 * Returns 0 on success, the empty text included; any other code on failure. The provider looks at the text
 * only.
 */
int dhcpIpInfoGetDefaultGateway(char* gateway);

/*
 * Decides whether a text is a valid and usable IPv4 host address in dotted decimal form.
 *
 * Returns 1 when it is, 0 otherwise.
 */
int dhcpIpInfoIsIPAddrValid(const char* text);

/*
 * Takes the system-wide DHCP LAN semaphore, which keeps the DHCP service from reading the LAN configuration
 * while it is being rewritten. Waits until the semaphore is free; it does not nest.
 *
 * Returns 0 when the caller holds the semaphore, any other code on failure. The provider takes it around one
 * command at a time and goes on when it cannot be had.
 */
int dhcpIpInfoRequestDHCPLANSemaphore(void);

/*
 * Gives the DHCP LAN semaphore back. A process that ends while it holds the semaphore gives it back too.
 *
 * Returns 0 on success, any other code on failure, for instance when the semaphore was not held.
 */
int dhcpIpInfoReleaseDHCPLANSemaphore(void);

/*
 * Tells the DHCP service that the LAN configuration has changed, so that it reads it again.
 *
 * Returns 0 on success, any other code on failure.
 */
int dhcpIpInfoInformDHCPProviderOfIPConfigChange(void);

#ifdef __cplusplus
}
#endif

#endif
