// Other components call these classes through their virtual tables, so the order of slots and bases is part
// of the interface.

#include "ServiceTest.hpp"

#include "ORX_ALGServiceProvider.hpp"

#include <cxxabi.h>

#include <cstddef>
#include <cstring>
#include <typeinfo>

namespace
{

using Service = ORX_ALGService;
using Manager = ORX_ALGServiceInstanceManager;

// In the Itanium C++ ABI, which GCC and Clang follow on this server and on the development machine, a pointer
// to a virtual member holds the offset of its slot plus one. A virtual destructor takes the first two slots.
template <typename Member>
std::size_t slot(Member member)
{
    static_assert(sizeof member >= sizeof(std::ptrdiff_t));
    std::ptrdiff_t offsetPlusOne = 0;
    std::memcpy(&offsetPlusOne, &member, sizeof offsetPlusOne);
    return static_cast<std::size_t>(offsetPlusOne - 1) / sizeof(void*);
}

TEST(ServiceSlots, TheServicesOperationsStandInTheirOrder)
{
    const std::vector<std::size_t> slots = {
        slot(&Service::startChange),
        slot(&Service::endChange),
        slot(&Service::getSystemCreationClassName),
        slot(&Service::getSystemName),
        slot(&Service::getCreationClassName),
        slot(&Service::getName),
        slot(&Service::getElementName),
        slot(&Service::getKLonKLEnabled),
        slot(&Service::setKLonKLEnabled),
        slot(&Service::getQoSMarkVOIPSignaling),
        slot(&Service::setQoSMarkVOIPSignaling),
        slot(&Service::getTOSByteSignaling),
        slot(&Service::setTOSByteSignaling),
        slot(&Service::getQoSMarkVoiceMedia),
        slot(&Service::setQoSMarkVoiceMedia),
        slot(&Service::getTOSByteMedia),
        slot(&Service::setTOSByteMedia),
        slot(&Service::getQoSMarkVideoMedia),
        slot(&Service::setQoSMarkVideoMedia),
        slot(&Service::getTOSByteVideoMedia),
        slot(&Service::setTOSByteVideoMedia),
        slot(&Service::getvideoMediaVisible),
        slot(&Service::getQoSFaxMedia),
        slot(&Service::setQoSFaxMedia),
        slot(&Service::getTOSByteFax),
        slot(&Service::setTOSByteFax),
        slot(&Service::getPrimaryOwnerName),
        slot(&Service::setPrimaryOwnerName),
        slot(&Service::getPrimaryOwnerContact),
        slot(&Service::setPrimaryOwnerContact),
        slot(&Service::getStartMode),
        slot(&Service::getStarted),
        slot(&Service::getEnabledState),
        slot(&Service::getOtherEnabledState),
        slot(&Service::getRequestedState),
        slot(&Service::getEnabledDefault),
        slot(&Service::setEnabledDefault),
        slot(&Service::getTimeOfLastStateChange),
        slot(&Service::getInstallDate),
        slot(&Service::getOperationalStatus),
        slot(&Service::getStatusDescriptions),
        slot(&Service::getStatus),
        slot(&Service::getCaption),
        slot(&Service::getDescription),
    };
    for (std::size_t i = 0; i < slots.size(); ++i)
        EXPECT_EQ(slots[i], i + 2) << "operation " << i;
}

TEST(ServiceSlots, TheManagersOperationsStandInTheirOrder)
{
    const std::vector<std::size_t> slots = {
        slot(&Manager::init),
        slot(&Manager::createORX_ALGService),
        slot(&Manager::destroyORX_ALGService),
        slot(&Manager::add),
        slot(&Manager::remove),
        slot(&Manager::get),
        slot(&Manager::startIteration),
        slot(&Manager::hasNext),
        slot(&Manager::next),
        slot(&Manager::endIteration),
    };
    for (std::size_t i = 0; i < slots.size(); ++i)
        EXPECT_EQ(slots[i], i + 2) << "operation " << i;
}

TEST(ServiceSlots, TheProvidersBasesStandInTheirOrderAndTheFirstIsVirtual)
{
    const std::type_info& provider = typeid(ORX_ALGServiceProvider);
    const auto* const description = dynamic_cast<const abi::__vmi_class_type_info*>(&provider);
    ASSERT_NE(description, nullptr);
    ASSERT_EQ(description->__base_count, 2u);
    const abi::__base_class_type_info* const bases = description->__base_info;
    EXPECT_EQ(*bases[0].__base_type, typeid(OpenWBEM::CppInstanceProviderIFC));
    EXPECT_TRUE(bases[0].__is_virtual_p());
    EXPECT_TRUE(bases[0].__is_public_p());
    EXPECT_EQ(*bases[1].__base_type, typeid(OpenWBEM::CppMethodProviderIFC));
    EXPECT_FALSE(bases[1].__is_virtual_p());
    EXPECT_TRUE(bases[1].__is_public_p());
}

} // namespace
