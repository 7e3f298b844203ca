// The right side: tabs for the outputs, the log and the page.

import { announce } from "./announce.js";
import { byId, element, setText } from "./dom.js";
import { Log } from "./log.js";
import { OutputPane } from "./output_pane.js";
import { Picture } from "./picture.js";

const kNothing = { text: "", spans: [] };
const kTitles = { ps: "PostScript", pjl: "PJL", ticket: "Job ticket", log: "Log", page: "Page" };

/** The name of an output as people see it. */
export function titleOf(output) {
  return kTitles[output] ?? output;
}

/** The tabs and what they show. */
export class Outputs {
  /** @param {object} context store, select */
  constructor(context) {
    this.context = context;
    this.panes = {};
    this.earlier = {};
    this.tabs = new Map();
    this.current = null;
    this.log = new Log(context);
    this.picture = new Picture(context);
    this.#listen();
  }

  /** Builds the tabs for a model that is new. */
  build() {
    const { outputs } = this.context.store.model;
    const names = [...outputs, "log", "page"];
    const was = this.current;
    const focused = document.activeElement.closest?.("#tabs, #panels") ? document.activeElement : null;
    const shown = this.panes[was]?.element;
    const top = shown?.scrollTop ?? 0;
    // What was there before the file was saved is what the difference is marked to.
    this.earlier = this.panes;
    this.panes = {};
    this.tabs.clear();
    for (const name of names) this.#makeTab(name);
    byId("tabs").replaceChildren(...[...this.tabs.values()].map((tab) => tab.button));
    byId("panels").replaceChildren(...[...this.tabs.values()].map((tab) => tab.panel));
    this.show(names.includes(was) ? was : names[0]);
    // What leaves the page and comes back has lost both.
    if (shown) shown.scrollTop = top;
    if (focused) (focused.isConnected ? focused : this.tabs.get(this.current).button).focus({ preventScroll: true });
  }

  #makeTab(name) {
    const panelId = `panel-${name}`;
    const count = element("span", { class: "tab-count" });
    const button = element(
      "button",
      { class: "tab", type: "button", role: "tab", id: `tab-${name}`, "aria-controls": panelId, "data-tab": name, "aria-selected": "false", tabindex: "-1" },
      element("span", { text: titleOf(name) }),
      count,
    );
    let content;
    if (name === "log") content = this.log.element;
    else if (name === "page") content = this.picture.element;
    else {
      const label = `${titleOf(name)}: arrow keys go from piece to piece, Enter goes to its setting`;
      this.panes[name] = this.earlier[name] ?? new OutputPane(label);
      content = this.panes[name].element;
    }
    const panel = element("div", { class: "panel", role: "tabpanel", id: panelId, "aria-labelledby": `tab-${name}`, hidden: true }, content);
    this.tabs.set(name, { button, panel, count });
  }

  /** Shows a tab. */
  show(name) {
    this.current = name;
    for (const [one, tab] of this.tabs) {
      const is = one === name;
      tab.button.setAttribute("aria-selected", String(is));
      tab.button.tabIndex = is ? 0 : -1;
      tab.panel.hidden = !is;
    }
    byId("copy-output").hidden = !(name in this.panes);
    this.panes[name]?.draw();
    if (name === "log") this.log.draw();
    this.picture.setVisible(name === "page");
  }

  /** Shows a change. */
  update(change) {
    for (const name in this.panes) {
      this.#updatePane(name, change);
      setText(this.tabs.get(name).count, this.panes[name].countText());
    }
    this.panes[this.current]?.draw();
    // With the frame's own layout rather than with one more.
    requestAnimationFrame(() => this.panes[this.current]?.showChange());
    this.log.take(change.state);
    const { troubles } = this.log;
    setText(this.tabs.get("log").count, troubles > 0 ? String(troubles) : "");
    if (this.current === "log") this.log.draw();
  }

  #updatePane(name, change) {
    const pane = this.panes[name];
    if (change.whole || change.outputs.has(name)) pane.take(this.context.store.outputs[name] ?? kNothing);
    else pane.settle();
  }

  /** Marks what a feature has written; scrolls to it unless the pane itself was clicked. */
  mark(owner, from) {
    for (const name in this.panes) this.panes[name].mark(owner, from !== "output" && name === this.current);
  }

  /** The outputs that a feature or a group has written to. */
  writtenBy(owner) {
    return Object.keys(this.panes).filter((name) => this.panes[name].has(owner));
  }

  /** The text of the output that is shown, as it goes to the printer. */
  currentText() {
    return this.context.store.outputs[this.current]?.text ?? "";
  }

  #listen() {
    byId("tabs").addEventListener("click", (event) => {
      const tab = event.target.closest("[data-tab]");
      if (tab) this.show(tab.dataset.tab);
    });
    byId("tabs").addEventListener("keydown", (event) => {
      const names = [...this.tabs.keys()];
      const at = names.indexOf(this.current);
      const next = { ArrowRight: at + 1, ArrowLeft: at - 1, Home: 0, End: names.length - 1 }[event.key];
      if (next === undefined) return;
      event.preventDefault();
      this.show(names[(next + names.length) % names.length]);
      this.tabs.get(this.current).button.focus();
    });
    const panels = byId("panels");
    panels.addEventListener("click", (event) => {
      const piece = event.target.closest("[data-owner]");
      // Selecting text to copy it is not a click on a piece.
      if (piece && document.getSelection().isCollapsed) this.context.select(piece.dataset.owner, "output");
    });
    panels.addEventListener("keydown", (event) => this.#key(event));
  }

  #key(event) {
    const pane = this.panes[this.current];
    if (!pane || event.target !== pane.element) return;
    if (event.key === "ArrowDown" || event.key === "ArrowUp") {
      const piece = pane.step(event.key === "ArrowDown" ? 1 : -1);
      if (piece) announce(`${this.context.store.textOf(piece.dataset.owner)}: ${piece.textContent.trim()}`);
      event.preventDefault();
    }
    if (event.key === "Enter") {
      const here = pane.element.querySelector(".is-here");
      if (here) this.context.select(here.dataset.owner, "output");
    }
  }
}
