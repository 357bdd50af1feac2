#include "dscp/StoredMarking.hpp"

#include "system/RegistryValue.hpp"

namespace dscp
{

namespace
{

constexpr const char* section = "HTS\\DSCPMarking";

} // namespace

unsigned int readSetting(const char* key, std::uint16_t& value)
{
    return registry::read(section, key, value);
}

unsigned int writeSetting(const char* key, std::uint16_t value)
{
    return registry::write(section, key, value);
}

} // namespace dscp
