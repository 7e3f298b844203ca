// One feature in the dialog: its label, its control, and what there is to say about
// it. A feature may have several rows: one in its section, one in a search's results.

import { announce } from "./announce.js";
import { changeList, inOneLine, otherChanges, reasonList } from "./consequences.js";
import { makeControl } from "./controls.js";
import { element, freshId, setAttribute, setText } from "./dom.js";
import { hideTip, showTip } from "./tip.js";

/** A row of the dialog. */
export class Row {
  /**
   * @param {string} name of the feature
   * @param {object} context store, changes and select
   */
  constructor(name, context) {
    this.name = name;
    this.context = context;
    this.feature = context.store.model.features[name];
    this.#build();
    this.update();
  }

  #build() {
    const { feature, name } = this;
    const text = feature.text || name;
    this.labelId = freshId("label");
    this.noteId = freshId("note");
    this.label = element("span", { class: "row-label", id: this.labelId, text });
    this.reset = element("button", { class: "reset", type: "button", "data-act": "reset", text: "Reset" });
    this.note = element("p", { class: "row-note", id: this.noteId, hidden: true });
    this.control = makeControl(this);
    this.notice = null;
    const head = element("div", { class: "row-head" }, this.label);
    if (text !== name) head.append(element("code", { class: "row-name", text: name, translate: "no" }));
    head.append(this.reset);
    this.element = element(
      "div",
      { class: "row", "data-feature": name },
      head,
      element("div", { class: "row-body" }, this.control.element),
      this.note,
    );
    this.element.row = this;
  }

  /** Gives it the focus: the choice made, of choices side by side. */
  focus(options) {
    if (this.control.focus) this.control.focus(options);
    else this.control.focusTarget.focus(options);
  }

  /** What the control needs to know. */
  view() {
    const { store } = this.context;
    return {
      value: store.values[this.name] ?? "",
      masked: store.masked.has(this.name),
      changed: store.changed.has(this.name),
      disabled: store.disabled[this.name],
      off: store.off[this.name] ?? {},
      conflicts: store.conflicts[this.name] ?? [],
      hidden: store.hiddenChoices[this.name] ?? [],
    };
  }

  /** Shows what the store holds now. */
  update() {
    const view = this.view();
    this.element.hidden = this.context.store.hidden.has(this.name);
    this.element.classList.toggle("is-changed", view.changed);
    this.element.classList.toggle("is-disabled", view.disabled !== undefined);
    this.reset.hidden = !view.changed || view.disabled !== undefined;
    if (view.changed) {
      const fallback = this.context.store.valueText(this.name, this.feature.default ?? "");
      const label = `Reset ${this.feature.text || this.name}${fallback ? ` to ${fallback}` : ""}`;
      setAttribute(this.reset, "aria-label", label);
      setAttribute(this.reset, "title", fallback ? `Back to ${fallback}` : "Back to the default");
    }
    this.control.update(view);
    this.#updateNote(view);
    if (this.shownFor !== undefined && this.shownFor !== view.value) this.clearNotice();
  }

  #updateNote(view) {
    const text = view.disabled !== undefined ? view.disabled || "Not available now." : this.control.note?.(view) ?? "";
    setText(this.note, text);
    this.note.hidden = text === "";
    setAttribute(this.control.focusTarget, "aria-describedby", text === "" ? null : this.noteId);
  }

  /** Takes what is said about the last choice away. */
  clearNotice() {
    this.notice?.remove();
    this.notice = null;
    this.shownFor = undefined;
    this.element.classList.remove("is-refused");
    this.control.setRefused?.(false);
  }

  /**
   * The user has chosen. Nothing changes before the server has agreed.
   * @param {string} value
   */
  async choose(value) {
    hideTip();
    this.clearNotice();
    const reply = await this.context.changes.set(this.name, value);
    if (reply.ok === false) {
      const plan = reply.plan;
      const mends = plan?.kind === "mended" && otherChanges(plan, this.name).length > 0;
      if (mends) this.#offer(value, plan);
      else this.refuse(reply.problem, plan);
      return;
    }
    this.#tellWhat(reply);
  }

  #tellWhat(reply) {
    const { store } = this.context;
    const text = `${this.feature.text || this.name}: ${store.valueText(this.name, store.values[this.name] ?? "")}`;
    announce([text, ...(reply.also ?? [])].join(". "));
  }

  #show(kind, ...children) {
    this.clearNotice();
    this.notice = element("div", { class: `notice notice-${kind}` }, ...children);
    this.shownFor = this.view().value;
    this.element.append(this.notice);
  }

  #offer(value, plan) {
    const { store } = this.context;
    const chosen = store.valueText(this.name, value);
    this.#show(
      "offer",
      element("p", { class: "notice-title", text: `“${chosen}” also changes` }),
      changeList(plan, this.name, store),
      ...reasonList(plan.reasons),
      element(
        "div",
        { class: "notice-buttons" },
        element("button", { class: "button small primary", type: "button", "data-act": "mend", text: "Change them" }),
        element("button", { class: "button small", type: "button", "data-act": "dismiss", text: "Keep as it is" }),
      ),
    );
    this.offered = value;
    announce(`${inOneLine(plan, this.name, store)}. Nothing has changed yet: choose "Change them".`);
  }

  /** Shows a refusal in the server's words. */
  refuse(problem, plan) {
    const reasons = (plan?.reasons ?? []).filter((reason) => !problem?.includes(reason));
    this.#show(
      "refused",
      element("p", { class: "notice-title", text: problem || "This was refused." }),
      ...reasonList(reasons),
    );
    this.element.classList.add("is-refused");
    this.control.setRefused?.(true);
    announce(`Refused: ${problem}`);
  }

  async #mend() {
    const value = this.offered;
    this.clearNotice();
    this.focus();
    const reply = await this.context.changes.set(this.name, value, "mend");
    if (reply.ok === false) this.refuse(reply.problem, reply.plan);
    else this.#tellWhat(reply);
  }

  /** A button of the row itself was pressed. */
  act(what) {
    if (what === "mend") this.#mend();
    if (what === "dismiss") {
      this.clearNotice();
      this.control.update(this.view());
      this.focus();
    }
    if (what === "reset") {
      this.focus();
      this.choose(this.feature.default ?? "");
    }
  }

  /**
   * The pointer or the focus is on a choice: says what it would change, if anything.
   * @param {string} value
   * @param {Element} near
   */
  async preview(value, near) {
    if (!this.view().conflicts.includes(value)) return;
    const text = inOneLine(await this.context.changes.plan(this.name, value), this.name, this.context.store);
    if (text && (near.matches(":hover") || near.matches(":focus-within"))) showTip(near, text);
  }
}
