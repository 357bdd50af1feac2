// The network as a picture: the server, its ports, and what hangs on them.
import { shape } from "./element.js";
import { flows } from "./fields.js";
import { linkWord, markShown, network, onOff } from "./words.js";

const label = (x, y, text, attributes = {}) =>
  shape("text", { x, y, "font-size": 14, "text-anchor": "middle", "data-text": true, ...attributes }, text);

const left = (x, y, text, attributes = {}) => label(x, y, text, { "text-anchor": "start", ...attributes });

// A lamp and a word: colour alone would tell some people nothing.
const lamp = (x, y, isOn) => shape("circle", { cx: x, cy: y, r: 7, class: isOn ? "on" : "off" });

function port(endpoint, x, y) {
  const works = endpoint.up !== false && endpoint.link === true;
  return shape("g", {},
    shape("rect", { x, y, width: 250, height: 150, rx: 8, class: "box" }),
    lamp(x + 22, y + 24, works),
    left(x + 38, y + 29, linkWord(endpoint), { class: "quiet" }),
    left(x + 15, y + 56, `${endpoint.name}  ${endpoint.description}`, { class: "title", "font-size": 16 }),
    left(x + 15, y + 80, network(endpoint), { "font-size": 16 }),
    left(x + 15, y + 102, endpoint.dhcp ? "address by DHCP" : "fixed address", { class: "quiet" }),
    left(x + 15, y + 122, `MTU ${endpoint.mtu} bytes`, { class: "quiet" }),
    left(x + 15, y + 141, endpoint.mac || "no MAC address", { class: "quiet", "font-size": 13 }));
}

function hanging(title, lines, x, y) {
  return shape("g", {},
    shape("rect", { x, y, width: 250, height: 34 + 20 * lines.length, rx: 8, class: "box" }),
    left(x + 15, y + 24, title, { class: "quiet" }),
    lines.map((line, i) => left(x + 15, y + 46 + 20 * i, line)));
}

const wire = (x1, y1, x2, y2, isUp) => shape("line", { x1, y1, x2, y2, class: isUp ? "wire" : "wire down" });

function serverLines(state) {
  const { lan, marking } = state;
  return [
    [`router card: ${lan["router-card"] ? "present" : "none"}`, `domain: ${lan.domain || "none"}`],
    [`ICMP filter ${onOff(lan["icmp-filter"])}, ARP filter ${onOff(lan["arp-filter"])}`,
      `broadcast filter ${onOff(lan["broadcast-filter"])}, conflict watch ${onOff(lan["conflict-watch"])}`],
    flows.slice(0, 2).map(([key, name]) => `${name} ${markShown(marking[key])}`),
    flows.slice(2).map(([key, name]) => `${name} ${markShown(marking[key])}`),
  ];
}

function hangingOn(endpoint, lan) {
  const list = [];
  if (endpoint.gateway) list.push(["default gateway", [endpoint.gateway]]);
  const servers = [lan.dns1, lan.dns2].filter(Boolean);
  if (endpoint.name === "eth1" && servers.length) list.push(["DNS servers", servers]);
  return list;
}

// Wide: the server above, its ports in a row below, what hangs on them underneath.
function wide(name, state) {
  const count = Math.max(1, state.endpoints.length);
  const width = Math.max(1, count) * 290 + 20;
  const parts = [shape("rect", { x: 20, y: 10, width: width - 40, height: 125, rx: 12, class: "server" }),
    label(width / 2, 38, name, { class: "title", "font-size": 19 })];
  serverLines(state).forEach((pair, i) => pair.forEach((line, j) =>
    parts.push(left(40 + j * (width - 40) / 2, 62 + i * 20, line))));
  let height = 330;
  state.endpoints.forEach((endpoint, i) => {
    const x = 25 + i * 290;
    parts.push(wire(x + 125, 135, x + 125, 170, endpoint.link === true), port(endpoint, x, 170));
    let y = 320;
    for (const [title, lines] of hangingOn(endpoint, state.lan)) {
      parts.push(wire(x + 125, y, x + 125, y + 25, endpoint.link === true), hanging(title, lines, x, y + 25));
      y += 59 + 20 * lines.length;
    }
    height = Math.max(height, y + 10);
  });
  return { width, height, parts };
}

// Narrow: everything in one column.
function narrow(name, state) {
  const parts = [label(165, 38, name, { class: "title", "font-size": 18 })];
  let y = 64;
  for (const line of serverLines(state).flat()) {
    parts.push(left(30, y, line, { "font-size": 13 }));
    y += 20;
  }
  parts.unshift(shape("rect", { x: 10, y: 10, width: 310, height: y - 16, rx: 12, class: "server" }));
  for (const endpoint of state.endpoints) {
    parts.push(wire(165, y - 6, 165, y + 18, endpoint.link === true), port(endpoint, 40, y + 18));
    y += 168;
    for (const [title, lines] of hangingOn(endpoint, state.lan)) {
      parts.push(wire(165, y, 165, y + 14, endpoint.link === true), hanging(title, lines, 40, y + 14));
      y += 48 + 20 * lines.length;
    }
    y += 6;
  }
  return { width: 330, height: y + 10, parts };
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
  const before = [...place.querySelectorAll("[data-text]")].map((node) => node.textContent);
  drawn = key;
  const { width, height, parts } = (isNarrow ? narrow : wide)(name, state);
  const picture = shape("svg", { viewBox: `0 0 ${width} ${height}`, role: "img", "aria-label": description(name, state) },
    parts);
  place.replaceChildren(picture);
  const now = [...picture.querySelectorAll("[data-text]")];
  if (before.length === now.length) // the same places: what differs has changed
    now.forEach((node, i) => node.classList.toggle("flash", node.textContent !== before[i]));
}
