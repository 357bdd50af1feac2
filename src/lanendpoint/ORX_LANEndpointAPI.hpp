#ifndef KV_LANENDPOINT_ORX_LANENDPOINTAPI_HPP
#define KV_LANENDPOINT_ORX_LANENDPOINTAPI_HPP

#include "lanendpoint/InterfaceConfiguration.hpp"

/// How endChange ended.
enum ChangeOutcome : int {
    CHANGE_ROLLED_BACK = 0, ///< never returned: every failed check has an outcome of its own
    CHANGE_DONE = 1,        ///< applied, or nothing to do because the interface takes its address from DHCP
    CHANGE_INVALID_IP = 2,  ///< the address or the gateway cannot be used
    CHANGE_INVALID_SUBNET = 3, ///< the mask is no mask
    CHANGE_NOT_NOTIFIED = 4,   ///< the address is changed, but the element-management service does not know
    CHANGE_OVERLAPS = 5        ///< address and mask overlap the network of another interface
};

/// The IP configuration of one Ethernet interface of the server; a plain value. No other code changes it. A
/// change runs the server's helper commands, stops voice messaging around a restart of the interface, and
/// tells the DHCP service and the element-management service.
///
/// The calling order is startChange, any number of setters, endChange. Address, mask and gateway take effect
/// at endChange; setIsDHCPEnabled acts at once. Commands run through invokeCommand throw what that throws.
class ORX_LANEndpointAPI
{
  public:
    ORX_LANEndpointAPI();
    /// The interface "eth" followed by `number`.
    explicit ORX_LANEndpointAPI(int number);
    explicit ORX_LANEndpointAPI(const OpenWBEM::String& name);

    /// Empties everything but the name.
    void init();

    /// Loads the stored configuration. Always 1.
    int get();

    // Plain access to the fields. Always 1.
    int getName(OpenWBEM::String& name) const;
    int setName(const OpenWBEM::String& name);
    int getIPAddress(OpenWBEM::String& ipAddress) const;
    int getSubnetMask(OpenWBEM::String& subnetMask) const;
    int getGateway(OpenWBEM::String& gateway) const;
    int getIsDHCPEnabled(bool& isDhcpEnabled) const;

    // Between startChange and endChange these only record the new value. Otherwise they call endChange at
    // once, and its outcome is lost. Always 0.
    int setIPAddress(const OpenWBEM::String& ipAddress);
    int setSubnetMask(const OpenWBEM::String& subnetMask);
    int setGateway(const OpenWBEM::String& gateway);

    /// Switches between DHCP and a fixed address at once. The fixed address is the one in force. Nothing
    /// happens when the interface is already as wanted, or is "eth0", the internal LAN. Always 0.
    int setIsDHCPEnabled(const bool& isDhcpEnabled);

    /// Begins a change. Always 1.
    int startChange();

    /// Checks address, mask and gateway and applies those that differ from what is stored. Returns a
    /// ChangeOutcome. However it ends, the change is no longer in progress.
    int endChange();

    /// Whether `mask` is a mask, as isMask in AddressRules.hpp says: 1 or 0.
    int isMaskValid(const OpenWBEM::String& mask) const;

    /// Whether the network of `ip` and `mask` neither contains another interface's network nor lies in it: 1
    /// or 0. An interface without an address is passed over; one whose address cannot be read makes this 0.
    int uniqueSubnet(const OpenWBEM::String& ip, const OpenWBEM::String& mask) const;

    /// Whether `ip` has a bit set outside of `mask`: 1 or 0. A broadcast address passes.
    int isHostAddressNonZero(const OpenWBEM::String& ip, const OpenWBEM::String& mask) const;

    /// Tells the element-management service that the interface's address has changed. Takes a second. Returns
    /// 0, or -1 with a line in the system log.
    int notifyEMS();

  private:
    int applyUnlessInProgress();
    ChangeOutcome check() const;
    ChangeOutcome checkAddress() const;
    ChangeOutcome checkMask() const;
    ChangeOutcome checkGateway() const;
    int applyAddress();
    void applyMask() const;
    void applyGateway(const OpenWBEM::String& oldGateway) const;
    void informDhcpService() const;
    char interfaceDigit() const;

    OpenWBEM::String m_name;
    InterfaceConfiguration m_configuration;
    bool m_changeInProgress = false;
};

#endif
