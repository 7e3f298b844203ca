// What the page as a whole has to say: the connection, crashes, and what went wrong
// without a control to say it beside.

import { byId, element, setText } from "./dom.js";

const shown = new Map();

/**
 * Shows a banner in place of the one of the same kind.
 * @param {string} kind such as "crash"
 * @param {"info"|"warning"|"error"} level
 * @param {string} text
 * @param {Node[]} details below the text
 */
export function showBanner(kind, level, text, details = []) {
  hideBanner(kind);
  const close = element("button", { class: "icon-button", type: "button", "aria-label": "Close this message", text: "✕" });
  const banner = element(
    "div",
    { class: `banner banner-${level}`, role: level === "error" ? "alert" : "status" },
    element("div", { class: "banner-body" }, element("p", { class: "banner-text", text }), ...details),
    close,
  );
  close.addEventListener("click", () => {
    hideBanner(kind);
    byId("main").querySelector("section:not([hidden])").focus();
  });
  shown.set(kind, banner);
  byId("banners").append(banner);
}

/** Takes it away. */
export function hideBanner(kind) {
  shown.get(kind)?.remove();
  shown.delete(kind);
}

/**
 * The state of the connection in the bar.
 * @param {"live"|"lost"|"ended"} state
 */
export function showConnection(state) {
  const texts = { live: "Live", lost: "Reconnecting…", ended: "Ended" };
  const node = byId("connection");
  node.dataset.state = state;
  setText(node, texts[state]);
}
