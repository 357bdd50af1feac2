#include "config/NetfilterConfig.hpp"

#include "config/CCOrxConfig.hpp"

namespace
{
constexpr char switchFile[] = "/kv/etc/kv_netfilter.cfg";
}

int kv_get_netfilter_config(const char* key, unsigned* value)
{
    const CCOrxConfig store(switchFile, CCOrxConfig::BlankSeparated);
    if (!value)
        return -1;
    *value = static_cast<unsigned>(store.GetIntValue(key));
    return 0;
}

int kv_set_netfilter_config(const char* key, unsigned value)
{
    CCOrxConfig store(switchFile, CCOrxConfig::BlankSeparated);
    store.SetValue(key, static_cast<int>(value));
    store.Commit();
    return 0;
}
