// Other components call these classes through their virtual tables, so the order of slots and bases is part
// of the interface.

#include "ServiceTest.hpp"

#include "ClassLayout.hpp"
#include "dscp/ORX_ALGServiceProvider.hpp"

#include <typeinfo>

using fakes::basesOf;
using fakes::expectConsecutive;
using fakes::slot;

namespace
{

using Service = ORX_ALGService;
using Manager = ORX_ALGServiceInstanceManager;

constexpr std::size_t behindTheDestructor = 2;

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
    expectConsecutive(behindTheDestructor, slots);
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
    expectConsecutive(behindTheDestructor, slots);
}

TEST(ServiceSlots, TheProvidersBasesStandInTheirOrderAndTheFirstIsVirtual)
{
    EXPECT_EQ(basesOf(typeid(ORX_ALGServiceProvider)),
              (std::vector<std::string>{"public virtual OpenWBEM::CppInstanceProviderIFC",
                                        "public OpenWBEM::CppMethodProviderIFC"}));
}

} // namespace
