// How KLonKLEnabled reaches the registry, and the presets that a change of it brings.

#include "FlowTexts.hpp"
#include "ServiceTest.hpp"

#include "dscp/ORX_ALGServiceImpl.hpp"

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
using dscptest::written;

const char* const enabledRead =
    "ORX_ALGServiceImpl:endChange(): failed to read KLonKLEnabled from the PDR, rc: 0x%08X\n";
const char* const enabledWrite =
    "ORX_ALGServiceImpl:endChange(): failed to write new KLonKLEnabled: %d into the PDR, rc: 0x%08X\n";

class Switching : public dscptest::ServiceTest
{
  protected:
    Switching()
    {
        for (const FlowTexts& flow : flowTexts) {
            store(flow.menuKey, 0);
            store(flow.tosByteKey, 0);
        }
    }

    void switchTo(bool enabled)
    {
        service.setKLonKLEnabled(enabled);
        EXPECT_EQ(service.endChange(), 0u);
    }

    void expectMarkings(unsigned int signalling, unsigned int voice, unsigned int video,
                        unsigned int fax) const
    {
        const unsigned int values[] = {signalling, voice, video, fax};
        for (std::size_t i = 0; i < std::size(values); ++i) {
            EXPECT_EQ(valueOf(service, flowTexts[i].getMenu), values[i]) << flowTexts[i].name;
            EXPECT_EQ(valueOf(service, flowTexts[i].getTosByte), values[i]) << flowTexts[i].name;
            EXPECT_EQ(world.registry.at({dscptest::section, flowTexts[i].menuKey}), values[i]);
            EXPECT_EQ(world.registry.at({dscptest::section, flowTexts[i].tosByteKey}), values[i]);
        }
    }

    ORX_ALGServiceImpl service{"SCCN", "SN", "CCN", "Name"};
    const Lines flowsUntouched = {get("voipsigmenu"), get("voicemediamenu"), get("videomediamenu"),
                                  get("faxmediamenu")};
    const Lines presetsOfOn = written(flowTexts[0], 164) + written(flowTexts[1], 188) +
                              written(flowTexts[2], 140) + written(flowTexts[3], 188);
    const Lines presetsOfOff = written(flowTexts[0], 160) + written(flowTexts[1], 184) +
                               written(flowTexts[2], 136) + written(flowTexts[3], 184);
};

TEST_F(Switching, AnUnchangedSwitchIsNotWritten)
{
    for (const bool enabled : {false, true}) {
        store("KLonKLEnabled", enabled ? 1 : 0);
        world.clearJournal();
        switchTo(enabled);
        EXPECT_EQ(world.journal(), Lines{get("KLonKLEnabled")} + flowsUntouched);
    }
}

TEST_F(Switching, SwitchingOnWritesTheSwitchAndThePresets)
{
    store("KLonKLEnabled", 0);
    switchTo(true);
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), set("KLonKLEnabled", 1)} + presetsOfOn));
    expectMarkings(164, 188, 140, 188);
    EXPECT_EQ(world.registry.at({dscptest::section, "KLonKLEnabled"}), 1);
}

TEST_F(Switching, SwitchingOffWritesTheSwitchAndThePresets)
{
    store("KLonKLEnabled", 1);
    switchTo(false);
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), set("KLonKLEnabled", 0)} + presetsOfOff));
    expectMarkings(160, 184, 136, 184);
    EXPECT_EQ(world.registry.at({dscptest::section, "KLonKLEnabled"}), 0);
}

TEST_F(Switching, PresetsComeAlsoWhenTheSwitchCannotBeWritten)
{
    store("KLonKLEnabled", 0);
    world.failNth(1, "KvuSetRegEntryUint16Ex", static_cast<int>(0x80004005u), "KLonKLEnabled");
    switchTo(true);
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), set("KLonKLEnabled", 1),
                                      logged(1, formatted(enabledWrite, 1, 0x80004005u))} +
                                presetsOfOn));
    expectMarkings(164, 188, 140, 188);
    EXPECT_TRUE(valueOf(service, &ORX_ALGServiceImpl::getKLonKLEnabled));
}

TEST_F(Switching, PresetsOfOffComeAlsoWhenTheSwitchCannotBeWritten)
{
    store("KLonKLEnabled", 1);
    world.failNth(1, "KvuSetRegEntryUint16Ex", 12, "KLonKLEnabled");
    switchTo(false);
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), set("KLonKLEnabled", 0),
                                      logged(1, formatted(enabledWrite, 0, 12))} +
                                presetsOfOff));
    expectMarkings(160, 184, 136, 184);
}

TEST_F(Switching, PresetsReplaceWhatTheSameRequestSet)
{
    for (const bool enabled : {true, false}) {
        store("KLonKLEnabled", enabled ? 0 : 1);
        for (const FlowTexts& flow : flowTexts) {
            store(flow.menuKey, 0);
            setMenu(service, flow, 258);
            setTosByte(service, flow, 46);
        }
        world.clearJournal();
        switchTo(enabled);
        EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), set("KLonKLEnabled", enabled ? 1 : 0)} +
                                    (enabled ? presetsOfOn : presetsOfOff)));
    }
}

TEST_F(Switching, PresetsReplaceWhatTheSameRequestSetAlsoWhenTheSwitchCannotBeWritten)
{
    for (const bool enabled : {true, false}) {
        store("KLonKLEnabled", enabled ? 0 : 1);
        for (const FlowTexts& flow : flowTexts) {
            store(flow.menuKey, 0);
            setMenu(service, flow, 258);
            setTosByte(service, flow, 46);
        }
        world.clearJournal();
        world.failNth(1, "KvuSetRegEntryUint16Ex", 12, "KLonKLEnabled");
        switchTo(enabled);
        EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), set("KLonKLEnabled", enabled ? 1 : 0),
                                          logged(1, formatted(enabledWrite, enabled ? 1 : 0, 12))} +
                                    (enabled ? presetsOfOn : presetsOfOff)));
    }
}

TEST_F(Switching, AnAbsentSwitchCountsAsOff)
{
    switchTo(false);
    EXPECT_EQ(world.journal(),
              (Lines{get("KLonKLEnabled"), logged(1, formatted(enabledRead, 0x20000D))} + flowsUntouched));

    world.clearJournal();
    switchTo(true);
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), logged(1, formatted(enabledRead, 0x20000D)),
                                      set("KLonKLEnabled", 1)} +
                                presetsOfOn));
}

TEST_F(Switching, AnUnreadableSwitchCountsAsOff)
{
    store("KLonKLEnabled", 1);
    world.failNth(1, "KvuGetRegEntryUint16Ex", static_cast<int>(0x80004005u), "KLonKLEnabled");
    switchTo(false);
    EXPECT_EQ(world.journal(),
              (Lines{get("KLonKLEnabled"), logged(1, formatted(enabledRead, 0x80004005))} + flowsUntouched));

    world.clearJournal();
    world.failNth(1, "KvuGetRegEntryUint16Ex", 11, "KLonKLEnabled");
    switchTo(true);
    EXPECT_EQ(world.journal(),
              (Lines{get("KLonKLEnabled"), logged(1, formatted(enabledRead, 11)), set("KLonKLEnabled", 1)} +
               presetsOfOn));
}

TEST_F(Switching, WhatAFailedReadOfTheSwitchLeavesBehindIsComparedLikeAStoredOne)
{
    store("KLonKLEnabled", 0);
    world.failedReadLeaves = 1;
    world.failNth(1, "KvuGetRegEntryUint16Ex", 11, "KLonKLEnabled");
    switchTo(true);
    EXPECT_EQ(world.journal(),
              (Lines{get("KLonKLEnabled"), logged(1, formatted(enabledRead, 11))} + flowsUntouched));

    world.clearJournal();
    world.failNth(1, "KvuGetRegEntryUint16Ex", 11, "KLonKLEnabled");
    switchTo(false);
    EXPECT_EQ(world.journal(),
              (Lines{get("KLonKLEnabled"), logged(1, formatted(enabledRead, 11)), set("KLonKLEnabled", 0)} +
               presetsOfOff));
}

TEST_F(Switching, AStoredNumberThatIsNeitherOnNorOffIsReplaced)
{
    store("KLonKLEnabled", 2);
    switchTo(true);
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), set("KLonKLEnabled", 1)} + presetsOfOn));

    store("KLonKLEnabled", 2);
    world.clearJournal();
    switchTo(false);
    EXPECT_EQ(world.journal(), (Lines{get("KLonKLEnabled"), set("KLonKLEnabled", 0)} + presetsOfOff));
}

/// Keeps a list of the calls of its setters.
class WatchedService : public ORX_ALGServiceImpl
{
  public:
    using ORX_ALGServiceImpl::ORX_ALGServiceImpl;

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
    Status setTOSByteFax(std::uint16_t value) override { return note("TOSByteFax", value); }

    Lines calls;

  private:
    Status note(const std::string& name, unsigned int value)
    {
        calls.push_back(name + " " + std::to_string(value));
        return Done;
    }
};

TEST_F(Switching, PresetsAreAppliedThroughTheSettersTosByteFirst)
{
    WatchedService watched("SCCN", "SN", "CCN", "Name");
    store("KLonKLEnabled", 0);
    watched.setKLonKLEnabled(true);
    watched.endChange();
    EXPECT_EQ(watched.calls, (Lines{"TOSByteSignaling 164", "QoSMarkVOIPSignaling 164", "TOSByteMedia 188",
                                    "QoSMarkVoiceMedia 188", "TOSByteVideoMedia 140", "QoSMarkVideoMedia 140",
                                    "TOSByteFax 188", "QoSFaxMedia 188"}));

    watched.calls.clear();
    watched.setKLonKLEnabled(false);
    watched.endChange();
    EXPECT_EQ(watched.calls, (Lines{"TOSByteSignaling 160", "QoSMarkVOIPSignaling 160", "TOSByteMedia 184",
                                    "QoSMarkVoiceMedia 184", "TOSByteVideoMedia 136", "QoSMarkVideoMedia 136",
                                    "TOSByteFax 184", "QoSFaxMedia 184"}));
}

} // namespace
