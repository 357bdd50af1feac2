// The JSON interface of lanctl web.

// The address that lanctl prints carries the token behind the number sign, which no server ever sees.
const fromAddress = new URLSearchParams(location.hash.slice(1)).get("token");
if (fromAddress) {
  sessionStorage.setItem("token", fromAddress);
  history.replaceState(null, "", location.pathname);
}

export class Failure extends Error {
  constructor(status, body) {
    super(body?.error?.text ?? `The page's server answers ${status}.`);
    this.status = status;
    this.advice = body?.error?.advice ?? "";
    this.body = body;
  }
}

async function call(path, options = {}) {
  const token = sessionStorage.getItem("token");
  const headers = { "X-Lanctl": "1", ...(token && { Authorization: `Bearer ${token}` }), ...options.headers };
  const response = await fetch(`/api/${path}`, { cache: "no-store", ...options, headers });
  const body = await response.json().catch(() => null);
  if (!response.ok) throw new Failure(response.status, body);
  return body;
}

export const read = (path) => call(path);

export const send = (path, body) =>
  call(path, { method: "POST", headers: { "Content-Type": "application/json" }, body: JSON.stringify(body) });
