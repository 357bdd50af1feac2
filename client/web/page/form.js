// The values: shown as they are, edited in place. An edited field keeps what the user typed while the server is followed.
import { element } from "./element.js";
import { markNames, objectsOf } from "./fields.js";
import { linkWord, sentences } from "./words.js";

const edited = new Map(); // "eth1 mtu" -> the value that is wanted
const inputs = new Map(); // "eth1 mtu" -> {box, input, message, hint, value}
const facts = new Map();  // "eth1 link" -> its dd
let onEdit = () => {};
let shape = "";

const idOf = (object, key) => `${object} ${key}`;
const htmlId = (object, key) => `field-${object}-${key}`;

export const changes = () => [...edited].map(([id, value]) => {
  const [object, key] = id.split(" ");
  return { object, key, value };
});

export function discard() {
  edited.clear();
  for (const { box, input, message, hint, value } of inputs.values()) {
    input.value = value;
    box.className = "field";
    message.textContent = hint.textContent = "";
    input.removeAttribute("aria-invalid");
  }
}

function noteEdit(id) {
  const field = inputs.get(id);
  const value = field.input.value.trim();
  if (value === field.value) edited.delete(id);
  else edited.set(id, value);
  field.box.classList.toggle("edited", edited.has(id));
  if (!edited.has(id)) tell(field, "", "");
  onEdit();
}

function tell(field, message, hint) {
  if (field.message.textContent !== message) field.message.textContent = message;
  if (field.hint.textContent !== hint) field.hint.textContent = hint;
  field.box.classList.toggle("wrong", message !== "");
  if (message) field.input.setAttribute("aria-invalid", "true");
  else field.input.removeAttribute("aria-invalid");
}

function inputOf(field, attributes) {
  if (field.kind === "switch")
    return element("select", attributes, ["on", "off"].map((value) => element("option", { value }, value)));
  return element("input", { type: "text", inputmode: field.mode, list: field.list, autocomplete: "off",
    autocapitalize: "none", spellcheck: "false", maxlength: 300, ...attributes });
}

function makeField(object, field, isReadOnly) {
  const name = htmlId(object.name, field.key);
  const id = idOf(object.name, field.key);
  const input = inputOf(field, { id: name, "aria-describedby": `${name}-message ${name}-hint`, disabled: isReadOnly });
  const message = element("p", { class: "message", id: `${name}-message`, role: "alert" });
  const hint = element("p", { class: "hint", id: `${name}-hint` });
  const box = element("div", { class: "field" }, element("label", { for: name }, field.label), input, message, hint);
  // Not everything that fills in a field for its user sends both.
  for (const event of ["input", "change"]) input.addEventListener(event, () => noteEdit(id));
  inputs.set(id, { box, input, message, hint, value: null });
  return box;
}

function factsOf(object) {
  if (object.isEndpoint) return [["link", "Link", linkWord(object.part)], ["mac", "MAC", object.part.mac || "none"]];
  if (object.name === "lan") return [["router", "Router card", object.part["router-card"] ? "present" : "none"]];
  return [];
}

function makeFacts(object) {
  const list = element("dl");
  for (const [key, name] of factsOf(object)) {
    const value = element("dd");
    facts.set(idOf(object.name, key), value);
    list.append(element("dt", {}, name), value);
  }
  return list;
}

function build(form, objects, isReadOnly) {
  inputs.clear();
  facts.clear();
  form.replaceChildren(
    element("datalist", { id: "marks" }, markNames.map((value) => element("option", { value }))),
    ...objects.map((object) => element("fieldset", { class: object.isEndpoint ? "endpoint" : "settings" },
      element("legend", {}, object.title), makeFacts(object),
      element("div", { class: "fields" }, object.fields.map((field) => makeField(object, field, isReadOnly))))));
}

function refresh(node, text, isFirst) {
  if (node.textContent === text) return;
  node.textContent = text;
  node.classList.toggle("flash", !isFirst);
}

function refreshField(id, value, isFirst) {
  const field = inputs.get(id);
  if (field.value === value) return field.box.classList.remove("flash");
  field.value = value;
  if (edited.get(id) === value) edited.delete(id); // it has become as wanted
  if (!edited.has(id)) field.input.value = value;
  field.box.classList.toggle("edited", edited.has(id));
  field.box.classList.toggle("flash", !isFirst);
}

export function show(form, state, isReadOnly) {
  const objects = objectsOf(state);
  const newShape = JSON.stringify([isReadOnly, objects.map((object) => [object.title, object.fields.length])]);
  const isFirst = newShape !== shape;
  if (isFirst) build(form, objects, isReadOnly);
  shape = newShape;
  for (const object of objects) {
    for (const [key, , text] of factsOf(object)) refresh(facts.get(idOf(object.name, key)), text, isFirst);
    for (const field of object.fields) refreshField(idOf(object.name, field.key), field.value(object.part), isFirst);
  }
}

// The plan's word on each field: what is refused, and what has another effect than one would think.
export function showPlan(plan) {
  const messages = new Map();
  for (const refusal of plan.refusals)
    messages.set(idOf(refusal.object, refusal.key), sentences(refusal.text, refusal.advice));
  for (const invalid of plan.invalid) messages.set(idOf(invalid.object, invalid.key), invalid.text);
  const hints = new Map();
  for (const note of plan.notes) hints.set(idOf(note.object, note.key), note.text);
  for (const [id, field] of inputs)
    tell(field, edited.has(id) ? messages.get(id) ?? "" : "", edited.has(id) ? hints.get(id) ?? "" : "");
}

export function start(form, whenEdited) {
  onEdit = whenEdited;
  form.addEventListener("submit", (event) => event.preventDefault());
}
