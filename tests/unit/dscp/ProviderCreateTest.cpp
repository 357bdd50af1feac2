#include "FlowTexts.hpp"
#include "ProviderTest.hpp"

#include "dscp/CFG_Exception.hpp"

#include <OW_CIMValueCast.hpp>

#include <stdexcept>

namespace
{

using dscptest::operator+;
using dscptest::CimFailure;
using dscptest::failureOf;
using dscptest::flowTexts;
using dscptest::FullService;
using dscptest::get;
using dscptest::instance;
using dscptest::keys;
using dscptest::Lines;
using dscptest::path;
using dscptest::ProgrammedManager;
using dscptest::set;
using dscptest::startUpKeys;
using dscptest::text;
using dscptest::uint16;
using dscptest::Values;
using dscptest::written;

const CimFailure cannotCreate = {1, "The system cannot create the instance specified.\n#CFG_000_0005#"};
const CimFailure creationNotSupported = {7,
                                         "The system cannot create the instance specified.\n#CFG_000_0005#"};

class ProviderCreate : public dscptest::ProviderTest
{
  protected:
    ProgrammedManager& programmedManager()
    {
        auto* const manager = new ProgrammedManager;
        ORX_ALGService::SetInstanceManager(manager);
        return *manager;
    }

    const OpenWBEM::CIMInstance newInstance =
        instance(keys("A", "B", "C", "D") + Values{{"TOSByteFax", uint16(1)}});
};

TEST_F(ProviderCreate, ANewServiceJoinsTheOneOfTheServer)
{
    initialize();
    EXPECT_EQ(
        createInstance(instance(keys("A", "B", "C", "D")), "root/orx"),
        "/root/orx:ORX_ALGService.SystemCreationClassName=\"A\",SystemName=\"B\",CreationClassName=\"C\","
        "Name=\"D\"");
    EXPECT_EQ(enumInstanceNames().size(), 2u);
    EXPECT_EQ(
        dscptest::properties(getInstance(path(keys("A", "B", "C", "D")))),
        (Lines{"string:SystemCreationClassName=A", "string:SystemName=B", "string:CreationClassName=C",
               "string:Name=D", "string:ElementName=", "boolean:KLonKLEnabled=false",
               "uint16:QoSMarkVOIPSignaling=0", "uint16:TOSByteSignaling=0", "uint16:QoSMarkVoiceMedia=0",
               "uint16:TOSByteMedia=0", "uint16:QoSMarkVideoMedia=0", "uint16:TOSByteVideoMedia=0",
               "uint16:videoMediaVisible=1", "uint16:QoSFaxMedia=0", "uint16:TOSByteFax=0"}));
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), get("voipsigmenu"), get("voicemediamenu"),
                                      get("videomediamenu"), get("faxmediamenu")}));
}

TEST_F(ProviderCreate, ANewServiceHasAPathOfItsOneClassWhateverTheInstanceIsOf)
{
    initialize();
    OpenWBEM::CIMInstance another = instance(keys("A", "B", "C", "D"));
    another.setClassName("Another_Class");
    EXPECT_EQ(
        createInstance(another),
        "/root/cimv2:ORX_ALGService.SystemCreationClassName=\"A\",SystemName=\"B\",CreationClassName=\"C\","
        "Name=\"D\"");
}

/// A server whose registry holds markings, with the start-up service built and an empty journal.
class ProviderCreateOnAMarkedServer : public ProviderCreate
{
  protected:
    void initializeWith(bool enabled)
    {
        store("KLonKLEnabled", enabled ? 1 : 0);
        store("voipsigmenu", 258);
        store("voipsigtosbyte", 46);
        store("voicemediamenu", 188);
        store("videomediamenu", 140);
        store("faxmediamenu", 0);
        provider.initialize(env);
        world.clearJournal();
    }
};

TEST_F(ProviderCreateOnAMarkedServer, ANewServiceSwitchesMarkingOffAndBringsThePresets)
{
    initializeWith(true);
    createInstance(instance(keys("A", "B", "C", "D")));
    EXPECT_EQ(world.journal(),
              (Lines{get("KLonKLEnabled"), set("KLonKLEnabled", 0)} + written(flowTexts[0], 160) +
               written(flowTexts[1], 184) + written(flowTexts[2], 136) + written(flowTexts[3], 184)));
}

TEST_F(ProviderCreateOnAMarkedServer, WhereMarkingIsOffANewServiceClearsTheStoredMarkings)
{
    initializeWith(false);
    createInstance(instance(keys("A", "B", "C", "D")));
    EXPECT_EQ(world.journal(),
              (Lines{get("KLonKLEnabled")} + written(flowTexts[0], 0) + written(flowTexts[1], 0) +
               written(flowTexts[2], 0) + Lines{get("faxmediamenu")}));
    const OpenWBEM::CIMInstance atTheStart = getInstance(path(startUpKeys()));
    EXPECT_EQ(atTheStart.getPropertyValue("QoSMarkVOIPSignaling"), uint16(258))
        << "the first one is as it was";
}

TEST_F(ProviderCreateOnAMarkedServer, ANewServiceLikeTheRegistryOnlyReadsIt)
{
    initializeWith(true);
    createInstance(instance(keys("A", "B", "C", "D") + Values{{"KLonKLEnabled", dscptest::boolean(true)},
                                                              {"QoSMarkVOIPSignaling", uint16(258)},
                                                              {"TOSByteSignaling", uint16(46)},
                                                              {"QoSMarkVoiceMedia", uint16(188)},
                                                              {"QoSMarkVideoMedia", uint16(140)}}));
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), get("voipsigmenu"), get("voipsigtosbyte"),
                                      get("voicemediamenu"), get("videomediamenu"), get("faxmediamenu")}));
}

TEST_F(ProviderCreate, MissingAndNullKeysAreEmpty)
{
    initialize();
    EXPECT_EQ(
        createInstance(instance({})),
        "/root/cimv2:ORX_ALGService.SystemCreationClassName=\"\",SystemName=\"\",CreationClassName=\"\","
        "Name=\"\"");
    EXPECT_EQ(
        createInstance(instance(dscptest::withNull("SystemName", keys("A", "B", "C", "D")))),
        "/root/cimv2:ORX_ALGService.SystemCreationClassName=\"A\",SystemName=\"\",CreationClassName=\"C\","
        "Name=\"D\"");
    EXPECT_EQ(
        createInstance(instance(dscptest::without("Name", keys("A", "B", "C", "D")))),
        "/root/cimv2:ORX_ALGService.SystemCreationClassName=\"A\",SystemName=\"B\",CreationClassName=\"C\","
        "Name=\"\"");
    EXPECT_EQ(enumInstanceNames().size(), 4u);
}

TEST_F(ProviderCreate, KeysOfAnotherTypeAreTakenAsTheirText)
{
    initialize();
    EXPECT_EQ(
        createInstance(instance({{"Name", uint16(7)}, {"SystemName", dscptest::boolean(true)}})),
        "/root/cimv2:ORX_ALGService.SystemCreationClassName=\"\",SystemName=\"true\",CreationClassName=\"\","
        "Name=\"7\"");
}

TEST_F(ProviderCreate, TheInstanceIsAppliedToTheNewService)
{
    Lines changes;
    programmedManager().onCreated = [&](FullService& service) {
        service.onChange = [&changes, &service](const std::string&) { changes = service.changes; };
    };
    createInstance(newInstance);
    EXPECT_EQ(changes, (Lines{"startChange", "setTOSByteFax 1", "endChange"}));
    EXPECT_EQ(enumInstanceNames(),
              Lines{"/root/cimv2:ORX_ALGService.SystemCreationClassName=\"A\",SystemName=\"B\","
                    "CreationClassName=\"C\",Name=\"D\""});
}

TEST_F(ProviderCreate, AManagerThatCannotCreateMakesItNotSupported)
{
    EXPECT_EQ(failureOf([&] { createInstance(newInstance); }), creationNotSupported); // the default manager
    programmedManager().onCreate = [] { throw CFG_InstanceCreationFailed(); };
    EXPECT_EQ(failureOf([&] { createInstance(newInstance); }), creationNotSupported);
    EXPECT_EQ(enumInstanceNames(), Lines());
}

TEST_F(ProviderCreate, OtherExceptionsOfTheManagerPassThrough)
{
    programmedManager().onCreate = [] { throw std::runtime_error("boom"); };
    EXPECT_THROW(createInstance(newInstance), std::runtime_error);
}

TEST_F(ProviderCreate, AServiceThatRefusesAPropertyIsGoneAgain)
{
    initialize();
    EXPECT_EQ(
        failureOf([&] {
            createInstance(instance(keys("A", "B", "C", "D") + Values{{"PrimaryOwnerName", text("owner")}}));
        }),
        (CimFailure{1, "#101#"}));
    EXPECT_EQ(enumInstanceNames().size(), 1u);
    EXPECT_EQ(failureOf([&] { getInstance(path(keys("A", "B", "C", "D"))); }), (CimFailure{6, ""}));
    EXPECT_EQ(world.journal(), Lines{"KvuDiagDeregisterModule"});
}

TEST_F(ProviderCreate, ATooLongTextIsReportedAsItIs)
{
    initialize();
    EXPECT_EQ(failureOf([&] {
                  createInstance(instance(keys("A", "B", "C", "D") +
                                          Values{{"PrimaryOwnerName", text(std::string(65, 'x'))}}));
              }),
              (CimFailure{4, "The length of PrimaryOwnerName must be <= 64\n"
                             "#CFG_000_0004,MOF_Props_ORX_ALGService_PrimaryOwnerName,64#"}));
    EXPECT_EQ(enumInstanceNames().size(), 1u);
}

TEST_F(ProviderCreate, EveryRefusalOfTheServiceLeavesNothingBehind)
{
    const std::pair<std::map<std::string, std::uint32_t>, CimFailure> refusals[] = {
        {{{"startChange", 301}}, {1, "Could not make the requested change.\n#CFG_000_0001#"}},
        {{{"setTOSByteFax", 301}},
         {4, "The value of $prop.getName() is "
             "invalid.\n#CFG_000_0000,MOF_Props_ORX_ALGService_$prop.getName()#"}},
        {{{"endChange", 302}},
         {4, "One or more of the values specified for the ORX_ALGService was invalid.\n#CFG_000_0001#"}},
        {{{"endChange", 7}}, {1, "#7#"}},
    };
    ProgrammedManager& manager = programmedManager();
    for (const auto& [results, failure] : refusals) {
        const auto& programmed = results;
        manager.onCreated = [&](FullService& service) { service.results = programmed; };
        EXPECT_EQ(failureOf([&] { createInstance(newInstance); }), failure);
        EXPECT_EQ(enumInstanceNames(), Lines());
    }
}

TEST_F(ProviderCreate, AConfigurationExceptionOfTheServiceIsAFailedCreation)
{
    ProgrammedManager& manager = programmedManager();
    for (const std::string step : {"startChange", "setTOSByteFax", "endChange"}) {
        manager.onCreated = [&](FullService& service) {
            service.onChange = [step](const std::string& operation) {
                if (operation == step)
                    throw CFG_NoInstance();
            };
        };
        EXPECT_EQ(failureOf([&] { createInstance(newInstance); }), cannotCreate) << step;
        EXPECT_EQ(enumInstanceNames(), Lines()) << step;
    }
}

TEST_F(ProviderCreate, AFailureThatTheServiceRaisesAsCimsOwnGoesOnAsItIs)
{
    programmedManager().onCreated = [](FullService& service) {
        service.onChange = [](const std::string&) { dscptest::failElsewhere(); };
    };
    dscptest::expectFailureElsewhere([&] { createInstance(newInstance); });
    EXPECT_EQ(enumInstanceNames(), Lines());
}

TEST_F(ProviderCreate, AServiceThatCannotBeTakenBackChangesNothingInTheReport)
{
    ProgrammedManager& manager = programmedManager();
    const std::function<void()> raises[] = {[] { throw CFG_InstanceDeletionFailed(); },
                                            [] { throw std::runtime_error("boom"); }};
    for (const auto& raise : raises) {
        manager.onDestroy = raise;
        manager.onCreated = [](FullService& service) { service.results = {{"endChange", 7}}; };
        EXPECT_EQ(failureOf([&] { createInstance(newInstance); }), (CimFailure{1, "#7#"}));
        delete manager.get("A", "B", "C", "D");

        manager.onCreated = [](FullService& service) {
            service.onChange = [](const std::string&) { throw CFG_Exception(); };
        };
        EXPECT_EQ(failureOf([&] { createInstance(newInstance); }), cannotCreate);
        delete manager.get("A", "B", "C", "D");
    }
}

TEST_F(ProviderCreate, AValueOfTheWrongTypeFailsAsOpenWbemFailsAndTheServiceStays)
{
    initialize();
    EXPECT_THROW(createInstance(instance(keys("A", "B", "C", "D") + Values{{"TOSByteFax", text("46")}})),
                 OpenWBEM::ValueCastException);
    EXPECT_EQ(enumInstanceNames().size(), 2u);
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ProviderCreate, ANewServiceThatDoesNotGiveItsKeysHasNoPath)
{
    ProgrammedManager& manager = programmedManager();
    FullService* created = nullptr;
    manager.onCreated = [&](FullService& service) {
        service.results = {{"getName", 100}};
        created = &service;
    };
    EXPECT_EQ(failureOf([&] { createInstance(newInstance); }), (CimFailure{6, ""}));
    EXPECT_EQ(manager.get("A", "B", "C", "D"), created);
}

TEST_F(ProviderCreate, ASecondServiceOfTheSameKeysTakesTheFirstOnesPlace)
{
    initialize();
    const std::unique_ptr<ORX_ALGService> first(
        ORX_ALGService::getInstanceManager()->get("SCCN", "SN", "CCN", "Name"));
    createInstance(instance(startUpKeys()));
    EXPECT_EQ(enumInstanceNames().size(), 1u);
    const std::unique_ptr<ORX_ALGService> second(
        ORX_ALGService::getInstanceManager()->get("SCCN", "SN", "CCN", "Name"));
    EXPECT_NE(second, first);
}

} // namespace
