// The network as a picture: the server, its ports, and what hangs on them.
import { shape } from "./element.js";
import { flows } from "./fields.js";
import { linkWord, markShown, network, onOff } from "./words.js";

const portWidth = 250;
const portHeight = 160;

// A text of at most `most` characters; the whole one is then told where the mouse rests.
function label(x, y, text, attributes = {}, most = 28) {
  const shown = text.length > most ? `${text.slice(0, most - 1)}…` : text;
  const node = shape("text", { x, y, "font-size": 14, "data-text": text, ...attributes }, shown);
  if (shown !== text) node.append(shape("title", {}, text));
  return node;
}

// A lamp and a word: colour alone would tell some people nothing.
const lamp = (x, y, isOn) => shape("circle", { cx: x, cy: y, r: 7, class: isOn ? "on" : "off" });

const wire = (x1, y1, x2, y2, isUp) => shape("line", { x1, y1, x2, y2, class: isUp ? "wire" : "wire down" });

function port(endpoint, x, y) {
  const works = endpoint.up !== false && endpoint.link === true;
  return shape("g", {},
    shape("rect", { x, y, width: portWidth, height: portHeight, rx: 8, class: "box" }),
    label(x + 15, y + 28, `${endpoint.name}  ${endpoint.description}`, { class: "title", "font-size": 16 }, 24),
    lamp(x + 22, y + 48, works),
    label(x + 38, y + 53, linkWord(endpoint)),
    label(x + 15, y + 80, network(endpoint), { class: "title", "font-size": 16 }, 24),
    label(x + 15, y + 103, endpoint.dhcp ? "address by DHCP" : "fixed address", { class: "quiet" }),
    label(x + 15, y + 124, `MTU ${endpoint.mtu} bytes`, { class: "quiet" }),
    label(x + 15, y + 145, endpoint.mac || "no MAC address", { class: "quiet" }));
}

function hanging([title, lines], x, y) {
  return shape("g", {},
    shape("rect", { x, y, width: portWidth, height: 44 + 20 * lines.length, rx: 8, class: "box" }),
    label(x + 15, y + 26, title, { class: "quiet" }),
    lines.map((line, i) => label(x + 15, y + 49 + 20 * i, line)));
}

// What the server box says, in three groups.
function serverGroups({ lan, marking }) {
  return [
    ["Server", [`Router card ${lan["router-card"] ? "present" : "none"}`, `Domain ${lan.domain || "none"}`]],
    ["Packet filter", [`ICMP filter ${onOff(lan["icmp-filter"])}`, `ARP filter ${onOff(lan["arp-filter"])}`,
      `Broadcast filter ${onOff(lan["broadcast-filter"])}`, `Conflict watch ${onOff(lan["conflict-watch"])}`]],
    ["Voice marking", flows.map(([key, name]) => `${name} ${markShown(marking[key])}`)],
  ];
}

const group = ([title, lines], x, y) => [
  label(x, y, title, { class: "quiet" }),
  ...lines.map((line, i) => label(x, y + 21 * (i + 1), line)),
];

function hangingOn(endpoint, lan) {
  const list = [];
  if (endpoint.gateway) list.push([endpoint.name === "eth1" ? "default gateway" : "gateway", [endpoint.gateway]]);
  const servers = [lan.dns1, lan.dns2].filter(Boolean);
  if (endpoint.name === "eth1" && servers.length) list.push(["DNS servers", servers]);
  return list;
}

// Wide: the server above, its ports in a row below, what hangs on them underneath.
function wide(name, state) {
  const width = Math.max(3, state.endpoints.length) * 290 + 10;
  const parts = [shape("rect", { x: 5, y: 5, width: width - 10, height: 165, rx: 12, class: "server" }),
    label(40, 36, name, { class: "title", "font-size": 19 }, 70)];
  serverGroups(state).forEach((texts, i) => parts.push(...group(texts, 40 + i * 290, 66)));
  let height = 390;
  state.endpoints.forEach((endpoint, i) => {
    const x = 25 + i * 290;
    const middle = x + portWidth / 2;
    parts.push(wire(middle, 170, middle, 215, endpoint.link === true), port(endpoint, x, 215));
    let y = 215 + portHeight;
    for (const what of hangingOn(endpoint, state.lan)) {
      parts.push(wire(middle, y, middle, y + 25, endpoint.link === true), hanging(what, x, y + 25));
      y += 69 + 20 * what[1].length;
    }
    height = Math.max(height, y + 10);
  });
  return { width, height, parts };
}

// Narrow: everything in one column.
function narrow(name, state) {
  const parts = [label(25, 38, name, { class: "title", "font-size": 17 }, 26)];
  let y = 66;
  for (const texts of serverGroups(state)) {
    parts.push(...group(texts, 25, y));
    y += 21 * texts[1].length + 34;
  }
  parts.unshift(shape("rect", { x: 5, y: 5, width: 290, height: y - 25, rx: 12, class: "server" }));
  y -= 20;
  const bottom = y;
  let last = y;
  for (const endpoint of state.endpoints) {
    last = y + 18 + portHeight / 2;
    parts.push(wire(18, last, 40, last, endpoint.link === true), port(endpoint, 40, y + 18));
    y += 18 + portHeight;
    for (const what of hangingOn(endpoint, state.lan)) {
      parts.push(wire(165, y, 165, y + 14, endpoint.link === true), hanging(what, 40, y + 14));
      y += 58 + 20 * what[1].length;
    }
  }
  parts.push(wire(18, bottom, 18, last, true));
  return { width: 300, height: y + 10, parts };
}

function description(name, state) {
  const ports = state.endpoints.map((endpoint) =>
    `${endpoint.name} ${endpoint.description}: ${linkWord(endpoint)}, ${network(endpoint)}`);
  return `${name}. ${ports.join(". ")}.`;
}

let drawn = "";

export function draw(place, name, state) {
  const isNarrow = place.clientWidth < 700;
  const key = JSON.stringify([name, state, isNarrow]);
  if (key === drawn) return;
  const before = [...place.querySelectorAll("[data-text]")].map((node) => node.dataset.text);
  drawn = key;
  const { width, height, parts } = (isNarrow ? narrow : wide)(name, state);
  const picture = shape("svg", { viewBox: `0 0 ${width} ${height}`, class: isNarrow ? "narrow" : "wide",
    role: "img", "aria-label": description(name, state) },
    parts);
  place.replaceChildren(picture);
  const now = [...picture.querySelectorAll("[data-text]")];
  if (before.length === now.length) // the same places: what differs has changed
    now.forEach((node, i) => node.classList.toggle("flash", node.dataset.text !== before[i]));
}
