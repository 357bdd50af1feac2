#include "FlowTexts.hpp"
#include "ProviderTest.hpp"

#include "dscp/CFG_Exception.hpp"

#include <stdexcept>

namespace
{

using dscptest::operator+;
using dscptest::CimFailure;
using dscptest::failureOf;
using dscptest::get;
using dscptest::instance;
using dscptest::keys;
using dscptest::Lines;
using dscptest::path;
using dscptest::startUpKeys;
using dscptest::uint16;
using dscptest::Values;

const CimFailure cannotDelete = {1, "The system cannot delete the instance specified.\n#CFG_000_0006#"};

class ProviderDelete : public dscptest::ProviderTest
{
};

TEST_F(ProviderDelete, AfterDeletingTheServersServiceNothingIsServedAndTheRegistryIsUntouched)
{
    initialize();
    const auto registry = world.registry;
    deleteInstance(path(startUpKeys()));
    EXPECT_EQ(world.journal(), Lines{"KvuDiagDeregisterModule"});
    EXPECT_EQ(world.registry, registry);

    EXPECT_EQ(enumInstanceNames(), Lines());
    EXPECT_TRUE(enumInstances().empty());
    EXPECT_EQ(failureOf([&] { getInstance(path(startUpKeys())); }), (CimFailure{6, ""}));
    EXPECT_EQ(failureOf([&] { modify({{"TOSByteFax", uint16(1)}}); }), (CimFailure{6, ""}));
    EXPECT_EQ(failureOf([&] { deleteInstance(path(startUpKeys())); }), (CimFailure{6, ""}));
    EXPECT_EQ(world.journal(), Lines{"KvuDiagDeregisterModule"});
}

TEST_F(ProviderDelete, ADeletedServiceCanBeCreatedAgainWithoutItsSettings)
{
    initialize();
    modify({{"QoSFaxMedia", uint16(188)}});
    deleteInstance(path(startUpKeys()));
    world.clearJournal();
    world.registry.clear();
    createInstance(instance(startUpKeys()));
    EXPECT_EQ(getInstance(path(startUpKeys())).getPropertyValue("QoSFaxMedia"), uint16(0));
}

TEST_F(ProviderDelete, InitialisingAgainBringsTheServiceBack)
{
    initialize();
    deleteInstance(path(startUpKeys()));
    provider.initialize(env);
    EXPECT_EQ(enumInstanceNames().size(), 1u);
}

TEST_F(ProviderDelete, OnlyTheNamedServiceIsDeleted)
{
    initialize();
    createInstance(instance(keys("A", "B", "C", "D")));
    deleteInstance(path(keys("A", "B", "C", "D")));
    EXPECT_EQ(enumInstanceNames(), Lines{"/root/cimv2:ORX_ALGService.SystemCreationClassName=\"SCCN\","
                                         "SystemName=\"SN\",CreationClassName=\"CCN\",Name=\"Name\""});
}

TEST_F(ProviderDelete, TheServicesThatRemainGoOnLoggingUnderTheHandleOfTheEndedModule)
{
    initialize();
    createInstance(instance(keys("A", "B", "C", "D")));
    world.clearJournal();
    deleteInstance(path(startUpKeys()));
    modifyInstance(instance(keys("A", "B", "C", "D") + Values{{"QoSFaxMedia", uint16(188)}}));
    const dscptest::FlowTexts& fax = dscptest::flowTexts[3];
    // An entry under another handle would be a problem that fails the test.
    EXPECT_EQ(world.journal(),
              (Lines{"KvuDiagDeregisterModule", get("KLonKLEnabled"), get("voipsigmenu"),
                     get("voicemediamenu"), get("videomediamenu"), get("faxmediamenu"),
                     dscptest::set("faxmediamenu", 188), dscptest::set("faxmediatosbyte", 188),
                     dscptest::logged(8, dscptest::formatted(fax.bothWritten, 188, 188)),
                     dscptest::logged(8, dscptest::formatted(fax.tosByteWritten, 188)),
                     dscptest::logged(8, dscptest::formatted(fax.menuWritten, 188))}));
}

TEST_F(ProviderDelete, APathThatNamesNothingIsNotFound)
{
    initialize();
    for (const char* name : {"SystemCreationClassName", "SystemName", "CreationClassName", "Name"}) {
        EXPECT_EQ(failureOf([&] { deleteInstance(path(dscptest::without(name, startUpKeys()))); }),
                  (CimFailure{6, ""}))
            << name;
        EXPECT_EQ(failureOf([&] { deleteInstance(path(dscptest::withNull(name, startUpKeys()))); }),
                  (CimFailure{6, ""}))
            << name;
    }
    EXPECT_EQ(failureOf([&] { deleteInstance(path(keys("A", "B", "C", "D"))); }), (CimFailure{6, ""}));
    EXPECT_EQ(world.journal(), Lines());
    EXPECT_EQ(enumInstanceNames().size(), 1u);
}

TEST_F(ProviderDelete, AManagerThatCannotDestroyIsAFailure)
{
    const ORX_ALGService service("A", "B", "C", "D");
    EXPECT_EQ(failureOf([&] { deleteInstance(path(keys("A", "B", "C", "D"))); }),
              cannotDelete); // the default manager
    EXPECT_EQ(enumInstanceNames().size(), 1u);
}

TEST_F(ProviderDelete, EveryConfigurationExceptionOfTheManagerIsAFailure)
{
    auto* const manager = new dscptest::ProgrammedManager;
    ORX_ALGService::SetInstanceManager(manager);
    const ORX_ALGService service("A", "B", "C", "D");
    const std::function<void()> raises[] = {[] { throw CFG_Exception(); }, [] { throw CFG_NoInstance(); },
                                            [] { throw CFG_InstanceDeletionFailed(); }};
    for (const auto& raise : raises) {
        manager->onDestroy = raise;
        EXPECT_EQ(failureOf([&] { deleteInstance(path(keys("A", "B", "C", "D"))); }), cannotDelete);
    }
    manager->onDestroy = [] { throw std::runtime_error("boom"); };
    EXPECT_THROW(deleteInstance(path(keys("A", "B", "C", "D"))), std::runtime_error);
}

} // namespace
