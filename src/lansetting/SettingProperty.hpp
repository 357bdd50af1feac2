#ifndef KV_LANSETTING_SETTINGPROPERTY_HPP
#define KV_LANSETTING_SETTINGPROPERTY_HPP

#include "cim/PropertyTable.hpp"
#include "lansetting/ORX_LANSetting.hpp"

/// The properties of the CIM class ORX_LANServiceSetting. A value that equals what the model holds is not set
/// again. A setter's false refuses the value.
extern const cim::PropertyTable<ORX_LANSetting, bool> settingProperties;

#endif
