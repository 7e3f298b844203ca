// The way to the server and back. Addresses are relative to the page's own, which
// holds the token, so that the same files serve the preview and a printer.

/** The server replied that it cannot do what was asked, or did not reply. */
export class Refused extends Error {
  /**
   * @param {string} text in the server's words
   * @param {number} status of HTTP; 0 when there was no reply
   */
  constructor(text, status) {
    super(text);
    this.status = status;
  }
}

async function fetched(address, options) {
  let reply;
  try {
    reply = await fetch(address, { cache: "no-store", credentials: "same-origin", ...options });
  } catch {
    throw new Refused("The server does not reply.", 0);
  }
  if (!reply.ok) {
    const text = (await reply.text()).trim();
    throw new Refused(text || `The server replied with status ${reply.status}.`, reply.status);
  }
  return reply;
}

/**
 * Sends one request.
 * @param {object} request
 * @returns {Promise<object>} the reply
 */
export async function send(request) {
  const reply = await fetched("do", {
    method: "POST",
    headers: { "Content-Type": "application/json" },
    body: JSON.stringify(request),
  });
  return reply.json();
}

/**
 * Writes a file beside the description.
 * @param {"settings"|"preset"} as
 * @param {string} name
 * @param {boolean} replace a file of that name that is there already
 * @returns {Promise<object>} "ok" and "file"; else "problem", and "exists" when there is one
 */
export async function save(as, name, replace) {
  const reply = await fetched("save", {
    method: "POST",
    headers: { "Content-Type": "application/json" },
    body: JSON.stringify({ as, name, replace }),
  });
  return reply.json();
}

function inLanguage(language) {
  return language ? `?language=${encodeURIComponent(language)}` : "";
}

/** What does not change until the description is loaded again. */
export async function fetchModel(language) {
  return (await fetched(`model${inLanguage(language)}`)).json();
}

/** The whole state, with the reasons in a language. */
export async function fetchState(language) {
  return (await fetched(`state${inLanguage(language)}`)).json();
}

/** The text of the description or of a file beside it. */
export async function fetchSource(file) {
  return (await fetched(`source?file=${encodeURIComponent(file)}`)).text();
}

// The serial of a state that is still text. States of large descriptions are megabytes,
// and most events only repeat the reply that this page has got already.
function serialIn(text) {
  const found = /"serial":(\d+)/.exec(text.slice(Math.max(0, text.lastIndexOf('"serial":'))));
  return found ? Number(found[1]) : Infinity;
}

/**
 * Listens to what the server sends by itself.
 * @param {Object<string, function(*): *>} handlers by the name of the event; "open" and
 *   "lost" for the connection; "awaits" says whether the state of a serial is news
 * @returns {EventSource}
 */
export function listen(handlers) {
  const source = new EventSource("events");
  for (const name of ["hello", "state", "model", "crash", "picture", "bye"]) {
    source.addEventListener(name, (event) => {
      if (name === "state" && !handlers.awaits(serialIn(event.data))) return;
      handlers[name](event.data ? JSON.parse(event.data) : {});
    });
  }
  source.addEventListener("open", () => handlers.open());
  // The browser tries again by itself, but not after a refusal, such as that of a
  // server which has been started anew with another token.
  source.addEventListener("error", () => handlers.lost(source.readyState === EventSource.CLOSED));
  return source;
}
