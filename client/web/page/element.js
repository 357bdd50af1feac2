// Making elements. What comes from the server is always text, never markup.

function fill(node, attributes, children) {
  for (const [name, value] of Object.entries(attributes))
    if (value !== undefined && value !== false) node.setAttribute(name, value === true ? "" : value);
  node.append(...children.flat());
  return node;
}

export const element = (name, attributes = {}, ...children) => fill(document.createElement(name), attributes, children);

export const shape = (name, attributes = {}, ...children) =>
  fill(document.createElementNS("http://www.w3.org/2000/svg", name), attributes, children);

export const byId = (id) => document.getElementById(id);

// Says a text once: a live region that is given the same text again would stay silent or repeat it.
export function say(node, text) {
  if (node.textContent !== text) node.textContent = text;
}
