#include "MarkingRegistry.hpp"

#include "kvu_registry.h"

namespace dscp
{

namespace
{

constexpr int area = 5; // the registry area of the management providers
constexpr const char* section = "HTS\\DSCPMarking";

} // namespace

unsigned int readSetting(const char* key, std::uint16_t& value)
{
    return KvuGetRegEntryUint16Ex(area, section, key, &value);
}

unsigned int writeSetting(const char* key, std::uint16_t value)
{
    return KvuSetRegEntryUint16Ex(area, section, key, value);
}

} // namespace dscp
