#include "netutil/StoredMtu.hpp"

#include "system/RegistryValue.hpp"

#include <string>

namespace
{

constexpr const char* valueName = "MTUSize";

std::string section(const char* ifName)
{
    return std::string("providers\\ORX_LANProvider\\") + ifName;
}

} // namespace

unsigned int storedmtu::read(const char* ifName, std::uint16_t& mtu)
{
    mtu = 0;
    return registry::read(section(ifName).c_str(), valueName, mtu);
}

void storedmtu::write(const char* ifName, std::uint16_t mtu)
{
    registry::write(section(ifName).c_str(), valueName, mtu);
}
