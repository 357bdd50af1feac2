// How a change of the marking of one flow reaches the registry.

#include "FlowTexts.hpp"
#include "ServiceTest.hpp"

#include "dscp/ORX_ALGServiceImpl.hpp"

#include <tuple>

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
using dscptest::valueOf;

constexpr std::uint16_t custom = 258;
constexpr std::uint16_t fixed = 184;
constexpr std::uint16_t customTosByte = 46;
constexpr unsigned int menuRc = 0x80004005;
constexpr unsigned int tosByteRc = 0xC0000022;

/// The flow under test; the other flows are the same in the object and the registry, and not custom.
class FlowStoring : public dscptest::ServiceTest
{
  protected:
    FlowStoring()
    {
        store("KLonKLEnabled", 0);
        std::uint16_t menu = 100;
        for (const FlowTexts& flow : flowTexts) {
            store(flow.menuKey, menu);
            setMenu(service, flow, menu++);
        }
    }

    /// Ends the change and expects these calls for `flow`, besides the reading of everything else.
    void expectStored(const FlowTexts& flow, const Lines& lines)
    {
        Lines expected = {get("KLonKLEnabled")};
        for (const FlowTexts& each : flowTexts)
            expected = expected + (each.menuKey == flow.menuKey ? lines : Lines{get(each.menuKey)});
        EXPECT_EQ(service.endChange(), 0u);
        EXPECT_EQ(world.journal(), expected);
    }

    std::uint16_t stored(const char* key) { return world.registry[{dscptest::section, key}]; }

    ORX_ALGServiceImpl service{"SCCN", "SN", "CCN", "Name"};
};

// Flow, whether the menu changed, whether it is custom now, whether the TOS byte differs from the stored one,
// whether writing the menu fails, whether writing the TOS byte fails.
using Case = std::tuple<int, bool, bool, bool, bool, bool>;

class FlowMatrix : public FlowStoring, public testing::WithParamInterface<Case>
{
  protected:
    const FlowTexts& flow = flowTexts[std::get<0>(GetParam())];
    const bool menuChanged = std::get<1>(GetParam());
    const bool isCustom = std::get<2>(GetParam());
    const bool tosByteDiffers = std::get<3>(GetParam());
    const bool menuFails = std::get<4>(GetParam());
    const bool tosByteFails = std::get<5>(GetParam());
    const std::uint16_t menu = isCustom ? custom : fixed;
    const std::uint16_t tosByte = isCustom ? customTosByte : fixed;

    void SetUp() override
    {
        store(flow.menuKey, menuChanged ? 7 : menu);
        store(flow.tosByteKey, tosByteDiffers ? 8 : tosByte);
        setMenu(service, flow, menu);
        setTosByte(service, flow, customTosByte);
        // A failure that is never met would itself fail the test, so only calls that must come are made to
        // fail.
        if (menuFails && menuChanged)
            world.failNth(1, "KvuSetRegEntryUint16Ex", static_cast<int>(menuRc), flow.menuKey);
        if (tosByteFails && (menuChanged || (isCustom && tosByteDiffers)))
            world.failNth(1, "KvuSetRegEntryUint16Ex", static_cast<int>(tosByteRc), flow.tosByteKey);
    }

    Lines linesOfChangedMenu() const
    {
        const std::string menuWriteLine = logged(1, formatted(flow.menuWrite, menu, menuRc));
        const std::string tosByteWriteLine = logged(1, formatted(flow.tosByteWrite, tosByte, tosByteRc));
        const std::string bothLine = logged(8, formatted(flow.bothWritten, menu, tosByte));
        const std::string tosByteLine = logged(8, formatted(flow.tosByteWritten, tosByte));
        const std::string menuLine = logged(8, formatted(flow.menuWritten, menu));
        const std::string read = get(flow.menuKey);
        const std::string setMenu = set(flow.menuKey, menu);
        const std::string setTosByte = set(flow.tosByteKey, tosByte);
        if (menuFails && tosByteFails)
            return {read, setMenu, menuWriteLine, setTosByte, tosByteWriteLine};
        if (tosByteFails)
            return {read, setMenu, setTosByte, tosByteWriteLine, menuLine};
        if (menuFails)
            return {read, setMenu, menuWriteLine, setTosByte, tosByteLine, menuLine};
        return {read, setMenu, setTosByte, bothLine, tosByteLine, menuLine};
    }

    Lines linesOfSameCustomMenu() const
    {
        const Lines read = {get(flow.menuKey), get(flow.tosByteKey)};
        if (!tosByteDiffers)
            return read;
        const std::string line = tosByteFails
                                     ? logged(1, formatted(flow.customWriteFailed, tosByte, tosByteRc))
                                     : logged(8, formatted(flow.customWritten, tosByte));
        return read + Lines{set(flow.tosByteKey, tosByte), line};
    }
};

TEST_P(FlowMatrix, WritesWhatDiffersAndLogsEveryStep)
{
    if (menuChanged)
        expectStored(flow, linesOfChangedMenu());
    else if (isCustom)
        expectStored(flow, linesOfSameCustomMenu());
    else
        expectStored(flow, {get(flow.menuKey)});

    EXPECT_EQ(valueOf(service, flow.getMenu), menu);
    EXPECT_EQ(valueOf(service, flow.getTosByte), tosByte);
    EXPECT_EQ(stored(flow.menuKey), menuChanged && menuFails ? 7 : menu);
    const bool tosByteWritten = (menuChanged || (isCustom && tosByteDiffers)) && !tosByteFails;
    EXPECT_EQ(stored(flow.tosByteKey), tosByteDiffers && !tosByteWritten ? 8 : tosByte);
}

INSTANTIATE_TEST_SUITE_P(AllCombinations, FlowMatrix,
                         testing::Combine(testing::Range(0, 4), testing::Bool(), testing::Bool(),
                                          testing::Bool(), testing::Bool(), testing::Bool()));

class EachFlow : public FlowStoring, public testing::WithParamInterface<int>
{
  protected:
    const FlowTexts& flow = flowTexts[GetParam()];

    void failRead(const char* key, unsigned int rc)
    {
        world.failNth(1, "KvuGetRegEntryUint16Ex", static_cast<int>(rc), key);
    }
};

TEST_P(EachFlow, AnAbsentMenuValueIsWrittenLikeAChange)
{
    world.registry.erase({dscptest::section, flow.menuKey});
    setMenu(service, flow, fixed);
    expectStored(
        flow, {get(flow.menuKey), logged(1, formatted(flow.menuRead, 0x20000D)), set(flow.menuKey, 184),
               set(flow.tosByteKey, 184), logged(8, formatted(flow.bothWritten, 184, 184)),
               logged(8, formatted(flow.tosByteWritten, 184)), logged(8, formatted(flow.menuWritten, 184))});
}

TEST_P(EachFlow, AMenuValueThatCannotBeReadIsWrittenLikeAChange)
{
    store(flow.menuKey, fixed);
    setMenu(service, flow, fixed);
    failRead(flow.menuKey, 0x80004005);
    expectStored(
        flow, {get(flow.menuKey), logged(1, formatted(flow.menuRead, 0x80004005)), set(flow.menuKey, 184),
               set(flow.tosByteKey, 184), logged(8, formatted(flow.bothWritten, 184, 184)),
               logged(8, formatted(flow.tosByteWritten, 184)), logged(8, formatted(flow.menuWritten, 184))});
}

TEST_P(EachFlow, AMenuValueThatCannotBeReadCountsAsZero)
{
    setMenu(service, flow, 0);
    failRead(flow.menuKey, 11);
    expectStored(flow, {get(flow.menuKey), logged(1, formatted(flow.menuRead, 11))});
}

TEST_P(EachFlow, WhatAFailedReadOfTheMenuValueLeavesBehindIsComparedLikeAStoredOne)
{
    setMenu(service, flow, fixed);
    world.failedReadLeaves = fixed;
    failRead(flow.menuKey, 11);
    expectStored(flow, {get(flow.menuKey), logged(1, formatted(flow.menuRead, 11))});

    world.clearJournal();
    setMenu(service, flow, 0);
    failRead(flow.menuKey, 11);
    expectStored(flow,
                 {get(flow.menuKey), logged(1, formatted(flow.menuRead, 11)), set(flow.menuKey, 0),
                  set(flow.tosByteKey, 0), logged(8, formatted(flow.bothWritten, 0, 0)),
                  logged(8, formatted(flow.tosByteWritten, 0)), logged(8, formatted(flow.menuWritten, 0))});
}

TEST_P(EachFlow, WhatAFailedReadOfACustomTosByteLeavesBehindIsComparedLikeAStoredOne)
{
    store(flow.menuKey, custom);
    setMenu(service, flow, custom);
    setTosByte(service, flow, customTosByte);
    world.failedReadLeaves = customTosByte;
    failRead(flow.tosByteKey, 11);
    expectStored(flow, {get(flow.menuKey), get(flow.tosByteKey), logged(1, formatted(flow.tosByteRead, 11))});
}

TEST_P(EachFlow, AReadAndBothWritesThatFailAreAllLogged)
{
    setMenu(service, flow, custom);
    setTosByte(service, flow, customTosByte);
    failRead(flow.menuKey, 11);
    world.failNth(1, "KvuSetRegEntryUint16Ex", 12, flow.menuKey);
    world.failNth(1, "KvuSetRegEntryUint16Ex", 13, flow.tosByteKey);
    expectStored(flow, {get(flow.menuKey), logged(1, formatted(flow.menuRead, 11)), set(flow.menuKey, 258),
                        logged(1, formatted(flow.menuWrite, 258, 12)), set(flow.tosByteKey, 46),
                        logged(1, formatted(flow.tosByteWrite, 46, 13))});
}

TEST_P(EachFlow, AnAbsentCustomTosByteIsWritten)
{
    store(flow.menuKey, custom);
    setMenu(service, flow, custom);
    setTosByte(service, flow, customTosByte);
    expectStored(flow,
                 {get(flow.menuKey), get(flow.tosByteKey), logged(1, formatted(flow.tosByteRead, 0x20000D)),
                  set(flow.tosByteKey, 46), logged(8, formatted(flow.customWritten, 46))});
}

TEST_P(EachFlow, ACustomTosByteThatCannotBeReadNorWrittenIsLoggedTwice)
{
    store(flow.menuKey, custom);
    store(flow.tosByteKey, customTosByte);
    setMenu(service, flow, custom);
    setTosByte(service, flow, customTosByte);
    failRead(flow.tosByteKey, 0x80004005);
    world.failNth(1, "KvuSetRegEntryUint16Ex", 12, flow.tosByteKey);
    expectStored(flow,
                 {get(flow.menuKey), get(flow.tosByteKey), logged(1, formatted(flow.tosByteRead, 0x80004005)),
                  set(flow.tosByteKey, 46), logged(1, formatted(flow.customWriteFailed, 46, 12))});
}

TEST_P(EachFlow, ACustomTosByteThatCannotBeReadCountsAsZero)
{
    store(flow.menuKey, custom);
    setMenu(service, flow, custom);
    setTosByte(service, flow, 0);
    failRead(flow.tosByteKey, 11);
    expectStored(flow, {get(flow.menuKey), get(flow.tosByteKey), logged(1, formatted(flow.tosByteRead, 11))});
}

TEST_P(EachFlow, ATosByteSetWhileTheMenuIsNotCustomIsReplacedByTheMenuValue)
{
    store(flow.menuKey, fixed);
    store(flow.tosByteKey, 8);
    setMenu(service, flow, fixed);
    setTosByte(service, flow, customTosByte);
    expectStored(flow, {get(flow.menuKey)});
    EXPECT_EQ(valueOf(service, flow.getTosByte), fixed);
    EXPECT_EQ(stored(flow.tosByteKey), 8);
}

TEST_P(EachFlow, OnlyTheValue258IsCustom)
{
    for (const std::uint16_t menu : std::initializer_list<std::uint16_t>{257, 259, 255, 65535}) {
        setMenu(service, flow, menu);
        setTosByte(service, flow, customTosByte);
        service.endChange();
        EXPECT_EQ(valueOf(service, flow.getTosByte), menu);
        EXPECT_EQ(stored(flow.menuKey), menu);
        EXPECT_EQ(stored(flow.tosByteKey), menu);
    }
}

INSTANTIATE_TEST_SUITE_P(AllFlows, EachFlow, testing::Range(0, 4));

TEST_F(FlowStoring, AllFlowsAreStoredInTheirOrder)
{
    for (const FlowTexts& flow : flowTexts)
        setMenu(service, flow, fixed);
    service.endChange();
    EXPECT_EQ(
        world.journal(fakes::Registry),
        (Lines{get("KLonKLEnabled"), get("voipsigmenu"), set("voipsigmenu", 184), set("voipsigtosbyte", 184),
               get("voicemediamenu"), set("voicemediamenu", 184), set("voicemediatosbyte", 184),
               get("videomediamenu"), set("videomediamenu", 184), set("videomediatosbyte", 184),
               get("faxmediamenu"), set("faxmediamenu", 184), set("faxmediatosbyte", 184)}));
}

TEST_F(FlowStoring, ADeadRegistryIsNoFailureOfTheChange)
{
    for (const FlowTexts& flow : flowTexts)
        setMenu(service, flow, fixed);
    world.failAll("KvuGetRegEntryUint16Ex", 5);
    world.failAll("KvuSetRegEntryUint16Ex", 6);
    EXPECT_EQ(service.endChange(), 0u);
    for (const FlowTexts& flow : flowTexts)
        EXPECT_EQ(valueOf(service, flow.getTosByte), fixed);
}

TEST_F(FlowStoring, ALaterChangeComparesWithTheRegistryAgain)
{
    setMenu(service, flowTexts[0], fixed);
    world.failNth(1, "KvuSetRegEntryUint16Ex", 6, "voipsigmenu");
    service.endChange();
    world.clearJournal();
    expectStored(flowTexts[0], {get("voipsigmenu"), set("voipsigmenu", 184), set("voipsigtosbyte", 184),
                                logged(8, formatted(flowTexts[0].bothWritten, 184, 184)),
                                logged(8, formatted(flowTexts[0].tosByteWritten, 184)),
                                logged(8, formatted(flowTexts[0].menuWritten, 184))});
}

} // namespace
