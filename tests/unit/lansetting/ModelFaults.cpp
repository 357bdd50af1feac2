#include "ModelFaults.hpp"

#include "lansetting/ORX_LANSetting.hpp"

ModelFaults modelFaults;

using OpenWBEM::String;

// The linker's names for the original functions and for those that take their place.
int realGet(const char* key, unsigned* value) __asm__("__real__Z23kv_get_netfilter_configPKcPj");
int realSet(const char* key, unsigned value) __asm__("__real__Z23kv_set_netfilter_configPKcj");
bool realInstanceID(const ORX_LANSetting* model, String& value) //
    __asm__("__real__ZNK14ORX_LANSetting13getInstanceIDERN8OpenWBEM6StringE");
bool realDomainName(const ORX_LANSetting* model, String& value) //
    __asm__("__real__ZNK14ORX_LANSetting13getDomainNameERN8OpenWBEM6StringE");
bool realPrimaryDNS(const ORX_LANSetting* model, String& value) //
    __asm__("__real__ZNK14ORX_LANSetting13getPrimaryDNSERN8OpenWBEM6StringE");
bool realSecondaryDNS(const ORX_LANSetting* model, String& value) //
    __asm__("__real__ZNK14ORX_LANSetting15getSecondaryDNSERN8OpenWBEM6StringE");

// Pointers to member functions carry a flag in their lowest bit, so what takes a member's place needs an even
// address, which free functions do not have by themselves.
#define KV_IN_PLACE_OF(symbol) __asm__("__wrap_" symbol) __attribute__((aligned(16)))

int wrappedGet(const char* key, unsigned* value) KV_IN_PLACE_OF("_Z23kv_get_netfilter_configPKcPj");
int wrappedSet(const char* key, unsigned value) KV_IN_PLACE_OF("_Z23kv_set_netfilter_configPKcj");
bool wrappedInstanceID(const ORX_LANSetting* model, String& value) //
    KV_IN_PLACE_OF("_ZNK14ORX_LANSetting13getInstanceIDERN8OpenWBEM6StringE");
bool wrappedDomainName(const ORX_LANSetting* model, String& value) //
    KV_IN_PLACE_OF("_ZNK14ORX_LANSetting13getDomainNameERN8OpenWBEM6StringE");
bool wrappedPrimaryDNS(const ORX_LANSetting* model, String& value) //
    KV_IN_PLACE_OF("_ZNK14ORX_LANSetting13getPrimaryDNSERN8OpenWBEM6StringE");
bool wrappedSecondaryDNS(const ORX_LANSetting* model, String& value) //
    KV_IN_PLACE_OF("_ZNK14ORX_LANSetting15getSecondaryDNSERN8OpenWBEM6StringE");

int wrappedGet(const char* key, unsigned* value)
{
    return modelFaults.unreadableSwitches.count(key) != 0 ? -1 : realGet(key, value);
}

int wrappedSet(const char* key, unsigned value)
{
    return modelFaults.unstorableSwitches.count(key) != 0 ? -1 : realSet(key, value);
}

bool wrappedInstanceID(const ORX_LANSetting* model, String& value)
{
    return realInstanceID(model, value) && !modelFaults.getInstanceIDFails;
}

bool wrappedDomainName(const ORX_LANSetting* model, String& value)
{
    return realDomainName(model, value) && !modelFaults.getDomainNameFails;
}

bool wrappedPrimaryDNS(const ORX_LANSetting* model, String& value)
{
    return realPrimaryDNS(model, value) && !modelFaults.getPrimaryDNSFails;
}

bool wrappedSecondaryDNS(const ORX_LANSetting* model, String& value)
{
    return realSecondaryDNS(model, value) && !modelFaults.getSecondaryDNSFails;
}
