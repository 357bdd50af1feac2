#ifndef KV_LANENDPOINT_ORX_LANENDPOINT_HPP
#define KV_LANENDPOINT_ORX_LANENDPOINT_HPP

#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include <OW_Array.hpp>
#include <OW_CIMDateTime.hpp>
#include <OW_CIMQualifier.hpp>

#include <cstdint>

/// One Ethernet interface of the server as management clients see it: the stored IP configuration of the
/// base, the MTU of the registry and the state of the live interface. A plain value, built for one request.
///
/// Operations return 1 for success and 0 for failure. Those that throw log the text at error level and throw
/// it as CIM_ERR_FAILED. Getters that take an array append an "ImpactWarning" qualifier, which tells clients
/// what a change of the value does to the server; the array is never cleared.
class ORX_LANEndpoint : public ORX_LANEndpointAPI
{
  public:
    ORX_LANEndpoint();
    /// The interface "eth" followed by `number`. Nothing is read.
    explicit ORX_LANEndpoint(int number);
    /// The interface that `nameOrDescription` names: a text that begins with "eth" is taken as the
    /// interface's name unchecked, any other as a description. Throws what getMapping throws. Nothing is
    /// read.
    explicit ORX_LANEndpoint(const OpenWBEM::String& nameOrDescription);

    /// Empties the fields of this class; the base's stay.
    void init();

    /// Reads the live interface and the stored data. 0 when the interface cannot be queried; the fields are
    /// then left alone. When the registry has no MTU, the live one is stored there, or 1500 when the kernel
    /// does not tell it.
    int get();

    /// Translates between interface names and descriptions ("eth1" and "Customer LAN"). Texts are compared
    /// exactly. Throws "Cannot find the corresponding if interface" with the identifier
    /// "LAN_ERROR_noIFNameMapping" when no interface has that name or description.
    OpenWBEM::String getMapping(const OpenWBEM::String& value, bool toDescription) const;

    /// The hardware address: six two-digit lower-case hexadecimal numbers joined by colons.
    int getMACAddress(OpenWBEM::String& macAddress) const;

    /// The MTU in bytes.
    int getMaxDataSize(int& maxDataSize) const;

    /// Sets the MTU, 68 to 1500 bytes, at once: of the live interface and in the registry. Throws when it is
    /// out of range or the kernel refuses it.
    int setMaxDataSize(int maxDataSize);

    int getIPAddress(OpenWBEM::String& ipAddress, OpenWBEM::Array<OpenWBEM::CIMQualifier>& qualifiers) const;
    int setIPAddress(const OpenWBEM::String& ipAddress);
    int getSubnetMask(OpenWBEM::String& subnetMask,
                      OpenWBEM::Array<OpenWBEM::CIMQualifier>& qualifiers) const;
    int setSubnetMask(const OpenWBEM::String& subnetMask);
    int getGateway(OpenWBEM::String& gateway) const;
    int setGateway(const OpenWBEM::String& gateway);
    int getIsDHCPEnabled(bool& isDhcpEnabled, OpenWBEM::Array<OpenWBEM::CIMQualifier>& qualifiers) const;
    int setIsDHCPEnabled(const bool& isDhcpEnabled);

    /// "Internal LAN", "Customer LAN" or "OAM LAN". Throws what getMapping throws.
    int getDescription(OpenWBEM::String& description) const;

    // Asked of the live interface; see InterfaceState.hpp and LinkSpeed.hpp for the values. 0 when it cannot
    // be asked; the output then keeps its value.
    int getOperationalStatus(unsigned short& operationalStatus) const;
    int getEnabledState(unsigned short& enabledState) const;
    int getProtocolIFType(unsigned short& protocolIFType) const;
    int getSpeed(unsigned long long& speed) const;

    /// Always what "00000000000000.000000-000" reads as: the server does not record changes of state.
    int getTimeOfLastStateChange(OpenWBEM::CIMDateTime& timeOfLastStateChange) const;

    int startChange();

    /// The base's endChange, with the outcomes 2 to 5 turned into the failures that clients read.
    int endChange();

  private:
    OpenWBEM::String name() const;

    OpenWBEM::String m_macAddress;
    std::uint16_t m_maxDataSize = 0;
    OpenWBEM::CIMDateTime m_timeOfLastStateChange;
};

#endif
