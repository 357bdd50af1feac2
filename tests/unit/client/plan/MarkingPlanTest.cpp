#include "Server.hpp"

#include <gmock/gmock.h>

namespace lanctl::plan
{

namespace
{

using model::Flow;
using testing::ElementsAre;
using testing::IsEmpty;

Plan planOf(const model::ServerState& state, const model::WantedMarking& marking)
{
    model::WantedState all;
    all.marking = marking;
    return plan(state, all);
}

TEST(MarkingPlan, MarkingThatIsAsWantedNeedsNoRequest)
{
    model::WantedMarking marking;
    marking.enabled = true;
    marking.mark(Flow::Voice) = model::menuMark(188);
    const Plan plan = planOf(server(), marking);
    EXPECT_TRUE(plan.asWanted());
    EXPECT_THAT(plan.requests, IsEmpty());
}

TEST(MarkingPlan, AMarkOfTheMenuSendsTheMenuValueAlone)
{
    model::WantedMarking marking;
    marking.mark(Flow::Voice) = model::menuMark(0xB8);
    const Plan plan = planOf(server(), marking);
    EXPECT_THAT(changes(plan), ElementsAre("marking voice: 0xBC -> EF"));
    EXPECT_THAT(requests(plan), ElementsAre("marking: QoSMarkVoiceMedia=184"));
    ASSERT_EQ(plan.requests.size(), 1U);
    const wire::Modification& sent = plan.requests.front().modification;
    EXPECT_EQ(sent.instance.className, "ORX_ALGService");
    EXPECT_THAT(sent.name.keys,
                ElementsAre(testing::Pair("SystemCreationClassName", "SCCN"),
                            testing::Pair("SystemName", "SN"), testing::Pair("CreationClassName", "CCN"),
                            testing::Pair("Name", "Name")));
    EXPECT_EQ(sent.instance.find("QoSMarkVoiceMedia")->type, "uint16");
    EXPECT_TRUE(plan.impact().none());
    EXPECT_THAT(plan.notes, IsEmpty());
}

TEST(MarkingPlan, ACustomMarkSendsWhatDiffers)
{
    auto state = server();
    model::WantedMarking marking;
    marking.mark(Flow::Fax) = model::customMark(0x68);
    EXPECT_THAT(requests(planOf(state, marking)), ElementsAre("marking: QoSFaxMedia=258 TOSByteFax=104"));
    state.marking.mark(Flow::Fax) = model::customMark(0x20);
    EXPECT_THAT(requests(planOf(state, marking)), ElementsAre("marking: TOSByteFax=104"));
    // The TOS byte of the menu is there already.
    state.marking.mark(Flow::Fax) = model::menuMark(0x68);
    EXPECT_THAT(requests(planOf(state, marking)), ElementsAre("marking: QoSFaxMedia=258"));
}

TEST(MarkingPlan, ACustomByteIsLostToAMarkOfTheMenu)
{
    auto state = server();
    state.marking.mark(Flow::Signalling) = model::customMark(0x68);
    model::WantedMarking marking;
    marking.mark(Flow::Signalling) = model::menuMark(0xB8);
    const Plan plan = planOf(state, marking);
    EXPECT_THAT(requests(plan), ElementsAre("marking: QoSMarkVOIPSignaling=184"));
    EXPECT_TRUE(notes(plan, "marking", "signalling", "custom TOS byte is not kept"));
}

TEST(MarkingPlan, AllFlowsGoInOneRequest)
{
    model::WantedMarking marking;
    marking.mark(Flow::Signalling) = model::menuMark(0x60);
    marking.mark(Flow::Voice) = model::menuMark(0xB8);
    marking.mark(Flow::Video) = model::customMark(0x88);
    marking.mark(Flow::Fax) = model::menuMark(0x28);
    EXPECT_THAT(requests(planOf(server(), marking)),
                ElementsAre("marking: QoSMarkVOIPSignaling=96 QoSMarkVoiceMedia=184 QoSMarkVideoMedia=258 "
                            "TOSByteVideoMedia=136 QoSFaxMedia=40"));
}

TEST(MarkingPlan, EnabledReplacesTheMarksThatNobodyNamed)
{
    model::WantedMarking marking;
    marking.enabled = false;
    const Plan plan = planOf(server(), marking);
    EXPECT_THAT(changes(plan), ElementsAre("marking enabled: on -> off"));
    EXPECT_THAT(requests(plan), ElementsAre("marking: KLonKLEnabled=false"));
    EXPECT_TRUE(notes(plan, "marking", "voice", "replaces this marking, 0xBC, by its preset EF"));
    EXPECT_TRUE(notes(plan, "marking", "signalling", "replaces this marking, 0xA4, by its preset CS5"));
    EXPECT_EQ(plan.notes.size(), 4U);
}

TEST(MarkingPlan, EnabledLeavesAMarkThatIsItsPresetAlready)
{
    auto state = server();
    for (const Flow flow : model::allFlows)
        state.marking.mark(flow) = model::presetMark(flow, false);
    model::WantedMarking marking;
    marking.enabled = false;
    EXPECT_THAT(planOf(state, marking).notes, IsEmpty());
}

TEST(MarkingPlan, MarksBesideEnabledFollowInASecondRequest)
{
    auto state = server();
    state.marking.mark(Flow::Video) = model::customMark(0x68);
    model::WantedMarking marking;
    marking.enabled = false;
    marking.mark(Flow::Signalling) = model::menuMark(0xA4); // as it is now, and not as the preset
    marking.mark(Flow::Voice) = model::menuMark(0xB8);      // the preset
    marking.mark(Flow::Video) = model::customMark(0x68);
    marking.mark(Flow::Fax) = model::customMark(0xB8); // the preset's byte
    const Plan plan = planOf(state, marking);
    EXPECT_THAT(changes(plan), ElementsAre("marking enabled: on -> off", "marking voice: 0xBC -> EF",
                                           "marking fax: 0xBC -> custom:EF"));
    EXPECT_THAT(requests(plan), ElementsAre("marking: KLonKLEnabled=false",
                                            "marking: QoSMarkVOIPSignaling=164 QoSMarkVideoMedia=258 "
                                            "TOSByteVideoMedia=104 QoSFaxMedia=258"));
    EXPECT_TRUE(notes(plan, "marking", "video", "a second request sets it as wanted"));
    EXPECT_FALSE(notes(plan, "marking", "voice", ""));
}

} // namespace

} // namespace lanctl::plan
