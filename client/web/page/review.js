// The plan before it is applied: differences side by side, costs, what is refused.
import { byId, element, say } from "./element.js";
import { costs, sentences } from "./words.js";

const orNone = (value) => value || "none";

function changeRow(change) {
  return element("tr", {}, element("th", { scope: "row" }, `${change.object} ${change.key}`),
    element("td", {}, orNone(change.from)),
    element("td", { class: "to" }, orNone(change.to), change.sent ? "" : " (without effect, not sent)"));
}

const section = (title, name, texts) =>
  texts.length ? [element("h3", { class: name }, title), element("ul", {}, texts.map((text) => element("li", {}, text)))] : [];

const about = (part) => [part.object, part.key].filter(Boolean).join(" ");

export function isPossible(plan) {
  return plan.refusals.length === 0 && plan.invalid.length === 0 && plan.requests > 0;
}

export function showPlan(plan) {
  const refused = [...plan.invalid, ...plan.refusals];
  byId("plan-body").replaceChildren(
    element("table", {},
      element("thead", {}, element("tr", {}, ["Value", "Now", "Then"].map((name) => element("th", { scope: "col" }, name)))),
      element("tbody", {}, plan.changes.map(changeRow))),
    ...section("Refused", "refused", refused.map((part) => `${about(part)}: ${sentences(part.text, part.advice)}`)),
    ...(refused.length ? [] : section("Costs", "", costs(plan.costs))),
    ...section("The server warns", "warned", plan.warnings),
    ...section("This can cut the connection to the server", "warned", plan["can-cut"] ? [plan.connection] : []),
    ...section("Worth knowing", "warned", plan.notes.map((note) => `${about(note)}: ${note.text}`)));
  byId("plan-apply").disabled = !isPossible(plan);
  say(byId("plan-told"), "");
}

// What came of a change, as text.
export function outcomeText(answer) {
  const { plan, outcome } = answer;
  if (!answer.changed)
    return ["Nothing was changed.", ...plan.refusals.map((refusal) => `${about(refusal)}: ${refusal.text}`)].join("\n");
  if (outcome.done) return "The change is in force.";
  const lines = [];
  if (outcome.refused) lines.push(`${outcome.refused.object}: ${sentences(outcome.refused.text, outcome.refused.advice)}`);
  for (const failure of [outcome.stopped, outcome.unread]) if (failure) lines.push(sentences(failure.text, failure.advice));
  for (const change of outcome.remaining)
    lines.push(`${about(change)} is ${orNone(change.from)}, not ${orNone(change.to)}.`);
  return lines.join("\n");
}
