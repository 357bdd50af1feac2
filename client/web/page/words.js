// Values in the words of the command line.

export function prefixOf(mask) {
  const bits = mask.split(".").map((part) => Number(part).toString(2).padStart(8, "0")).join("");
  return /^1*0*$/.test(bits) && bits.length === 32 ? bits.lastIndexOf("1") + 1 : null;
}

export function network(endpoint) {
  if (!endpoint.address) return "no address";
  const prefix = prefixOf(endpoint.mask);
  return prefix === null ? `${endpoint.address} mask ${endpoint.mask}` : `${endpoint.address}/${prefix}`;
}

export function linkWord(endpoint) {
  if (endpoint.up === false) return "down";
  if (endpoint.link === null) return "link unknown";
  if (!endpoint.link) return "no link";
  return endpoint.speed ? `link, ${endpoint.speed / 1e6} Mbit/s` : "link";
}

export const hexadecimal = (byte) => `0x${byte.toString(16).toUpperCase().padStart(2, "0")}`;

// A mark as lanctl writes and reads it: "EF", "0xA4", "custom:0x68".
export function markText(mark) {
  const plain = mark.dscp ?? hexadecimal(mark.tos);
  return mark.custom ? `custom:${hexadecimal(mark.tos)}` : plain;
}

export const markShown = (mark) =>
  `${hexadecimal(mark.tos)}${mark.dscp ? ` ${mark.dscp}` : ""}${mark.custom ? " (custom)" : ""}`;

export const onOff = (value) => (value ? "on" : "off");

const counted = {
  "interface-restarts": ["interface restart", "interface restarts"],
  "voice-messaging-restarts": ["voice messaging restart", "voice messaging restarts"],
  "voice-messaging-stops": ["voice messaging stop", "voice messaging stops"],
  "dhcp-service-notices": ["notice to the DHCP service", "notices to the DHCP service"],
  "element-management-notices": ["notice to the element management", "notices to the element management"],
};

export function costs(impact) {
  const texts = Object.entries(counted)
    .filter(([name]) => impact[name] > 0)
    .map(([name, [one, many]]) => `${impact[name]} ${impact[name] === 1 ? one : many}`);
  return texts.length ? texts : ["no interruption"];
}

// Texts of the server have no full stop; one after the other they need one.
export const sentences = (...texts) =>
  texts.filter(Boolean).map((text) => (/[.!?…]$/.test(text) ? text : `${text}.`)).join(" ");

export const timeOfDay = (text) => new Date(text).toLocaleTimeString();
