// One section of the dialog. What is in it is built when it opens for the first time,
// so that a description with ten thousand features costs little until then.

import { element, setText } from "./dom.js";
import { RecordsTable } from "./records.js";
import { Row } from "./row.js";

// A section with more members than this is cut into parts.
const kMembersAtOnce = 100;

/** A section, or a part of a long one. */
export class Section {
  /**
   * @param {object} described id, text, kind, members as in the model
   * @param {object} context store, changes, rows (the registry)
   * @param {boolean} open at first
   */
  constructor(described, context, open) {
    this.described = described;
    this.context = context;
    this.built = false;
    this.parts = [];
    this.inner = [];
    this.#build(open);
  }

  #build(open) {
    const { kind, text, id, members } = this.described;
    this.body = element("div", { class: "section-body" });
    this.badge = element("span", { class: "section-badge", hidden: true });
    this.count = element("span", { class: "section-count", text: kind === "records" ? "list" : String(members.length), "aria-hidden": "true" });
    const level = this.described.level ?? 3;
    const summary = element(
      "summary",
      { class: "section-head" },
      element(`h${level}`, { class: "section-title", text: text || id || "Settings" }),
      this.badge,
      this.count,
    );
    this.element = element("details", { class: `section section-${kind}`, "data-section": id }, summary, this.body);
    this.element.section = this;
    this.element.addEventListener("toggle", () => {
      if (this.element.open) this.fill();
    });
    if (open) {
      this.element.open = true;
      this.fill();
    }
  }

  /** Builds what is inside, once. */
  fill() {
    if (this.built) return;
    this.built = true;
    if (this.described.kind === "records") this.#fillRecords();
    else if (this.described.members.length > kMembersAtOnce) this.#fillParts();
    else this.#fillRows();
    for (const section of this.inner) this.body.append(section.element);
  }

  #fillRecords() {
    this.table = new RecordsTable(this.described, this.context);
    this.body.append(this.table.element);
  }

  #fillRows() {
    const rows = document.createDocumentFragment();
    for (const name of this.described.members) rows.append(this.context.rows.add(new Row(name, this.context)));
    this.body.append(rows);
  }

  #fillParts() {
    const { members, level } = this.described;
    const { store } = this.context;
    for (let from = 0; from < members.length; from += kMembersAtOnce) {
      const some = members.slice(from, from + kMembersAtOnce);
      const text = `${store.textOf(some[0])} – ${store.textOf(some.at(-1))}`;
      const part = new Section(
        { id: "", text, kind: "part", members: some, level: Math.min(6, (level ?? 3) + 1) },
        this.context,
        false,
      );
      this.parts.push(part);
      this.body.append(part.element);
    }
    this.updateBadges();
  }

  /** A section inside of this one. */
  adopt(section) {
    this.inner.push(section);
    if (this.built) this.body.append(section.element);
  }

  /** Opens it and builds it without waiting for the browser's own event. */
  open() {
    this.element.open = true;
    this.fill();
  }

  /** Opens the part with a member. */
  openFor(name) {
    this.open();
    this.parts.find((part) => part.described.members.includes(name))?.open();
  }

  /** How many of its features differ from their defaults, beside its title. */
  updateBadges() {
    const { changed, hidden } = this.context.store;
    const { members, kind } = this.described;
    const count = changed.size > 0 ? members.filter((name) => changed.has(name)).length : 0;
    setText(this.badge, count > 0 ? `${count} changed` : "");
    this.badge.hidden = count === 0;
    const out = hidden.size > 0 ? members.filter((name) => hidden.has(name)).length : 0;
    // A section with nothing to see is none.
    this.element.hidden = kind !== "records" && out === members.length && this.inner.length === 0;
    if (kind !== "records") setText(this.count, String(members.length - out));
    for (const part of this.parts) part.updateBadges();
  }
}
