// Which properties of a modification reach the service, and how.

#include "ProviderTest.hpp"

#include "FlowTexts.hpp"

#include <OW_CIMValueCast.hpp>

#include <memory>

namespace
{

using dscptest::operator+;
using dscptest::boolean;
using dscptest::CimFailure;
using dscptest::failureOf;
using dscptest::FullService;
using dscptest::get;
using dscptest::instance;
using dscptest::keys;
using dscptest::Lines;
using dscptest::logged;
using dscptest::path;
using dscptest::set;
using dscptest::startUpKeys;
using dscptest::text;
using dscptest::uint16;
using dscptest::Values;

std::string times(std::size_t count, const std::string& piece)
{
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += piece;
    return all;
}

class ProviderModify : public dscptest::ProviderTest
{
  protected:
    /// What a service that supports everything is told by a modification with `values`.
    Lines changesBy(const Values& values)
    {
        FullService service("A", "B", "C", "D");
        modifyInstance(instance(keys("A", "B", "C", "D") + values));
        return service.changes;
    }
};

TEST_F(ProviderModify, AllWritablePropertiesAreSetInTheInstancesOrder)
{
    EXPECT_EQ(changesBy({{"EnabledDefault", uint16(12)},
                         {"PrimaryOwnerContact", text("contact")},
                         {"PrimaryOwnerName", text("owner")},
                         {"TOSByteFax", uint16(9)},
                         {"QoSFaxMedia", uint16(8)},
                         {"TOSByteVideoMedia", uint16(7)},
                         {"QoSMarkVideoMedia", uint16(6)},
                         {"TOSByteMedia", uint16(5)},
                         {"QoSMarkVoiceMedia", uint16(4)},
                         {"TOSByteSignaling", uint16(3)},
                         {"QoSMarkVOIPSignaling", uint16(65535)},
                         {"KLonKLEnabled", boolean(true)}}),
              (Lines{"startChange", "setEnabledDefault 12", "setPrimaryOwnerContact contact",
                     "setPrimaryOwnerName owner", "setTOSByteFax 9", "setQoSFaxMedia 8",
                     "setTOSByteVideoMedia 7", "setQoSMarkVideoMedia 6", "setTOSByteMedia 5",
                     "setQoSMarkVoiceMedia 4", "setTOSByteSignaling 3", "setQoSMarkVOIPSignaling 65535",
                     "setKLonKLEnabled true", "endChange"}));
    EXPECT_EQ(changesBy({{"KLonKLEnabled", boolean(false)}}),
              (Lines{"startChange", "setKLonKLEnabled false", "endChange"}));
}

TEST_F(ProviderModify, KeysAndReadOnlyPropertiesArePassedOver)
{
    const std::pair<const char*, OpenWBEM::CIMValue> readOnly[] = {
        {"ElementName", text("x")},
        {"videoMediaVisible", uint16(0)},
        {"StartMode", text("x")},
        {"Started", boolean(true)},
        {"EnabledState", uint16(1)},
        {"OtherEnabledState", text("x")},
        {"RequestedState", uint16(1)},
        {"TimeOfLastStateChange", text("x")},
        {"InstallDate", text("x")},
        {"OperationalStatus", uint16(1)},
        {"StatusDescriptions", text("x")},
        {"Status", text("x")},
        {"Caption", text("x")},
        {"Description", text("x")},
        {"NoSuchProperty", text("x")},
    };
    const Lines bracketsOnly = {"startChange", "endChange"};
    EXPECT_EQ(changesBy({}), bracketsOnly);
    Values all;
    for (const auto& value : readOnly) {
        EXPECT_EQ(changesBy({value}), bracketsOnly) << value.first;
        all.push_back(value);
    }
    EXPECT_EQ(changesBy(all), bracketsOnly);
}

TEST_F(ProviderModify, AFailureThatTheServiceRaisesAsCimsOwnGoesOnAsItIs)
{
    FullService service("A", "B", "C", "D");
    service.onChange = [](const std::string&) { dscptest::failElsewhere(); };
    dscptest::expectFailureElsewhere([&] { modifyInstance(instance(keys("A", "B", "C", "D"))); });
}

TEST_F(ProviderModify, TheNamesOfPropertiesAreExact)
{
    EXPECT_EQ(
        changesBy(
            {{"klonklenabled", boolean(true)}, {"tosbytefax", uint16(1)}, {"PRIMARYOWNERNAME", text("x")}}),
        (Lines{"startChange", "endChange"}));
}

TEST_F(ProviderModify, NullValuesArePassedOver)
{
    const char* const names[] = {"KLonKLEnabled",     "QoSMarkVOIPSignaling", "TOSByteSignaling",
                                 "QoSMarkVoiceMedia", "TOSByteMedia",         "QoSMarkVideoMedia",
                                 "TOSByteVideoMedia", "QoSFaxMedia",          "TOSByteFax",
                                 "PrimaryOwnerName",  "PrimaryOwnerContact",  "EnabledDefault"};
    for (const char* name : names)
        EXPECT_EQ(changesBy({{name, dscptest::null()}}), (Lines{"startChange", "endChange"})) << name;
}

TEST_F(ProviderModify, OwnerTextsOfAnotherTypeAreTakenAsTheirText)
{
    EXPECT_EQ(changesBy({{"PrimaryOwnerName", uint16(7)}, {"PrimaryOwnerContact", boolean(true)}}),
              (Lines{"startChange", "setPrimaryOwnerName 7", "setPrimaryOwnerContact true", "endChange"}));
}

TEST_F(ProviderModify, AnOwnerNameHasAtMost64Characters)
{
    const CimFailure tooLong = {4, "The length of PrimaryOwnerName must be <= 64\n"
                                   "#CFG_000_0004,MOF_Props_ORX_ALGService_PrimaryOwnerName,64#"};
    for (const std::string character : {"x", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x93\x9E"}) {
        const std::string longest = times(64, character);
        EXPECT_EQ(changesBy({{"PrimaryOwnerName", text(longest)}}),
                  (Lines{"startChange", "setPrimaryOwnerName " + longest, "endChange"}));
        FullService service("A", "B", "C", "D");
        EXPECT_EQ(failureOf([&] {
                      modifyInstance(instance(keys("A", "B", "C", "D") +
                                              Values{{"PrimaryOwnerName", text(times(65, character))}}));
                  }),
                  tooLong);
        EXPECT_EQ(service.changes, Lines{"startChange"});
    }
}

TEST_F(ProviderModify, AnOwnerContactHasAtMost256Characters)
{
    const CimFailure tooLong = {4, "The length of PrimaryOwnerContact must be <= 256\n"
                                   "#CFG_000_0004,MOF_Props_ORX_ALGService_PrimaryOwnerContact,256#"};
    for (const std::string character : {"x", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x93\x9E"}) {
        const std::string longest = times(256, character);
        EXPECT_EQ(changesBy({{"PrimaryOwnerContact", text(longest)}}),
                  (Lines{"startChange", "setPrimaryOwnerContact " + longest, "endChange"}));
        FullService service("A", "B", "C", "D");
        EXPECT_EQ(failureOf([&] {
                      modifyInstance(instance(keys("A", "B", "C", "D") +
                                              Values{{"PrimaryOwnerContact", text(times(257, character))}}));
                  }),
                  tooLong);
        EXPECT_EQ(service.changes, Lines{"startChange"});
    }
}

TEST_F(ProviderModify, AnEmptyOwnerTextIsSet)
{
    EXPECT_EQ(changesBy({{"PrimaryOwnerName", text("")}, {"PrimaryOwnerContact", text("")}}),
              (Lines{"startChange", "setPrimaryOwnerName", "setPrimaryOwnerContact", "endChange"}));
}

TEST_F(ProviderModify, TheServersServiceRefusesOwnerAndEnabledDefault)
{
    initialize();
    const CimFailure notWritable = {1, "#101#"};
    EXPECT_EQ(failureOf([&] { modify({{"PrimaryOwnerName", text(times(64, "x"))}}); }), notWritable);
    EXPECT_EQ(failureOf([&] {
                  modify({{"PrimaryOwnerName", text(times(65, "x"))}});
              }),
              (CimFailure{4, "The length of PrimaryOwnerName must be <= 64\n"
                             "#CFG_000_0004,MOF_Props_ORX_ALGService_PrimaryOwnerName,64#"}));
    EXPECT_EQ(failureOf([&] { modify({{"PrimaryOwnerContact", text("")}}); }), notWritable);
    EXPECT_EQ(failureOf([&] { modify({{"EnabledDefault", uint16(2)}}); }), notWritable);
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ProviderModify, ARefusedPropertyEndsTheChangeAndEarlierOnesStayInMemory)
{
    initialize();
    EXPECT_EQ(failureOf([&] {
                  modify({{"QoSMarkVOIPSignaling", uint16(184)},
                          {"EnabledDefault", uint16(2)},
                          {"QoSFaxMedia", uint16(188)}});
              }),
              (CimFailure{1, "#101#"}));
    EXPECT_EQ(world.journal(), Lines());
    const OpenWBEM::CIMInstance found = getInstance(path(startUpKeys()));
    EXPECT_EQ(found.getPropertyValue("QoSMarkVOIPSignaling"), uint16(184));
    EXPECT_EQ(found.getPropertyValue("TOSByteSignaling"), uint16(0));
    EXPECT_EQ(found.getPropertyValue("QoSFaxMedia"), uint16(0));
}

TEST_F(ProviderModify, AChangeReachesTheRegistry)
{
    initialize();
    modify({{"QoSMarkVOIPSignaling", uint16(258)}, {"TOSByteSignaling", uint16(46)}});
    const dscptest::FlowTexts& flow = dscptest::flowTexts[0];
    EXPECT_EQ(world.journal(),
              (Lines{get("KLonKLEnabled"), get("voipsigmenu"), set("voipsigmenu", 258),
                     set("voipsigtosbyte", 46), logged(8, dscptest::formatted(flow.bothWritten, 258, 46)),
                     logged(8, dscptest::formatted(flow.tosByteWritten, 46)),
                     logged(8, dscptest::formatted(flow.menuWritten, 258)), get("voicemediamenu"),
                     get("videomediamenu"), get("faxmediamenu")}));

    world.clearJournal();
    modify({{"QoSMarkVOIPSignaling", uint16(184)}, {"TOSByteSignaling", uint16(46)}});
    EXPECT_EQ(world.journal(),
              (Lines{get("KLonKLEnabled"), get("voipsigmenu"), set("voipsigmenu", 184),
                     set("voipsigtosbyte", 184), logged(8, dscptest::formatted(flow.bothWritten, 184, 184)),
                     logged(8, dscptest::formatted(flow.tosByteWritten, 184)),
                     logged(8, dscptest::formatted(flow.menuWritten, 184)), get("voicemediamenu"),
                     get("videomediamenu"), get("faxmediamenu")}));
    EXPECT_EQ(getInstance(path(startUpKeys())).getPropertyValue("TOSByteSignaling"), uint16(184));
}

TEST_F(ProviderModify, AModificationOfReadOnlyPropertiesStillEndsAChange)
{
    initialize();
    modify({{"ElementName", text("x")}, {"videoMediaVisible", uint16(0)}});
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), get("voipsigmenu"), get("voicemediamenu"),
                                      get("videomediamenu"), get("faxmediamenu")}));
    EXPECT_EQ(getInstance(path(startUpKeys())).getPropertyValue("videoMediaVisible"), uint16(1));
}

TEST_F(ProviderModify, TheObjectIsFoundByTheKeysOfTheModifiedInstance)
{
    initialize();
    for (const char* name : {"SystemCreationClassName", "SystemName", "CreationClassName", "Name"}) {
        EXPECT_EQ(failureOf([&] { modifyInstance(instance(dscptest::without(name, startUpKeys()))); }),
                  (CimFailure{6, ""}))
            << name;
        EXPECT_EQ(failureOf([&] { modifyInstance(instance(dscptest::withNull(name, startUpKeys()))); }),
                  (CimFailure{6, ""}))
            << name;
    }
    EXPECT_EQ(failureOf([&] { modifyInstance(instance(keys("SCCN", "SN", "CCN", "other"))); }),
              (CimFailure{6, ""}));
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ProviderModify, PreviousInstanceFlagsAndPropertyListAreIgnored)
{
    initialize();
    OpenWBEM::StringArray list;
    list.push_back("QoSFaxMedia");
    provider.modifyInstance(env, "root/cimv2",
                            instance(startUpKeys() + Values{{"QoSMarkVoiceMedia", uint16(184)}}),
                            instance(keys("other", "", "", "")), OpenWBEM::WBEMFlags::E_EXCLUDE_QUALIFIERS,
                            &list, OpenWBEM::CIMClass(OpenWBEM::CIMNULL));
    EXPECT_EQ(getInstance(path(startUpKeys())).getPropertyValue("QoSMarkVoiceMedia"), uint16(184));
}

TEST_F(ProviderModify, AValueOfTheWrongTypeFailsAsOpenWbemFails)
{
    initialize();
    EXPECT_THROW(modify({{"KLonKLEnabled", text("true")}}), OpenWBEM::ValueCastException);
    EXPECT_THROW(modify({{"QoSMarkVOIPSignaling", text("184")}}), OpenWBEM::ValueCastException);
    EXPECT_THROW(modify({{"TOSByteFax", OpenWBEM::CIMValue(OpenWBEM::UInt32(1))}}),
                 OpenWBEM::ValueCastException);
    EXPECT_EQ(world.journal(), Lines());
}

} // namespace
