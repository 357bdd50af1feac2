#include "MarkingRegistry.hpp"

#include "RegistryArea.hpp"
#include "kvu_registry.h"

namespace dscp
{

namespace
{

constexpr const char* section = "HTS\\DSCPMarking";

} // namespace

unsigned int readSetting(const char* key, std::uint16_t& value)
{
    return KvuGetRegEntryUint16Ex(registryArea, section, key, &value);
}

unsigned int writeSetting(const char* key, std::uint16_t value)
{
    return KvuSetRegEntryUint16Ex(registryArea, section, key, value);
}

} // namespace dscp
