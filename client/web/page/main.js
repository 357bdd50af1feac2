// The page: follows the server, and leads a change from typing over review to its confirmation.
import { Failure, read, send } from "./api.js";
import { byId, element, say } from "./element.js";
import * as form from "./form.js";
import { draw } from "./picture.js";
import * as review from "./review.js";
import { sentences, timeOfDay } from "./words.js";

const followEvery = 2000;
const planAfter = 250;

let latest = null; // what /api/state said last
let plan = null;   // of the changes that are typed in
let offer = null;  // what the open review applies: {path, body}
let countdownEnds = 0;
let planTimer = 0;
let lastResult = "";

const explain = (error) => sentences(error.message, error.advice);

// --- following the server

function showReach(state) {
  document.body.classList.toggle("lost", !state.reached);
  byId("reach").className = state.reached ? "good" : "bad";
  say(byId("reach-text"), state.reached ? "Reached"
    : sentences(`Not reached since ${timeOfDay(state.since)}`, state.trouble, state.advice));
}

function showState(state) {
  latest = state;
  say(byId("server"), state.server);
  document.title = `${state.server} - lanctl`;
  showReach(state);
  if (state.state) {
    draw(byId("picture"), state.server, state.state);
    form.show(byId("values"), state.state, state["read-only"]);
  }
  showBar();
  showWaiting(state);
}

async function look() {
  try {
    showState(await read("state"));
  } catch (error) {
    const since = latest && !latest.reached ? latest.since : new Date().toISOString();
    latest = { ...latest, reached: false, since };
    showReach({ reached: false, since,
      trouble: error instanceof Failure ? explain(error) : "lanctl web does not answer." });
  }
}

async function follow() {
  await look();
  setTimeout(follow, followEvery);
}

// --- a change that waits for its confirmation

const waitingTexts = {
  changing: "A change is being made.",
  waiting: "The change is taken back unless you keep it in time.",
  "cut-off": "A change was cut off. `lanctl rollback` takes it back, `lanctl confirm` keeps it.",
};

function waitingText(open) {
  if (open.state === "taking-back")
    return open.trouble ? `The change is being taken back. ${open.trouble}` : "The change is being taken back.";
  return waitingTexts[open.state];
}

function showClock() {
  const waits = latest?.open?.state === "waiting";
  const seconds = Math.max(0, Math.ceil((countdownEnds - Date.now()) / 1000));
  byId("waiting-clock").textContent = waits ? `${seconds} s` : "";
}

function showWaiting(state) {
  const { open } = state;
  byId("waiting").hidden = !open;
  if (!open) return showResult(state.last);
  lastResult = `${open.number} open`;
  countdownEnds = Date.now() + (open.seconds ?? 0) * 1000;
  say(byId("waiting-title"), `Change ${open.number}: ${open.plan.join(", ")}`);
  say(byId("waiting-text"), waitingText(open));
  const canAnswer = open.state === "waiting" && !state["read-only"];
  byId("keep").hidden = byId("take-back").hidden = !canAnswer;
  showClock();
}

// Tells the result of a change whose countdown this page has shown.
function showResult(last) {
  if (!last || lastResult !== `${last.number} open`) return;
  lastResult = "";
  const texts = { confirmed: "The change is kept.", "taken-back": "The change has been taken back.",
    abandoned: "The way back was given up; the change stays as it is." };
  say(byId("told"), texts[last.result] ?? "");
}

async function answerWaiting(path) {
  try {
    await send(path, { number: latest.open.number });
    say(byId("waiting-text"), path === "confirm" ? "Keeping the change …" : "Taking the change back …");
  } catch (error) {
    say(byId("told"), explain(error));
  }
}

// --- typing

function showBar() {
  const count = form.changes().length;
  byId("bar").hidden = count === 0;
  say(byId("bar-text"), count === 1 ? "1 value edited" : `${count} values edited`);
  byId("review").disabled = count === 0 || Boolean(latest?.open);
}

async function checkTyped() {
  const changes = form.changes();
  if (changes.length === 0) return;
  try {
    const answer = await send("plan", { changes });
    if (JSON.stringify(changes) !== JSON.stringify(form.changes())) return; // typed on meanwhile
    plan = answer;
    form.showPlan(plan);
  } catch (error) {
    say(byId("told"), explain(error));
  }
}

function typed() {
  showBar();
  clearTimeout(planTimer);
  planTimer = setTimeout(checkTyped, planAfter);
}

function discard() {
  form.discard();
  plan = null;
  showBar();
  byId("values").focus();
}

// --- reviewing and applying

function showReview(offered, shownPlan, told = "") {
  offer = { ...offered, body: { ...offered.body, reviewed: shownPlan.changes } };
  review.showPlan(shownPlan);
  byId("plan-apply").textContent = `Apply and confirm within ${latest.confirm} s`;
  if (!byId("plan").open) byId("plan").showModal();
  say(byId("plan-told"), told);
}

async function openReview() {
  say(byId("told"), "");
  await checkTyped();
  if (plan) showReview({ path: "apply", body: { changes: form.changes() } }, plan);
}

async function openRollback(number) {
  try {
    showReview({ path: "rollback", body: { number } }, await send("plan", { rollback: number }));
  } catch (error) {
    say(byId("told"), explain(error));
  }
}

function showProgress(node, text) {
  const begun = Date.now();
  const show = () => { node.textContent = `${text} ${Math.floor((Date.now() - begun) / 1000)} s`; };
  show();
  const timer = setInterval(show, 1000);
  return () => { clearInterval(timer); node.textContent = ""; };
}

async function carryOut(path, body) {
  const end = showProgress(byId("told"), "The change is being made …");
  try {
    const answer = await send(path, body);
    end();
    say(byId("told"), review.outcomeText(answer));
    return answer;
  } catch (error) {
    end();
    say(byId("told"), explain(error));
    return error;
  }
}

// Leads from the change that was made to its confirmation.
async function goToWaiting(wasTyped) {
  if (wasTyped) discard();
  await look();
  byId("waiting").focus();
}

async function apply() {
  byId("plan-apply").disabled = true;
  byId("plan").close();
  const applied = offer;
  const answer = await carryOut(applied.path, applied.body);
  if (answer instanceof Failure && answer.status === 409 && answer.body?.plan)
    showReview(applied, answer.body.plan, explain(answer));
  else if (answer.changed) await goToWaiting(applied.path === "apply");
}

// --- history

function entryItem(entry) {
  const button = element("button", { type: "button" }, `Back to before change ${entry.number}`);
  button.addEventListener("click", () => {
    byId("history").close();
    openRollback(entry.number);
  });
  const when = new Date(entry.time).toLocaleString();
  return element("li", {}, element("p", {}, `${entry.number}. ${when}, ${entry.user}: ${entry.result}`),
    element("ul", {}, entry.plan.map((line) => element("li", {}, line))),
    ...(latest?.["read-only"] || entry.result === "open" ? [] : [button]));
}

async function openHistory() {
  try {
    const entries = (await read("history")).reverse();
    byId("history-body").replaceChildren(entries.length ? element("ol", { reversed: true }, entries.map(entryItem))
      : element("p", {}, "No change yet."));
    byId("history").showModal();
  } catch (error) {
    say(byId("told"), explain(error));
  }
}

byId("review").addEventListener("click", openReview);
byId("discard").addEventListener("click", discard);
byId("plan-cancel").addEventListener("click", () => byId("plan").close());
byId("plan-apply").addEventListener("click", apply);
byId("keep").addEventListener("click", () => answerWaiting("confirm"));
byId("take-back").addEventListener("click", () => answerWaiting("revert"));
byId("open-history").addEventListener("click", openHistory);
byId("history-close").addEventListener("click", () => byId("history").close());
window.addEventListener("resize", () => latest?.state && draw(byId("picture"), latest.server, latest.state));
setInterval(showClock, 1000);
form.start(byId("values"), typed);
follow();
