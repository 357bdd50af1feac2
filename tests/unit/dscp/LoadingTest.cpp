// How the one marking service of the server is built from the registry.

#include "FlowTexts.hpp"
#include "ServiceTest.hpp"

#include "dscp/ORX_ALGServiceImpl.hpp"
#include "dscp/ORX_ALGServiceImplInstanceManager.hpp"
#include "dscp/dscLog.hpp"

#include <memory>

namespace
{

using dscptest::operator+;
using dscptest::flowTexts;
using dscptest::FlowTexts;
using dscptest::formatted;
using dscptest::get;
using dscptest::Lines;
using dscptest::logged;
using dscptest::set;
using dscptest::Status;
using dscptest::valueOf;

const char* const registered = "KvuDiagRegisterModule ORX_DSCPService DSCP 0 ORX_DSCP.log";
const std::string created = logged(8, "ORX_ALGServiceImplInstanceManager:init(): Create ORX_ALGService\n");

std::string enabledNotRead(unsigned int rc)
{
    return logged(
        4, formatted(
               "ORX_ALGServiceImplInstanceManager:init(): failed to read KLEnabled from the PDR, PDR entry "
               "may not exist, create it with default value !, rc: 0x%08X\n",
               rc));
}

std::string enabledNotWritten(unsigned int rc)
{
    return logged(1,
                  formatted("ORX_ALGServiceImplInstanceManager::init(): failed to create and write default "
                            "KLonKLEnabled into the PDR, rc: 0x%08X\n",
                            rc));
}

class Loading : public dscptest::ServiceTest
{
  protected:
    /// A server whose registry holds everything, with a menu value that is no custom one in each flow.
    Loading()
    {
        store("KLonKLEnabled", 1);
        store("voipsigmenu", 160);
        store("voicemediamenu", 184);
        store("videomediamenu", 136);
        store("faxmediamenu", 188);
        for (const FlowTexts& flow : flowTexts)
            store(flow.tosByteKey, 46);
    }

    Status load() { return ORX_ALGService::SetInstanceManager(new ORX_ALGServiceImplInstanceManager); }

    static ORX_ALGService& theService()
    {
        return *ORX_ALGService::getInstanceManager()->get("SCCN", "SN", "CCN", "Name");
    }

    /// The calls for the flows but the one with number `but`, which has `lines` instead.
    static Lines flowsWith(std::size_t but, const Lines& lines)
    {
        Lines all;
        for (std::size_t i = 0; i < std::size(flowTexts); ++i)
            all = all + (i == but ? lines : Lines{get(flowTexts[i].menuKey)});
        return all;
    }

    const Lines start = {registered, created};
    const Lines flows = {get("voipsigmenu"), get("voicemediamenu"), get("videomediamenu"),
                         get("faxmediamenu")};
};

TEST_F(Loading, EverythingIsReadInOrderAndNothingIsWritten)
{
    EXPECT_EQ(load(), 0u);
    EXPECT_EQ(world.journal(), start + Lines{get("KLonKLEnabled")} + flows);
    EXPECT_EQ(dscDiagHandle_g, world.diagHandle);
}

TEST_F(Loading, TheServiceHoldsWhatTheRegistryHolds)
{
    load();
    EXPECT_TRUE(valueOf(theService(), &ORX_ALGService::getKLonKLEnabled));
    EXPECT_EQ(valueOf(theService(), &ORX_ALGService::getQoSMarkVOIPSignaling), 160);
    EXPECT_EQ(valueOf(theService(), &ORX_ALGService::getTOSByteSignaling), 160);
    EXPECT_EQ(valueOf(theService(), &ORX_ALGService::getQoSMarkVoiceMedia), 184);
    EXPECT_EQ(valueOf(theService(), &ORX_ALGService::getTOSByteMedia), 184);
    EXPECT_EQ(valueOf(theService(), &ORX_ALGService::getQoSMarkVideoMedia), 136);
    EXPECT_EQ(valueOf(theService(), &ORX_ALGService::getTOSByteVideoMedia), 136);
    EXPECT_EQ(valueOf(theService(), &ORX_ALGService::getQoSFaxMedia), 188);
    EXPECT_EQ(valueOf(theService(), &ORX_ALGService::getTOSByteFax), 188);
}

TEST_F(Loading, ThereIsOneServiceWithItsFixedKeys)
{
    load();
    ORX_ALGServiceInstanceManager& manager = *ORX_ALGService::getInstanceManager();
    manager.startIteration();
    const ORX_ALGService* const first = manager.next();
    EXPECT_FALSE(manager.hasNext());
    EXPECT_EQ(valueOf(*first, &ORX_ALGService::getSystemCreationClassName), "SCCN");
    EXPECT_EQ(valueOf(*first, &ORX_ALGService::getSystemName), "SN");
    EXPECT_EQ(valueOf(*first, &ORX_ALGService::getCreationClassName), "CCN");
    EXPECT_EQ(valueOf(*first, &ORX_ALGService::getName), "Name");
}

TEST_F(Loading, WithoutADiagnosticsModuleThereIsNoService)
{
    world.failNth(1, "KvuDiagRegisterModule", static_cast<int>(0x80004005u));
    EXPECT_EQ(load(), 0x80004005u);
    EXPECT_EQ(world.journal(), Lines{registered});
    ORX_ALGService::getInstanceManager()->startIteration();
    EXPECT_FALSE(ORX_ALGService::getInstanceManager()->hasNext());
}

TEST_F(Loading, WithoutADiagnosticsModuleTheServicesHeldStay)
{
    load();
    ORX_ALGService* const before = &theService();
    world.failNth(1, "KvuDiagRegisterModule", 9);
    EXPECT_EQ(ORX_ALGService::SetInstanceManager(ORX_ALGService::getInstanceManager()), 9u);
    EXPECT_EQ(&theService(), before);
}

class DyingService : public ORX_ALGService
{
  public:
    DyingService(fakes::World& world, const std::string& name)
        : ORX_ALGService(name, "", "", ""), m_world(world), m_name(name)
    {
    }
    ~DyingService() override { m_world.record(fakes::Diag, m_name + " deleted"); }

  private:
    fakes::World& m_world;
    std::string m_name;
};

TEST_F(Loading, LoadingAgainDeletesTheServicesHeldFirst)
{
    load();
    new DyingService(world, "A");
    new DyingService(world, "Z");
    world.clearJournal();
    EXPECT_EQ(ORX_ALGService::SetInstanceManager(ORX_ALGService::getInstanceManager()), 0u);
    EXPECT_EQ(world.journal(),
              (Lines{registered, "A deleted", "Z deleted", created, get("KLonKLEnabled")} + flows));
    ORX_ALGService::getInstanceManager()->startIteration();
    EXPECT_EQ(ORX_ALGService::getInstanceManager()->next(), &theService());
    EXPECT_FALSE(ORX_ALGService::getInstanceManager()->hasNext());
}

TEST_F(Loading, AnEmptyRegistryGivesAServiceOfZeros)
{
    world.registry.clear();
    EXPECT_EQ(load(), 0u);
    EXPECT_EQ(world.journal(),
              (start + Lines{get("KLonKLEnabled"), enabledNotRead(0x20000D), set("KLonKLEnabled", 0)} +
               Lines{get("voipsigmenu"), logged(1, formatted(flowTexts[0].initMenuRead, 0x20000D)),
                     get("voicemediamenu"), logged(1, formatted(flowTexts[1].initMenuRead, 0x20000D)),
                     get("videomediamenu"), logged(1, formatted(flowTexts[2].initMenuRead, 0x20000D)),
                     get("faxmediamenu"), logged(1, formatted(flowTexts[3].initMenuRead, 0x20000D))}));
    EXPECT_FALSE(valueOf(theService(), &ORX_ALGService::getKLonKLEnabled));
    for (const FlowTexts& flow : flowTexts) {
        EXPECT_EQ(valueOf(theService(), flow.getMenu), 0) << flow.name;
        EXPECT_EQ(valueOf(theService(), flow.getTosByte), 0) << flow.name;
    }
    EXPECT_EQ(world.registry, (decltype(world.registry){{{dscptest::section, "KLonKLEnabled"}, 0}}));
}

TEST_F(Loading, AnyOtherValueThanZeroIsEnabled)
{
    for (const int stored : {0, 1, 2, 65535}) {
        store("KLonKLEnabled", static_cast<std::uint16_t>(stored));
        world.clearJournal();
        if (ORX_ALGService::getInstanceManager() == defaultManager)
            load();
        else
            ORX_ALGService::SetInstanceManager(ORX_ALGService::getInstanceManager());
        EXPECT_EQ(valueOf(theService(), &ORX_ALGService::getKLonKLEnabled), stored != 0) << stored;
        EXPECT_EQ(world.journal(), start + Lines{get("KLonKLEnabled")} + flows) << stored;
    }
}

TEST_F(Loading, AnUnreadableSwitchIsSetToOff)
{
    world.failNth(1, "KvuGetRegEntryUint16Ex", static_cast<int>(0x80004005u), "KLonKLEnabled");
    EXPECT_EQ(load(), 0u);
    EXPECT_EQ(
        world.journal(),
        (start + Lines{get("KLonKLEnabled"), enabledNotRead(0x80004005), set("KLonKLEnabled", 0)} + flows));
    EXPECT_FALSE(valueOf(theService(), &ORX_ALGService::getKLonKLEnabled));
}

TEST_F(Loading, AnAbsentSwitchThatCannotBeCreatedIsLogged)
{
    world.registry.erase({dscptest::section, "KLonKLEnabled"});
    world.failNth(1, "KvuSetRegEntryUint16Ex", static_cast<int>(0xC0000022u), "KLonKLEnabled");
    EXPECT_EQ(load(), 0u);
    EXPECT_EQ(world.journal(), (start +
                                Lines{get("KLonKLEnabled"), enabledNotRead(0x20000D), set("KLonKLEnabled", 0),
                                      enabledNotWritten(0xC0000022)} +
                                flows));
    EXPECT_FALSE(valueOf(theService(), &ORX_ALGService::getKLonKLEnabled));
}

TEST_F(Loading, AMenuValueThatIsAbsentOrUnreadableIsZeroAndSoIsItsTosByte)
{
    for (std::size_t i = 0; i < std::size(flowTexts); ++i) {
        for (const unsigned int rc : {0x20000Du, 11u, 0x80004005u}) {
            SCOPED_TRACE(formatted("%s, %X", flowTexts[i].name, rc));
            world.clearJournal();
            world.failNth(1, "KvuGetRegEntryUint16Ex", static_cast<int>(rc), flowTexts[i].menuKey);
            EXPECT_EQ(ORX_ALGServiceImplInstanceManager().init(), 0u);
            EXPECT_EQ(world.journal(),
                      start + Lines{get("KLonKLEnabled")} +
                          flowsWith(i, {get(flowTexts[i].menuKey),
                                        logged(1, formatted(flowTexts[i].initMenuRead, rc))}));
            EXPECT_EQ(valueOf(theService(), flowTexts[i].getMenu), 0);
            EXPECT_EQ(valueOf(theService(), flowTexts[i].getTosByte), 0);
            delete &theService();
        }
    }
}

TEST_F(Loading, ACustomMenuTakesItsTosByteFromTheRegistry)
{
    for (std::size_t i = 0; i < std::size(flowTexts); ++i) {
        const FlowTexts& flow = flowTexts[i];
        SCOPED_TRACE(flow.name);
        world.clearJournal();
        const std::uint16_t before = world.registry[{dscptest::section, flow.menuKey}];
        store(flow.menuKey, 258);
        EXPECT_EQ(ORX_ALGServiceImplInstanceManager().init(), 0u);
        EXPECT_EQ(world.journal(), start + Lines{get("KLonKLEnabled")} +
                                       flowsWith(i, {get(flow.menuKey), get(flow.tosByteKey)}));
        EXPECT_EQ(valueOf(theService(), flow.getMenu), 258);
        EXPECT_EQ(valueOf(theService(), flow.getTosByte), 46);
        store(flow.menuKey, before);
        delete &theService();
    }
}

TEST_F(Loading, ACustomTosByteThatIsAbsentOrUnreadableIsZero)
{
    for (std::size_t i = 0; i < std::size(flowTexts); ++i) {
        const FlowTexts& flow = flowTexts[i];
        const std::uint16_t before = world.registry[{dscptest::section, flow.menuKey}];
        store(flow.menuKey, 258);
        for (const unsigned int rc : {0x20000Du, 11u, 0x80004005u}) {
            SCOPED_TRACE(formatted("%s, %X", flow.name, rc));
            world.clearJournal();
            world.failNth(1, "KvuGetRegEntryUint16Ex", static_cast<int>(rc), flow.tosByteKey);
            EXPECT_EQ(ORX_ALGServiceImplInstanceManager().init(), 0u);
            EXPECT_EQ(world.journal(), start + Lines{get("KLonKLEnabled")} +
                                           flowsWith(i, {get(flow.menuKey), get(flow.tosByteKey),
                                                         logged(1, formatted(flow.initTosByteRead, rc))}));
            EXPECT_EQ(valueOf(theService(), flow.getMenu), 258);
            EXPECT_EQ(valueOf(theService(), flow.getTosByte), 0);
            delete &theService();
        }
        store(flow.menuKey, before);
    }
}

TEST_F(Loading, WhatAFailedReadLeavesBehindIsNotTaken)
{
    world.failAll("KvuGetRegEntryUint16Ex", 11);
    for (const std::uint16_t left : std::initializer_list<std::uint16_t>{1, 258}) {
        world.failedReadLeaves = left;
        world.clearJournal();
        EXPECT_EQ(ORX_ALGServiceImplInstanceManager().init(), 0u);
        EXPECT_EQ(world.journal(),
                  (start + Lines{get("KLonKLEnabled"), enabledNotRead(11), set("KLonKLEnabled", 0)} +
                   Lines{get("voipsigmenu"), logged(1, formatted(flowTexts[0].initMenuRead, 11)),
                         get("voicemediamenu"), logged(1, formatted(flowTexts[1].initMenuRead, 11)),
                         get("videomediamenu"), logged(1, formatted(flowTexts[2].initMenuRead, 11)),
                         get("faxmediamenu"), logged(1, formatted(flowTexts[3].initMenuRead, 11))}));
        EXPECT_FALSE(valueOf(theService(), &ORX_ALGService::getKLonKLEnabled));
        for (const FlowTexts& flow : flowTexts) {
            EXPECT_EQ(valueOf(theService(), flow.getMenu), 0) << flow.name;
            EXPECT_EQ(valueOf(theService(), flow.getTosByte), 0) << flow.name;
        }
        delete &theService();
    }
}

TEST_F(Loading, WhatAFailedReadOfACustomTosByteLeavesBehindIsNotTaken)
{
    world.failedReadLeaves = 46;
    for (const FlowTexts& flow : flowTexts) {
        store(flow.menuKey, 258);
        world.failNth(1, "KvuGetRegEntryUint16Ex", 11, flow.tosByteKey);
    }
    EXPECT_EQ(load(), 0u);
    for (const FlowTexts& flow : flowTexts) {
        EXPECT_EQ(valueOf(theService(), flow.getMenu), 258) << flow.name;
        EXPECT_EQ(valueOf(theService(), flow.getTosByte), 0) << flow.name;
    }
}

/// Records the order in which it is filled; its last setter refuses.
class WatchedService : public ORX_ALGServiceImpl
{
  public:
    explicit WatchedService(Lines& calls) : ORX_ALGServiceImpl("SCCN", "SN", "CCN", "Name"), m_calls(calls) {}

    Status setKLonKLEnabled(bool value) override { return note("KLonKLEnabled", value ? 1 : 0); }
    Status setQoSMarkVOIPSignaling(std::uint16_t value) override
    {
        return note("QoSMarkVOIPSignaling", value);
    }
    Status setTOSByteSignaling(std::uint16_t value) override { return note("TOSByteSignaling", value); }
    Status setQoSMarkVoiceMedia(std::uint16_t value) override { return note("QoSMarkVoiceMedia", value); }
    Status setTOSByteMedia(std::uint16_t value) override { return note("TOSByteMedia", value); }
    Status setQoSMarkVideoMedia(std::uint16_t value) override { return note("QoSMarkVideoMedia", value); }
    Status setTOSByteVideoMedia(std::uint16_t value) override { return note("TOSByteVideoMedia", value); }
    Status setQoSFaxMedia(std::uint16_t value) override { return note("QoSFaxMedia", value); }
    Status setTOSByteFax(std::uint16_t value) override
    {
        note("TOSByteFax", value);
        return 4711;
    }

  private:
    Status note(const std::string& name, unsigned int value)
    {
        m_calls.push_back(name + " " + std::to_string(value));
        return 9;
    }

    Lines& m_calls;
};

class WatchedManager : public ORX_ALGServiceImplInstanceManager
{
  public:
    ORX_ALGService* createORX_ALGService(const std::string& systemCreationClassName,
                                         const std::string& systemName, const std::string& creationClassName,
                                         const std::string& name) override
    {
        calls.push_back("create " + systemCreationClassName + " " + systemName + " " + creationClassName +
                        " " + name);
        journalAtCreation = fakes::World::current()->journal();
        return new WatchedService(calls);
    }
    void startIteration() override
    {
        calls.push_back("startIteration");
        ORX_ALGServiceImplInstanceManager::startIteration();
    }
    void endIteration() override
    {
        calls.push_back("endIteration");
        ORX_ALGServiceImplInstanceManager::endIteration();
    }

    Lines calls;
    Lines journalAtCreation;
};

TEST_F(Loading, TheServiceIsCreatedAfterTheLogHasSaidSo)
{
    auto* const manager = new WatchedManager;
    ORX_ALGService::SetInstanceManager(manager);
    ASSERT_FALSE(manager->journalAtCreation.empty());
    EXPECT_EQ(manager->journalAtCreation.back(), created);
}

TEST_F(Loading, TheServiceIsFilledThroughItsSettersAndTheLastOneGivesTheResult)
{
    store("videomediamenu", 258);
    auto* const manager = new WatchedManager;
    EXPECT_EQ(ORX_ALGService::SetInstanceManager(manager), 4711u);
    EXPECT_EQ(manager->calls, (Lines{"startIteration", "endIteration", "create SCCN SN CCN Name",
                                     "KLonKLEnabled 1", "QoSMarkVOIPSignaling 160", "TOSByteSignaling 160",
                                     "QoSMarkVoiceMedia 184", "TOSByteMedia 184", "QoSMarkVideoMedia 258",
                                     "TOSByteVideoMedia 46", "QoSFaxMedia 188", "TOSByteFax 188"}));
}

} // namespace
