#ifndef KV_LANSETTING_ORX_LANSETTING_HPP
#define KV_LANSETTING_ORX_LANSETTING_HPP

#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include <OW_config.h>

#include <OW_String.hpp>

/// The server-wide LAN settings: DNS domain and name servers, the packet filter's four switches, the router
/// card. A plain value. The library has one, and every request works on it without a lock.
///
/// Failures are CIMExceptions with CIM_ERR_FAILED, a text and an identifier, and are logged through gLogger
/// first. Error codes in the log are printed as signed 8-bit numbers (200 as -56), as operators know them.
class ORX_LANSetting
{
  public:
    /// Everything is empty or false until the first get. Nothing of the system is touched.
    ORX_LANSetting();

    // Copies of what get or a setter left. Always true.
    bool getInstanceID(OpenWBEM::String& value) const; ///< Kept: always empty.
    bool getDomainName(OpenWBEM::String& value) const;
    bool getPrimaryDNS(OpenWBEM::String& value) const;   ///< dotted IPv4 text, or empty
    bool getSecondaryDNS(OpenWBEM::String& value) const; ///< dotted IPv4 text, or empty
    bool getIsIcmpFilterEnabled(bool& value) const;
    bool getIsArpFilterEnabled(bool& value) const;
    bool getIsBroadcastFilterEnabled(bool& value) const;
    bool getIsIPAddressConflictEnabled(bool& value) const;
    bool getIsRouterPresent(bool& value) const;

    /// Loads everything from the system and changes nothing there. Throws when the host's own name cannot be
    /// looked up or the router card cannot be queried; what was loaded up to then stays. Otherwise true: a
    /// switch that cannot be read counts as a stored 0. Kept: only the ICMP switch is ever lowered here. A
    /// stored 1 raises the other three; a stored 0 leaves them.
    bool get();

    /// Makes `name` (see isValidDomainName) the domain in the hosts table and in the resolver file. Throws
    /// when it is not valid. A hosts table or resolver file that cannot be written is no failure.
    bool setDomainName(const OpenWBEM::String& name);

    /// Replaces the first or second name server in the resolver file. The empty text removes it, an unchanged
    /// one does nothing. Throws when the server refuses the address. A resolver file that cannot be written
    /// is no failure.
    ///
    /// Kept, for these two and setDomainName: the file is rewritten from what the last get kept of it. Before
    /// the first get, only the new line remains.
    bool setPrimaryDNS(const OpenWBEM::String& address);
    bool setSecondaryDNS(const OpenWBEM::String& address);

    /// Writes `address` to the nameserver line number `index`, 0 for the primary and 1 for the secondary, in
    /// the resolver file and in what is kept of it.
    void updateNameserver(const OpenWBEM::String& address, int index);

    /// Store a switch for the next start, then tell the running kernel. Always true. The kernel is told even
    /// if the switch could not be stored, and its answer is not looked at.
    bool setIsIcmpFilterEnabled(bool enabled);
    bool setIsArpFilterEnabled(bool enabled);
    bool setIsBroadcastFilterEnabled(bool enabled);
    bool setIsIPAddressConflictEnabled(bool enabled);

    /// One ioctl on the packet filter's device. `request` is the device's request code in 32 bits, `value` is
    /// 0 or 1. Returns 0, or -1 when the device is absent or refuses.
    int notifyKernel(int request, unsigned value);

    /// Presses the router card's reset button once, without waiting, and returns "Router reset initiated".
    /// Throws when the card is missing, the button cannot be pressed or the reset fails otherwise.
    OpenWBEM::String resetRouter();

  private:
    struct PacketFilterSwitch;
    static const PacketFilterSwitch icmpFilter;
    static const PacketFilterSwitch arpFilter;
    static const PacketFilterSwitch broadcastFilter;
    static const PacketFilterSwitch ipConflictDetection;

    void readDomainName();
    void readNameServers();
    void readRouterPresence();
    bool readSwitches();
    bool setSwitch(const PacketFilterSwitch& which, bool enabled);
    bool setNameserver(OpenWBEM::String& field, const OpenWBEM::String& address, int index,
                       const char* registryFlag);

    ORX_LANEndpointAPI customerLan; ///< "eth1"; no operation uses it
    OpenWBEM::String instanceID;
    OpenWBEM::String domainName;
    OpenWBEM::String primaryDNS;
    OpenWBEM::String secondaryDNS;
    bool isIcmpFilterEnabled = false;
    bool isArpFilterEnabled = false;
    bool isBroadcastFilterEnabled = false;
    bool isIPAddressConflictEnabled = false;
    bool isRouterPresent = false;
    OpenWBEM::String resolvContents; ///< what get and later writes made of the resolver file
};

#endif
