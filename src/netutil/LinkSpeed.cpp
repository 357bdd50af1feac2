#include "netutil/LinkSpeed.hpp"

#include "netutil/InterfaceRequest.hpp"

#include <linux/sockios.h>

#include <array>

// The registers and bits of a PHY are those of IEEE 802.3 clause 22; linux/mii.h names them.

namespace
{

using MiiRegisters = std::array<std::uint16_t, 8>;

// What is reported when the PHY cannot be asked or gives no usable answer.
constexpr std::uint64_t defaultSpeed = 10000000;

// The media of the advertisement and link-partner registers by their bit numbers, best first: 100BASE-TX full
// duplex, 100BASE-T4, 100BASE-TX half duplex, 10BASE-T full duplex, 10BASE-T half duplex.
constexpr std::array<unsigned, 5> mediaByPriority{8, 9, 7, 6, 5};

// bit/s by bit number, beginning with bit 5. Kept: the last one, 100BASE-T4, is reported as 10000000.
constexpr unsigned lowestMedium = 5;
constexpr std::array<std::uint64_t, 5> speedByMedium{10000000, 10000000, 100000000, 100000000, 10000000};

// Reads all eight registers in turn. Kept: four of them are never looked at. False when the driver knows
// neither the MII requests nor the private ones that older drivers have in their place.
bool readRegisters(InterfaceRequest& request, MiiRegisters& registers)
{
    mii_ioctl_data mii = {};
    unsigned long readRegister = SIOCGMIIREG;
    if (!request.mii(SIOCGMIIPHY, mii)) {
        if (!request.mii(SIOCDEVPRIVATE, mii))
            return false;
        readRegister = SIOCDEVPRIVATE + 1;
    }
    const std::uint16_t phy = mii.phy_id;
    std::uint16_t number = 0;
    for (std::uint16_t& value : registers) {
        mii.phy_id = phy;
        mii.reg_num = number++;
        // Kept: a register that cannot be read takes what the request still holds, mostly the value before
        // it.
        request.mii(readRegister, mii);
        value = mii.val_out;
    }
    return true;
}

std::uint64_t bestCommonSpeed(unsigned advertised, unsigned partner)
{
    const unsigned common = advertised & partner & (ADVERTISE_ALL | ADVERTISE_100BASE4);
    for (const unsigned medium : mediaByPriority)
        if ((common & (1U << medium)) != 0)
            return speedByMedium[medium - lowestMedium];
    return defaultSpeed;
}

std::uint64_t speedOf(const MiiRegisters& registers)
{
    const unsigned status = registers[MII_BMSR];
    if (registers[MII_BMCR] == 0xFFFF || status == 0)
        return defaultSpeed; // no transceiver
    if ((status & (BMSR_RFAULT | BMSR_LSTATUS | BMSR_JCD)) != BMSR_LSTATUS)
        return 0;
    const unsigned partner = registers[MII_LPA];
    if ((partner & LPA_LPACK) != 0)
        return bestCommonSpeed(registers[MII_ADVERTISE], partner);
    // The partner does not negotiate. The PHY has found its medium by parallel detection.
    return (partner & LPA_100HALF) != 0 ? 100000000 : defaultSpeed;
}

} // namespace

int kv_get_EthernetIfSpeed(const char* ifName, std::uint64_t* speed)
{
    InterfaceRequest request(ifName);
    if (!request.isOpen() || speed == nullptr)
        return -1;
    MiiRegisters registers = {};
    *speed = readRegisters(request, registers) ? speedOf(registers) : defaultSpeed;
    return 0;
}
