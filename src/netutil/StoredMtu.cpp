#include "StoredMtu.hpp"

#include "RegistryArea.hpp"

#include <kvu_registry.h>

#include <string>

namespace
{

constexpr const char* valueName = "MTUSize";

std::string keyPath(const char* ifName)
{
    return std::string("providers\\ORX_LANProvider\\") + ifName;
}

} // namespace

unsigned int storedmtu::read(const char* ifName, std::uint16_t& mtu)
{
    mtu = 0;
    return KvuGetRegEntryUint16Ex(registryArea, keyPath(ifName).c_str(), valueName, &mtu);
}

void storedmtu::write(const char* ifName, std::uint16_t mtu)
{
    KvuSetRegEntryUint16Ex(registryArea, keyPath(ifName).c_str(), valueName, mtu);
}
