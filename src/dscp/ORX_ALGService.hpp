#ifndef KV_DSCP_ORX_ALGSERVICE_HPP
#define KV_DSCP_ORX_ALGSERVICE_HPP

#include "dscp/ORX_ALGServiceInstanceManager.hpp"

#include <OW_config.h>

#include <OW_Array.hpp>
#include <OW_CIM.hpp>

#include <cstdint>
#include <string>
#include <vector>

/// The CIM object that controls the TOS byte of voice signalling, voice media, video media and fax packets.
/// It is the IPv4 type of service (RFC 791); its upper six bits are the DSCP (RFC 2474).
///
/// This class knows the four keys only. It answers every other property with "not supported" or "not
/// writable", so that a concrete service overrides just what it has. An object registers itself with the
/// current instance manager when it is built and unregisters when it is destroyed.
///
/// Getters write `value` only when they return Done, and may append CIM qualifiers for the property to the
/// array; no service of this library does. The operations stand in the order of their slots in the virtual
/// table.
class ORX_ALGService
{
  public:
    /// What every operation returns.
    using Status = std::uint32_t;
    static constexpr Status Done = 0;
    static constexpr Status NotSupported = 100; ///< from a getter: this object has no such property
    static constexpr Status NotWritable = 101;  ///< from a setter: the property cannot be set
    static constexpr Status InvalidValue = 301; ///< reserved: a value is invalid
    static constexpr Status InvalidSet = 302;   ///< reserved: the values do not go together

    using Qualifiers = OpenWBEM::Array<OpenWBEM::CIMQualifier>;

    ORX_ALGService(const std::string& systemCreationClassName, const std::string& systemName,
                   const std::string& creationClassName, const std::string& name);
    ORX_ALGService(const ORX_ALGService&) = delete;
    ORX_ALGService& operator=(const ORX_ALGService&) = delete;
    virtual ~ORX_ALGService();

    virtual Status startChange() { return Done; }
    virtual Status endChange() { return Done; }

    virtual Status getSystemCreationClassName(std::string& value, Qualifiers&) const;
    virtual Status getSystemName(std::string& value, Qualifiers&) const;
    virtual Status getCreationClassName(std::string& value, Qualifiers&) const;
    virtual Status getName(std::string& value, Qualifiers&) const;
    virtual Status getElementName(std::string&, Qualifiers&) const { return NotSupported; }

    virtual Status getKLonKLEnabled(bool&, Qualifiers&) const { return NotSupported; }
    virtual Status setKLonKLEnabled(bool) { return NotWritable; }
    virtual Status getQoSMarkVOIPSignaling(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status setQoSMarkVOIPSignaling(std::uint16_t) { return NotWritable; }
    virtual Status getTOSByteSignaling(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status setTOSByteSignaling(std::uint16_t) { return NotWritable; }
    virtual Status getQoSMarkVoiceMedia(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status setQoSMarkVoiceMedia(std::uint16_t) { return NotWritable; }
    virtual Status getTOSByteMedia(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status setTOSByteMedia(std::uint16_t) { return NotWritable; }
    virtual Status getQoSMarkVideoMedia(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status setQoSMarkVideoMedia(std::uint16_t) { return NotWritable; }
    virtual Status getTOSByteVideoMedia(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status setTOSByteVideoMedia(std::uint16_t) { return NotWritable; }
    /// Kept: the lower-case v, and that there is no setter. The CIM property is named "videoMediaVisible".
    virtual Status getvideoMediaVisible(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status getQoSFaxMedia(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status setQoSFaxMedia(std::uint16_t) { return NotWritable; }
    virtual Status getTOSByteFax(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status setTOSByteFax(std::uint16_t) { return NotWritable; }

    virtual Status getPrimaryOwnerName(std::string&, Qualifiers&) const { return NotSupported; }
    virtual Status setPrimaryOwnerName(std::string) { return NotWritable; }
    virtual Status getPrimaryOwnerContact(std::string&, Qualifiers&) const { return NotSupported; }
    virtual Status setPrimaryOwnerContact(std::string) { return NotWritable; }

    virtual Status getStartMode(std::string&, Qualifiers&) const { return NotSupported; }
    virtual Status getStarted(bool&, Qualifiers&) const { return NotSupported; }
    virtual Status getEnabledState(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status getOtherEnabledState(std::string&, Qualifiers&) const { return NotSupported; }
    virtual Status getRequestedState(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status getEnabledDefault(std::uint16_t&, Qualifiers&) const { return NotSupported; }
    virtual Status setEnabledDefault(std::uint16_t) { return NotWritable; }
    /// Dates are texts in the CIM datetime form (DMTF DSP0004, 5.2.4).
    virtual Status getTimeOfLastStateChange(std::string&, Qualifiers&) const { return NotSupported; }
    virtual Status getInstallDate(std::string&, Qualifiers&) const { return NotSupported; }
    /// The number beside the list has no meaning on this server; nothing fills it.
    virtual Status getOperationalStatus(std::vector<std::uint16_t>&, std::uint16_t&, Qualifiers&) const
    {
        return NotSupported;
    }
    virtual Status getStatusDescriptions(std::vector<std::string>&, Qualifiers&) const
    {
        return NotSupported;
    }
    virtual Status getStatus(std::string&, Qualifiers&) const { return NotSupported; }
    virtual Status getCaption(std::string&, Qualifiers&) const { return NotSupported; }
    virtual Status getDescription(std::string&, Qualifiers&) const { return NotSupported; }

    /// The manager that objects register with now.
    static ORX_ALGServiceInstanceManager* getInstanceManager();

    /// Installs `manager` (not null), which belongs to this class from now on, and returns what its init
    /// returns. The manager installed before is deleted, unless it is the default one or `manager` itself;
    /// its objects are not.
    static Status SetInstanceManager(ORX_ALGServiceInstanceManager* manager);

    /// Goes back to the default manager. The installed one is not deleted: it belongs to the caller again.
    static void ClearInstanceManager();

  private:
    // The default manager lives as long as the library. An installed one is left to the process when the
    // library is unloaded, together with its objects, so that no destructor runs in an order that nobody
    // controls.
    static ORX_ALGServiceInstanceManager defaultInstanceManager;
    static ORX_ALGServiceInstanceManager* theInstanceManager;

    const std::string theSystemCreationClassName;
    const std::string theSystemName;
    const std::string theCreationClassName;
    const std::string theName;
};

#endif
