// What a client is told when a service refuses a modification.

#include "ProviderTest.hpp"

#include "dscp/CFG_Exception.hpp"

#include <stdexcept>

namespace
{

using dscptest::operator+;
using dscptest::CimFailure;
using dscptest::failureOf;
using dscptest::FullService;
using dscptest::instance;
using dscptest::keys;
using dscptest::Lines;
using dscptest::uint16;
using dscptest::Values;

class ProviderStatus : public dscptest::ProviderTest
{
  protected:
    void modifyService()
    {
        modifyInstance(instance(keys("A", "B", "C", "D") + Values{{"QoSMarkVOIPSignaling", uint16(1)},
                                                                  {"TOSByteSignaling", uint16(2)}}));
    }

    CimFailure failureWhen(const std::string& operation, std::uint32_t result)
    {
        service.changes.clear();
        service.results = {{operation, result}};
        return failureOf([this] { modifyService(); });
    }

    FullService service{"A", "B", "C", "D"};
    const Lines wholeChange = {"startChange", "setQoSMarkVOIPSignaling 1", "setTOSByteSignaling 2",
                               "endChange"};
};

TEST_F(ProviderStatus, AChangeThatCannotStartFailsWithItsStatus)
{
    EXPECT_EQ(failureWhen("startChange", 1), (CimFailure{1, "Could not make the requested change.\n#1#"}));
    EXPECT_EQ(service.changes, Lines{"startChange"});
    EXPECT_EQ(failureWhen("startChange", 101),
              (CimFailure{1, "Could not make the requested change.\n#101#"}));
    EXPECT_EQ(failureWhen("startChange", 300),
              (CimFailure{1, "Could not make the requested change.\n#300#"}));
    EXPECT_EQ(failureWhen("startChange", 303),
              (CimFailure{1, "Could not make the requested change.\n#303#"}));
    EXPECT_EQ(failureWhen("startChange", 0xFFFFFFFF),
              (CimFailure{1, "Could not make the requested change.\n#4294967295#"}));
}

TEST_F(ProviderStatus, AChangeThatCannotStartForInvalidValuesHasAnIdentifier)
{
    for (const std::uint32_t status : {301u, 302u}) {
        EXPECT_EQ(failureWhen("startChange", status),
                  (CimFailure{1, "Could not make the requested change.\n#CFG_000_0001#"}));
        EXPECT_EQ(service.changes, Lines{"startChange"});
    }
}

TEST_F(ProviderStatus, AnInvalidValueIsReportedWithThePlaceholderForItsName)
{
    EXPECT_EQ(failureWhen("setQoSMarkVOIPSignaling", 301),
              (CimFailure{4, "The value of $prop.getName() is invalid.\n"
                             "#CFG_000_0000,MOF_Props_ORX_ALGService_$prop.getName()#"}));
    EXPECT_EQ(service.changes, (Lines{"startChange", "setQoSMarkVOIPSignaling 1"}));
}

TEST_F(ProviderStatus, AnyOtherStatusOfASetterIsReportedAsItsNumber)
{
    EXPECT_EQ(failureWhen("setQoSMarkVOIPSignaling", 101), (CimFailure{1, "#101#"}));
    EXPECT_EQ(service.changes, (Lines{"startChange", "setQoSMarkVOIPSignaling 1"}));
    EXPECT_EQ(failureWhen("setTOSByteSignaling", 302), (CimFailure{1, "#302#"}));
    EXPECT_EQ(service.changes, (Lines{"startChange", "setQoSMarkVOIPSignaling 1", "setTOSByteSignaling 2"}));
    EXPECT_EQ(failureWhen("setTOSByteSignaling", 0x80000000), (CimFailure{1, "#2147483648#"}));
}

TEST_F(ProviderStatus, EverySettersStatusCounts)
{
    const Values all = {{"KLonKLEnabled", dscptest::boolean(true)},
                        {"QoSMarkVOIPSignaling", uint16(1)},
                        {"TOSByteSignaling", uint16(1)},
                        {"QoSMarkVoiceMedia", uint16(1)},
                        {"TOSByteMedia", uint16(1)},
                        {"QoSMarkVideoMedia", uint16(1)},
                        {"TOSByteVideoMedia", uint16(1)},
                        {"QoSFaxMedia", uint16(1)},
                        {"TOSByteFax", uint16(1)},
                        {"PrimaryOwnerName", dscptest::text("x")},
                        {"PrimaryOwnerContact", dscptest::text("x")},
                        {"EnabledDefault", uint16(1)}};
    for (const auto& value : all) {
        service.results = {{std::string("set") + value.first, 5}};
        EXPECT_EQ(failureOf([&] { modifyInstance(instance(keys("A", "B", "C", "D") + Values{value})); }),
                  (CimFailure{1, "#5#"}))
            << value.first;
    }
}

TEST_F(ProviderStatus, AChangeThatCannotEndForInvalidValuesHasAnIdentifier)
{
    for (const std::uint32_t status : {301u, 302u}) {
        EXPECT_EQ(failureWhen("endChange", status),
                  (CimFailure{4, "One or more of the values specified for the ORX_ALGService was invalid.\n"
                                 "#CFG_000_0001#"}));
        EXPECT_EQ(service.changes, wholeChange);
    }
}

TEST_F(ProviderStatus, AChangeThatCannotEndFailsWithItsStatus)
{
    EXPECT_EQ(failureWhen("endChange", 1), (CimFailure{1, "#1#"}));
    EXPECT_EQ(failureWhen("endChange", 300), (CimFailure{1, "#300#"}));
    EXPECT_EQ(failureWhen("endChange", 303), (CimFailure{1, "#303#"}));
    EXPECT_EQ(failureWhen("endChange", 0xFFFFFFFF), (CimFailure{1, "#4294967295#"}));
    EXPECT_EQ(service.changes, wholeChange);
}

TEST_F(ProviderStatus, AConfigurationExceptionOfAnyStepFailsTheModification)
{
    for (const std::string step : {"startChange", "setTOSByteSignaling", "endChange"}) {
        const auto failureAt = [&](const std::function<void()>& raise) {
            service.onChange = [&](const std::string& operation) {
                if (operation == step)
                    raise();
            };
            return failureOf([this] { modifyService(); });
        };
        const CimFailure expected = {1, "Could not modify the configuration as requested.\n"};
        EXPECT_EQ(failureAt([] { throw CFG_Exception(); }), expected) << step;
        EXPECT_EQ(failureAt([] { throw CFG_NoInstance(); }), expected) << step;
        EXPECT_EQ(failureAt([] { throw CFG_InstanceCreationFailed(); }), expected) << step;
        EXPECT_EQ(failureAt([] { throw CFG_InstanceDeletionFailed(); }), expected) << step;
    }
}

TEST_F(ProviderStatus, OtherExceptionsPassThrough)
{
    service.onChange = [](const std::string&) { throw std::runtime_error("boom"); };
    EXPECT_THROW(modifyService(), std::runtime_error);
}

} // namespace
