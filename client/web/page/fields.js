// What can be changed, and how it stands in the server's state.
import { markText, onOff } from "./words.js";

const text = (key, label, value, extra = {}) => ({ key, label, value, kind: "text", ...extra });
const onOffField = (key, label, value) => ({ key, label, value: (part) => onOff(value(part)), kind: "switch" });

const endpointFields = [
  onOffField("dhcp", "DHCP", (endpoint) => endpoint.dhcp),
  text("address", "Address", (endpoint) => endpoint.address, { mode: "decimal" }),
  text("mask", "Mask", (endpoint) => endpoint.mask, { mode: "decimal" }),
  text("gateway", "Gateway", (endpoint) => endpoint.gateway, { mode: "decimal" }),
  text("mtu", "MTU (bytes)", (endpoint) => String(endpoint.mtu), { mode: "numeric" }),
];

const lanFields = [
  text("domain", "Domain", (lan) => lan.domain),
  text("dns1", "First DNS", (lan) => lan.dns1, { mode: "decimal" }),
  text("dns2", "Second DNS", (lan) => lan.dns2, { mode: "decimal" }),
  ...[["icmp-filter", "ICMP filter"], ["arp-filter", "ARP filter"], ["broadcast-filter", "Broadcast filter"],
    ["conflict-watch", "Conflict watch"]].map(([key, label]) => onOffField(key, label, (lan) => lan[key])),
];

export const flows = [["signalling", "Signalling"], ["voice", "Voice"], ["video", "Video"], ["fax", "Fax"]];

const markingFields = [
  onOffField("enabled", "Presets", (marking) => marking.enabled),
  ...flows.map(([key, label]) => text(key, label, (marking) => markText(marking[key]), { list: "marks" })),
];

// The objects of a state with their fields, in the order in which they are shown.
export function objectsOf(state) {
  const endpoints = state.endpoints.map((endpoint) => ({
    name: endpoint.name, title: `${endpoint.name} ${endpoint.description}`, part: endpoint, isEndpoint: true,
    fields: endpointFields.filter(({ key }) => key !== "dhcp" || endpoint.name !== "eth0"),
  }));
  return [...endpoints,
    { name: "lan", title: "Names and packet filter", part: state.lan, fields: lanFields },
    { name: "marking", title: "Marking of voice traffic", part: state.marking, fields: markingFields }];
}

export const markNames = ["EF", "CS0", "CS1", "CS2", "CS3", "CS4", "CS5", "CS6", "CS7", "AF11", "AF12", "AF13", "AF21",
  "AF22", "AF23", "AF31", "AF32", "AF33", "AF41", "AF42", "AF43", "custom:0xB8"];
