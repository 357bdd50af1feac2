#include "system/RegistryValue.hpp"

#include <kvu_registry.h>

namespace
{
constexpr int managementProviders = 5; ///< the area of the registry
}

unsigned int registry::read(const char* section, const char* name, std::uint16_t& value)
{
    return KvuGetRegEntryUint16Ex(managementProviders, section, name, &value);
}

unsigned int registry::write(const char* section, const char* name, std::uint16_t value)
{
    return KvuSetRegEntryUint16Ex(managementProviders, section, name, value);
}
