// What the library has logged and whom it has notified, change by change, the newest
// first.

import { element } from "./dom.js";

// Older changes than these are forgotten.
const kKept = 100;
const kTroubles = new Set(["error", "misuse", "warning"]);

/** The log's tab. */
export class Log {
  constructor(context) {
    this.context = context;
    this.element = element("section", { class: "log", tabindex: "0", "aria-label": "Log" });
    this.entries = [];
    this.troubles = 0;
    this.drawn = false;
  }

  /** Takes in what came with a state. */
  take(state) {
    const log = state.log ?? [];
    const notifications = state.notifications ?? [];
    this.troubles = log.filter((line) => kTroubles.has(line.level)).length;
    if (log.length + notifications.length === 0) return;
    this.entries.unshift({ serial: state.serial, log, notifications, time: new Date() });
    this.entries.length = Math.min(this.entries.length, kKept);
    this.drawn = false;
  }

  /** Draws what has come since. */
  draw() {
    if (this.drawn) return;
    this.drawn = true;
    if (this.entries.length === 0) {
      this.element.replaceChildren(element("p", { class: "quiet", text: "No log lines and no notifications yet." }));
      return;
    }
    this.element.replaceChildren(...this.entries.map((entry) => this.#entry(entry)));
  }

  #entry(entry) {
    const { store } = this.context;
    const list = element("ul", { class: "log-lines" });
    for (const line of entry.log) {
      list.append(
        element("li", { class: `log-line level-${line.level}` }, element("span", { class: "log-level", text: line.level }), element("span", { class: "log-text", text: line.text })),
      );
    }
    for (const name of entry.notifications) {
      list.append(
        element(
          "li",
          { class: "log-line" },
          element("span", { class: "log-level", text: "notified" }),
          // Without a name the host is to look at everything again.
          name === ""
            ? element("span", { text: "all settings" })
            : element("button", { class: "link", type: "button", "data-owner": name, text: store.textOf(name) }),
        ),
      );
    }
    const time = entry.time.toLocaleTimeString();
    return element("section", { class: "log-entry" }, element("h3", { class: "log-head", text: `Change ${entry.serial}, ${time}` }), list);
  }
}
