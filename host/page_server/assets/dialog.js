// The left side: sections with rows, presets, search. One set of listeners serves all
// rows.

import { announce } from "./announce.js";
import { close as closeChoices } from "./choices.js";
import { changeList, reasonList } from "./consequences.js";
import { byId, element } from "./dom.js";
import { Search } from "./search.js";
import { Section } from "./section.js";

// With more features than this all sections are closed at first.
const kOpenAtFirst = 200;

/** The rows that are there, by feature. */
class Rows {
  constructor() {
    this.byName = new Map();
  }

  add(row) {
    if (!this.byName.has(row.name)) this.byName.set(row.name, new Set());
    this.byName.get(row.name).add(row);
    return row.element;
  }

  drop(row) {
    this.byName.get(row.name)?.delete(row);
  }

  clear() {
    this.byName.clear();
  }

  update(names) {
    for (const name of names) for (const row of this.byName.get(name) ?? []) row.update();
  }

  all() {
    return this.byName.keys();
  }

  /** The row that is on the page for a feature; in a search, the one in its results. */
  visible(name) {
    return [...(this.byName.get(name) ?? [])].find((row) => row.element.checkVisibility?.() ?? true);
  }
}

/** The dialog. */
export class Dialog {
  /** @param {object} context store, changes, describe, select; gets "rows" */
  constructor(context) {
    this.context = context;
    context.rows = new Rows();
    this.sections = new Map();
    this.search = new Search(context);
    this.#listen();
  }

  /**
   * Builds it for a model that is new. Sections that were open stay open; the search, the
   * place that is in sight and the focus stay.
   */
  build() {
    const { store, rows } = this.context;
    const { sections, features } = store.model;
    closeChoices();
    const wasOpen = new Map([...this.sections].map(([id, section]) => [id, section.element.open]));
    const focused = document.activeElement.closest?.("#sections [data-feature], #results [data-feature]");
    const seen = rowInSight();
    rows.clear();
    this.sections.clear();
    const openAtFirst = Object.keys(features).length <= kOpenAtFirst;
    const top = document.createDocumentFragment();
    let unnamed = 0;
    for (const one of sections) {
      const key = `${one.kind}:${one.id || ++unnamed}`;
      const outer = one.outer ? this.#byId(one.outer) : null;
      const described = { ...one, text: titleOf(one, unnamed), level: outer ? Math.min(6, (outer.described.level ?? 3) + 1) : 3 };
      const section = new Section(described, this.context, wasOpen.get(key) ?? openAtFirst);
      this.sections.set(key, section);
      if (outer) outer.adopt(section);
      else top.append(section.element);
    }
    byId("sections").replaceChildren(top);
    byId("sections").lang = store.model.language ?? "";
    this.#buildPresets();
    this.homes = null;
    this.search.rebuild();
    if (seen) bringBack(rows.visible(seen.name), seen.top, kFrames);
    if (focused) rows.visible(focused.dataset.feature)?.focus({ preventScroll: true });
  }

  #byId(id) {
    return [...this.sections.values()].find((section) => section.described.id === id && section.described.kind !== "records");
  }

  #buildPresets() {
    const buttons = byId("preset-buttons");
    const { presets } = this.context.store.model;
    const { preset: focused } = buttons.contains(document.activeElement) ? document.activeElement.dataset : {};
    buttons.replaceChildren(
      element("button", { class: "chip", type: "button", "data-preset": "", text: "Defaults" }),
      ...(presets ?? []).map((preset) =>
        element("button", { class: "chip", type: "button", "data-preset": preset.name, text: preset.text || preset.name }),
      ),
    );
    if (focused !== undefined) this.#focusPreset(focused);
  }

  /** Shows a change. */
  update(change) {
    const { rows } = this.context;
    this.presetNotice?.remove();
    rows.update(change.whole ? rows.all() : change.features);
    for (const section of this.sections.values()) {
      section.updateBadges();
      const { kind, id } = section.described;
      if (section.table && kind === "records" && (change.whole || change.groups.has(id))) section.table.update();
    }
    this.search.update(change);
  }

  #sectionOf(name) {
    if (!this.homes) {
      this.homes = new Map();
      for (const section of this.sections.values()) {
        for (const member of section.described.members) this.homes.set(member, section);
      }
    }
    return this.homes.get(name) ?? [...this.sections.values()].find((section) => section.described.id === name);
  }

  /**
   * Opens and shows what has a name: a feature, or a group.
   * @returns {boolean} false when it is not in the dialog
   */
  reveal(name) {
    const section = this.#sectionOf(name);
    if (!section) return false;
    let row = this.context.rows.visible(name);
    if (!row) {
      this.search.reset();
      for (let outer = section; outer; outer = outer.described.outer ? this.#byId(outer.described.outer) : null) outer.open();
      section.openFor(name);
      row = this.context.rows.visible(name);
    }
    const target = row?.element ?? section.element;
    target.scrollIntoView({ block: "center" });
    if (row) row.focus({ preventScroll: true });
    else section.element.firstChild.focus({ preventScroll: true });
    return true;
  }

  /** Marks the rows of the feature that is looked at. */
  mark(name) {
    for (const marked of document.querySelectorAll(".row.is-selected")) marked.classList.remove("is-selected");
    for (const row of this.context.rows.byName.get(name) ?? []) row.element.classList.add("is-selected");
  }

  #listen() {
    const root = byId("settings");
    const passOn = (type) => {
      root.addEventListener(type, (event) => {
        const row = event.target.closest?.("[data-feature]")?.row;
        const act = type === "click" ? event.target.closest("[data-act]") : null;
        if (act && row) row.act(act.dataset.act);
        else if (row?.control.element.contains(event.target)) row.control[type]?.(event);
      });
    };
    for (const type of ["click", "change", "input", "keydown"]) passOn(type);
    for (const type of ["pointerover", "focusin"]) {
      root.addEventListener(type, (event) => {
        const row = event.target.closest?.("[data-feature]")?.row;
        if (!row) return;
        if (row.control.element.contains(event.target)) row.control.pointed?.(event.target);
        if (type === "focusin") this.context.select(row.name, "dialog");
      });
    }
    byId("preset-buttons").addEventListener("click", (event) => {
      const chip = event.target.closest("[data-preset]");
      if (chip) this.#usePreset(chip.dataset.preset, chip.textContent);
    });
  }

  async #usePreset(name, text) {
    this.presetNotice?.remove();
    const request = name === "" ? { do: "reset" } : { do: "preset", name, conduct: "refuse" };
    const reply = await this.context.changes.request(request);
    if (reply.ok !== false) announce([`${text} set`, ...(reply.also ?? [])].join(". "));
    else if (reply.plan?.kind === "mended") this.#offerPreset(name, text, reply.plan);
    else this.context.complain(`${text}: ${reply.problem}`);
  }

  #focusPreset(name) {
    byId("preset-buttons").querySelector(`[data-preset="${CSS.escape(name)}"]`)?.focus();
  }

  // What was shown comes first, so that the preset then goes with the other settings.
  async #mendForPreset(name, text, plan) {
    this.#focusPreset(name);
    const settings = plan.changes.map((change) => [change.feature, change.to]);
    const reply = await this.context.changes.request({ do: "set", settings, conduct: "mend" });
    if (reply.ok === false) this.context.complain(`${text}: ${reply.problem}`);
    else await this.#usePreset(name, text);
  }

  // A preset that conflicts with other settings asks first, as a choice does.
  #offerPreset(name, text, plan) {
    const button = (label, kind, act) => {
      const made = element("button", { class: `button small ${kind}`, type: "button", text: label });
      made.addEventListener("click", () => {
        this.presetNotice.remove();
        act();
      });
      return made;
    };
    this.presetNotice = element(
      "div",
      { class: "notice notice-offer" },
      element("p", { class: "notice-title", text: `“${text}” conflicts with other settings. It would change:` }),
      changeList(plan, "", this.context.store),
      ...reasonList(plan.reasons),
      element(
        "div",
        { class: "notice-buttons" },
        button("Change them", "primary", () => this.#mendForPreset(name, text, plan)),
        button("Keep as it is", "", () => this.#focusPreset(name)),
      ),
    );
    byId("presets").after(this.presetNotice);
    announce(`${text} conflicts with other settings. Nothing has changed yet: choose "Change them".`);
  }
}

// Below the head of a section, which stays at the top.
const kBelowHead = 80;

/** The row at the top of what is seen, and where. */
function rowInSight() {
  const box = [byId("sections"), byId("results")].find((one) => one.scrollTop > 0);
  if (!box) return null;
  const { left, width, top } = box.getBoundingClientRect();
  const row = document.elementFromPoint(left + width / 2, top + kBelowHead)?.closest("[data-feature]");
  return row && { name: row.dataset.feature, top: row.getBoundingClientRect().top };
}

// Rows have their own heights only once the browser has drawn them.
const kFrames = 3;

function bringBack(row, top, frames) {
  const box = row?.element.closest(".sections");
  if (!box?.isConnected) return;
  box.scrollTop += row.element.getBoundingClientRect().top - top;
  if (frames > 1) requestAnimationFrame(() => bringBack(row, top, frames - 1));
}

function titleOf(section, unnamed) {
  if (section.text) return section.text;
  if (section.id) return section.id;
  if (section.kind === "hardware") return "Installed hardware";
  return unnamed <= 1 ? "General" : "More settings";
}
