#include "model/FromCim.hpp"
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
        : m_now(now), m_wanted(wanted), m_draft(std::string(model::markingObject), model::nameOf(now))
    {
    }

    Plan make();

  private:
    void compareEnabled();
    void compareFlow(Flow flow);
    void notePreset(Flow flow, const Mark& preset);
    void send(const model::Key& key, const Mark& from, const Mark& to);

    const Marking& m_now;
    const WantedMarking& m_wanted;
    bool m_switched = false; // KLonKLEnabled changes: all flows get its presets first
    Draft m_draft;
};

Plan MarkingDraft::make()
{
    compareEnabled();
    for (const Flow flow : model::allFlows)
        compareFlow(flow);
    return m_draft.finish(m_now.warnings);
}

/// In a request of its own: the presets replace the marks that come with it.
void MarkingDraft::compareEnabled()
{
    const bool to = m_wanted.enabled.value_or(m_now.enabled);
    if (to == m_now.enabled)
        return;
    m_switched = true;
    const model::Key& key = keyOf("enabled");
    m_draft.change(key, switchText(m_now.enabled), switchText(to));
    m_draft.send(key.property, key.type, booleanValue(to));
    m_draft.endRequest();
}

void MarkingDraft::compareFlow(Flow flow)
{
    const model::Key& key = keyOf(model::flowKey(flow));
    const Mark now = m_now.mark(flow);
    const Mark then = m_wanted.mark(flow).value_or(now);
    if (then != now)
        m_draft.change(key, model::markText(now), model::markText(then));
    if (!m_switched) {
        send(key, now, then);
        return;
    }
    const Mark preset = model::presetMark(flow, *m_wanted.enabled);
    notePreset(flow, preset);
    if (m_wanted.mark(flow))
        send(key, preset, then);
}

void MarkingDraft::notePreset(Flow flow, const Mark& preset)
{
    const Mark now = m_now.mark(flow);
    if (!m_wanted.mark(flow) && now != preset)
        m_draft.note(model::flowKey(flow), "The change of \"enabled\" replaces this marking, " +
                                               model::markText(now) + ", by its preset " +
                                               model::markText(preset) + ".");
    if (m_wanted.mark(flow) && *m_wanted.mark(flow) != preset)
        m_draft.note(model::flowKey(flow), "The change of \"enabled\" sets this marking to its preset " +
                                               model::markText(preset) +
                                               " first; a second request sets it as wanted.");
}

void MarkingDraft::send(const model::Key& key, const Mark& from, const Mark& to)
{
    if (to.menu != from.menu)
        m_draft.send(key.property, key.type, std::to_string(to.menu));
    // The TOS byte follows a menu value that is not the custom one.
    if (to.isCustom() && to.tosByte != from.tosByte)
        m_draft.send(key.companion, key.type, std::to_string(to.tosByte));
    if (from.isCustom() && !to.isCustom())
        m_draft.note(key.key, "The custom TOS byte is not kept: it follows the new marking.");
}

} // namespace

Plan planMarking(const Marking& current, const WantedMarking& wanted)
{
    return MarkingDraft(current, wanted).make();
}

} // namespace lanctl::plan
