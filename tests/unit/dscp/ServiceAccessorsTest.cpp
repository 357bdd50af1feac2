// What the base class answers for a service that supports nothing but its keys.

#include "ServiceTest.hpp"

#include <OW_CIMQualifier.hpp>

#include <utility>

namespace
{

using dscptest::Qualifiers;
using dscptest::ServiceTest;
using dscptest::Status;
using Service = ORX_ALGService;

class ServiceAccessors : public ServiceTest
{
  protected:
    ServiceAccessors() { callersQualifiers.push_back(OpenWBEM::CIMQualifier("Mine")); }

    template <typename Value>
    void expectUnsupported(const char* name, Status (Service::*get)(Value&, Qualifiers&) const,
                           const Value& before)
    {
        Value value = before;
        EXPECT_EQ((service.*get)(value, callersQualifiers), 100u) << name;
        EXPECT_EQ(value, before) << name;
        EXPECT_EQ(callersQualifiers.size(), 1u) << name;
    }

    Service service{"a class", "a system", "another class", "a name"};
    Qualifiers callersQualifiers;
};

TEST_F(ServiceAccessors, TheFourKeysAreTheTextsGivenToTheConstructor)
{
    std::string value = "before";
    EXPECT_EQ(service.getSystemCreationClassName(value, callersQualifiers), 0u);
    EXPECT_EQ(value, "a class");
    EXPECT_EQ(service.getSystemName(value, callersQualifiers), 0u);
    EXPECT_EQ(value, "a system");
    EXPECT_EQ(service.getCreationClassName(value, callersQualifiers), 0u);
    EXPECT_EQ(value, "another class");
    EXPECT_EQ(service.getName(value, callersQualifiers), 0u);
    EXPECT_EQ(value, "a name");
    EXPECT_EQ(callersQualifiers.size(), 1u);
}

TEST_F(ServiceAccessors, TextPropertiesAreNotSupported)
{
    using Getter = Status (Service::*)(std::string&, Qualifiers&) const;
    const std::vector<std::pair<const char*, Getter>> getters = {
        {"ElementName", &Service::getElementName},
        {"PrimaryOwnerName", &Service::getPrimaryOwnerName},
        {"PrimaryOwnerContact", &Service::getPrimaryOwnerContact},
        {"StartMode", &Service::getStartMode},
        {"OtherEnabledState", &Service::getOtherEnabledState},
        {"TimeOfLastStateChange", &Service::getTimeOfLastStateChange},
        {"InstallDate", &Service::getInstallDate},
        {"Status", &Service::getStatus},
        {"Caption", &Service::getCaption},
        {"Description", &Service::getDescription},
    };
    for (const auto& [name, get] : getters)
        expectUnsupported<std::string>(name, get, "before");
}

TEST_F(ServiceAccessors, BooleanPropertiesAreNotSupported)
{
    for (const bool before : {false, true}) {
        expectUnsupported("KLonKLEnabled", &Service::getKLonKLEnabled, before);
        expectUnsupported("Started", &Service::getStarted, before);
    }
}

TEST_F(ServiceAccessors, NumberPropertiesAreNotSupported)
{
    using Getter = Status (Service::*)(std::uint16_t&, Qualifiers&) const;
    const std::vector<std::pair<const char*, Getter>> getters = {
        {"QoSMarkVOIPSignaling", &Service::getQoSMarkVOIPSignaling},
        {"TOSByteSignaling", &Service::getTOSByteSignaling},
        {"QoSMarkVoiceMedia", &Service::getQoSMarkVoiceMedia},
        {"TOSByteMedia", &Service::getTOSByteMedia},
        {"QoSMarkVideoMedia", &Service::getQoSMarkVideoMedia},
        {"TOSByteVideoMedia", &Service::getTOSByteVideoMedia},
        {"videoMediaVisible", &Service::getvideoMediaVisible},
        {"QoSFaxMedia", &Service::getQoSFaxMedia},
        {"TOSByteFax", &Service::getTOSByteFax},
        {"EnabledState", &Service::getEnabledState},
        {"RequestedState", &Service::getRequestedState},
        {"EnabledDefault", &Service::getEnabledDefault},
    };
    for (const auto& [name, get] : getters)
        expectUnsupported<std::uint16_t>(name, get, 4711);
}

TEST_F(ServiceAccessors, StatusListsAreNotSupported)
{
    std::vector<std::uint16_t> numbers = {2, 5};
    std::uint16_t besideTheList = 7;
    EXPECT_EQ(service.getOperationalStatus(numbers, besideTheList, callersQualifiers), 100u);
    EXPECT_EQ(numbers, (std::vector<std::uint16_t>{2, 5}));
    EXPECT_EQ(besideTheList, 7u);
    EXPECT_EQ(callersQualifiers.size(), 1u);

    expectUnsupported<std::vector<std::string>>("StatusDescriptions", &Service::getStatusDescriptions,
                                                {"fine", "well"});
}

TEST_F(ServiceAccessors, NothingCanBeSet)
{
    EXPECT_EQ(service.setKLonKLEnabled(true), 101u);
    EXPECT_EQ(service.setQoSMarkVOIPSignaling(1), 101u);
    EXPECT_EQ(service.setTOSByteSignaling(1), 101u);
    EXPECT_EQ(service.setQoSMarkVoiceMedia(1), 101u);
    EXPECT_EQ(service.setTOSByteMedia(1), 101u);
    EXPECT_EQ(service.setQoSMarkVideoMedia(1), 101u);
    EXPECT_EQ(service.setTOSByteVideoMedia(1), 101u);
    EXPECT_EQ(service.setQoSFaxMedia(1), 101u);
    EXPECT_EQ(service.setTOSByteFax(1), 101u);
    EXPECT_EQ(service.setPrimaryOwnerName("x"), 101u);
    EXPECT_EQ(service.setPrimaryOwnerContact("x"), 101u);
    EXPECT_EQ(service.setEnabledDefault(1), 101u);
}

TEST_F(ServiceAccessors, AChangeStartsAndEndsWithoutEffect)
{
    EXPECT_EQ(service.startChange(), 0u);
    EXPECT_EQ(service.endChange(), 0u);
    EXPECT_EQ(world.journal(), dscptest::Lines());
}

} // namespace
