// Finding settings among many: by their texts, names and choices, or those that differ
// from their defaults. What is found is shown in place of the sections.

import { byId, element, setText } from "./dom.js";
import { Row } from "./row.js";

// More results than these are not built; a longer word finds fewer.
const kResults = 60;
// Choices of longer lists are not searched.
const kChoices = 60;

/** The search field, the filter "Changed", and their results. */
export class Search {
  constructor(context) {
    this.context = context;
    this.rows = [];
    this.haystack = null;
    this.field = byId("search");
    this.onlyChanged = byId("only-changed");
    this.field.addEventListener("input", () => this.#later());
    this.onlyChanged.addEventListener("change", () => this.show());
    this.field.addEventListener("keydown", (event) => {
      if (event.key !== "Escape" || this.field.value === "") return;
      this.field.value = "";
      this.show();
      event.preventDefault();
    });
    document.addEventListener("keydown", (event) => {
      const typing = event.target.closest?.("input, textarea, select, [role=listbox], dialog");
      if (event.key !== "/" || typing || event.ctrlKey || event.metaKey || event.altKey) return;
      event.preventDefault();
      this.field.focus();
      this.field.select();
    });
  }

  /** Back to the sections. */
  reset() {
    this.field.value = "";
    this.onlyChanged.checked = false;
    this.show();
  }

  /** The same search in a model that is new. */
  rebuild() {
    this.haystack = null;
    this.rows = [];
    this.show();
  }

  #later() {
    clearTimeout(this.pause);
    this.pause = setTimeout(() => this.show(), 60);
  }

  #hay() {
    if (this.haystack) return this.haystack;
    const { features } = this.context.store.model;
    // Columns of records have no value of their own.
    this.haystack = Object.entries(features).filter(([, feature]) => !feature.column).map(([name, feature]) => {
      const choices = feature.choices && feature.choices.length <= kChoices ? feature.choices : [];
      const label = `${feature.text ?? ""}\n${name}`.toLowerCase();
      return { name, label, all: [label, ...choices.map((one) => (one.text || one.name).toLowerCase())].join("\n") };
    });
    return this.haystack;
  }

  #found() {
    const { store } = this.context;
    const words = this.field.value.toLowerCase().split(/\s+/).filter(Boolean);
    const fits = (text) => words.every((word) => text.includes(word));
    const may = (one) => !store.hidden.has(one.name) && (!this.onlyChanged.checked || store.changed.has(one.name));
    const found = this.#hay().filter((one) => may(one) && fits(one.all));
    // Those whose own name has the words come first.
    const byLabel = found.filter((one) => fits(one.label));
    return [...byLabel, ...found.filter((one) => !byLabel.includes(one))];
  }

  /** Shows the results of what is typed, or the sections when nothing is. */
  show() {
    const results = byId("results");
    const focused = results.contains(document.activeElement) ? document.activeElement.closest("[data-feature]") : null;
    for (const row of this.rows) this.context.rows.drop(row);
    this.rows = [];
    const active = this.field.value.trim() !== "" || this.onlyChanged.checked;
    results.hidden = !active;
    byId("sections").hidden = active;
    if (!active) {
      results.replaceChildren();
      return;
    }
    const found = this.#found();
    this.rows = found.slice(0, kResults).map((one) => new Row(one.name, this.context));
    const heading = element("p", { class: "results-head", role: "status", text: this.#heading(found.length) });
    const body = element("div", { class: "section-body" }, ...this.rows.map((row) => this.context.rows.add(row)));
    results.lang = this.context.store.model.language ?? "";
    results.replaceChildren(heading, ...(found.length > 0 ? [element("div", { class: "section" }, body)] : []));
    this.rows.find((row) => row.name === focused?.dataset.feature)?.focus({ preventScroll: true });
  }

  // Rows that have been reset meanwhile stay where they are, so that nothing jumps.
  #addChanged(change) {
    const { store } = this.context;
    const there = new Set(this.rows.map((row) => row.name));
    const isNew = (name) => store.changed.has(name) && !there.has(name);
    if (change.whole || [...change.features].some(isNew)) this.show();
  }

  /** After a change: the counter, and what else is changed now. */
  update(change) {
    const { store } = this.context;
    setText(byId("changed-count"), String(store.changed.size));
    if (this.onlyChanged.checked) this.#addChanged(change);
    if (!change.whole) return;
    const count = Object.entries(store.model.features).filter(([name, one]) => !one.column && !store.hidden.has(name)).length;
    this.field.placeholder = `Search ${count} settings`;
  }

  #heading(found) {
    const words = this.field.value.trim();
    if (found > this.rows.length) return `${found} found; the first ${this.rows.length} are shown.`;
    if (found > 0) return found === 1 ? "1 setting" : `${found} settings`;
    if (this.onlyChanged.checked) return words ? "No changed setting has these words." : "All settings have their default values.";
    return "No setting and no choice has these words.";
  }
}
