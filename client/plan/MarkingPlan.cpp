#include "plan/Draft.hpp"
#include "plan/Objects.hpp"

namespace lanctl::plan
{

namespace
{

using model::Flow;
using model::Mark;
using model::Marking;
using model::WantedMarking;

const model::Key& keyOf(std::string_view name)
{
    return *model::findKey(model::Kind::Marking, name);
}

/// Makes the plan of the DSCP marking.
class MarkingDraft
{
  public:
    MarkingDraft(const Marking& now, const WantedMarking& wanted)
        : now_(now), wanted_(wanted), draft_(std::string(model::markingObject), model::classes::marking,
                                             {{"SystemCreationClassName", now.systemCreationClassName},
                                              {"SystemName", now.systemName},
                                              {"CreationClassName", now.creationClassName},
                                              {"Name", now.name}})
    {
    }

    Plan make();

  private:
    void compareEnabled();
    void compareFlow(Flow flow);
    void notePreset(Flow flow, const Mark& preset);
    void send(const model::Key& key, const Mark& from, const Mark& to);

    const Marking& now_;
    const WantedMarking& wanted_;
    bool switched_ = false; // KLonKLEnabled changes: all flows get its presets first
    Draft draft_;
};

Plan MarkingDraft::make()
{
    compareEnabled();
    for (const Flow flow : model::allFlows)
        compareFlow(flow);
    return draft_.finish(now_.warnings);
}

/// In a request of its own: the presets replace the marks that come with it.
void MarkingDraft::compareEnabled()
{
    const bool to = wanted_.enabled.value_or(now_.enabled);
    if (to == now_.enabled)
        return;
    switched_ = true;
    const model::Key& key = keyOf("enabled");
    draft_.change(key, switchText(now_.enabled), switchText(to));
    draft_.send(key.property, key.type, booleanValue(to));
    draft_.endRequest();
}

void MarkingDraft::compareFlow(Flow flow)
{
    const model::Key& key = keyOf(model::flowKey(flow));
    const Mark now = now_.mark(flow);
    const Mark then = wanted_.mark(flow).value_or(now);
    if (then != now)
        draft_.change(key, model::markText(now), model::markText(then));
    if (!switched_) {
        send(key, now, then);
        return;
    }
    const Mark preset = model::presetMark(flow, *wanted_.enabled);
    notePreset(flow, preset);
    if (wanted_.mark(flow))
        send(key, preset, then);
}

void MarkingDraft::notePreset(Flow flow, const Mark& preset)
{
    const Mark now = now_.mark(flow);
    if (!wanted_.mark(flow) && now != preset)
        draft_.note(model::flowKey(flow), "The change of \"enabled\" replaces this marking, " +
                                              model::markText(now) + ", by its preset " +
                                              model::markText(preset) + ".");
    if (wanted_.mark(flow) && *wanted_.mark(flow) != preset)
        draft_.note(model::flowKey(flow), "The change of \"enabled\" sets this marking to its preset " +
                                              model::markText(preset) +
                                              " first; a second request sets it as wanted.");
}

void MarkingDraft::send(const model::Key& key, const Mark& from, const Mark& to)
{
    if (to.menu != from.menu)
        draft_.send(key.property, key.type, std::to_string(to.menu));
    // The TOS byte follows a menu value that is not the custom one.
    if (to.isCustom() && to.tosByte != from.tosByte)
        draft_.send(key.companion, key.type, std::to_string(to.tosByte));
    if (from.isCustom() && !to.isCustom())
        draft_.note(key.key, "The custom TOS byte is not kept: it follows the new marking.");
}

} // namespace

Plan planMarking(const Marking& current, const WantedMarking& wanted)
{
    return MarkingDraft(current, wanted).make();
}

} // namespace lanctl::plan
