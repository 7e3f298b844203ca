// A list of records as a table: each cell is the control itself, a change is sent with
// the whole record, and the server has the last word.

import { announce } from "./announce.js";
import { openChoices } from "./choices.js";
import { element, freshId, setText } from "./dom.js";

function makeCell(feature, text, value, label) {
  if (feature?.choices) {
    const choice = feature.choices.find((one) => one.name === value);
    return element("button", {
      class: "choice-button in-cell",
      type: "button",
      "aria-haspopup": "listbox",
      "aria-expanded": "false",
      "aria-label": `${label}: ${choice?.text || value}`,
      "data-value": value,
      text: choice?.text || value || "—",
    });
  }
  const isNumber = feature?.kind === "integer" || feature?.kind === "decimal";
  return element("input", {
    class: isNumber ? "number-input in-cell" : "text-input in-cell",
    type: feature?.secret ? "password" : "text",
    inputmode: isNumber ? (feature.kind === "integer" ? "numeric" : "decimal") : null,
    autocomplete: "off",
    spellcheck: "false",
    "aria-label": label,
    "data-value": value,
    value,
  });
}

/** The table of one group of records. */
export class RecordsTable {
  constructor(section, context) {
    this.section = section;
    this.context = context;
    this.#build();
    this.update();
  }

  #build() {
    const { store } = this.context;
    const { members, text, id } = this.section;
    this.body = element("tbody");
    const titles = members.map((name) => element("th", { scope: "col", text: store.textOf(name) }));
    this.tableId = freshId("records");
    const table = element(
      "table",
      { class: "records", "aria-label": text || id, id: this.tableId },
      element("thead", {}, element("tr", {}, ...titles, element("th", { scope: "col" }, element("span", { class: "visually-hidden", text: "Actions" })))),
      this.body,
    );
    const button = (act, label) => element("button", { class: "button small", type: "button", "data-record": act, text: label });
    this.problem = element("p", { class: "problem", role: "alert", hidden: true });
    this.empty = element("p", { class: "records-empty", text: "No entries yet." });
    this.buttons = element("div", { class: "records-buttons" }, button("add", "Add"), button("sort", "Sort"), button("clear", "Remove all"));
    this.element = element(
      "div",
      { class: "records-box" },
      element("section", { class: "records-scroll", tabindex: "0", "aria-label": text || id }, table),
      this.empty,
      this.problem,
      this.buttons,
    );
    this.element.addEventListener("click", (event) => this.#click(event));
    this.element.addEventListener("change", (event) => this.#typed(event.target));
    this.element.addEventListener("focusin", () => this.context.select(id, "dialog"));
  }

  #records() {
    return this.context.store.records[this.section.id] ?? [];
  }

  /** Shows the records that the store holds; the focus stays on its cell. */
  update() {
    const at = this.#focusedCell();
    const { store } = this.context;
    const rows = this.#records().map((values, index) => {
      const cells = this.section.members.map((name, column) => {
        const label = `${store.textOf(name)}, entry ${index + 1}`;
        return element("td", {}, makeCell(store.model.features[name], name, values[column] ?? "", label));
      });
      const remove = element("button", {
        class: "icon-button",
        type: "button",
        "data-record": "remove",
        "aria-label": `Remove entry ${index + 1}`,
        text: "✕",
      });
      return element("tr", {}, ...cells, element("td", { class: "records-act" }, remove));
    });
    this.body.replaceChildren(...rows);
    const none = rows.length === 0;
    this.empty.hidden = !none;
    this.element.firstChild.hidden = none;
    for (const button of this.buttons.children) button.hidden = none && button.dataset.record !== "add";
    if (at) this.#focusAgain(at);
  }

  #focusedCell() {
    const cell = document.activeElement?.closest?.("td");
    if (!cell || !this.body.contains(cell)) return null;
    const input = document.activeElement;
    // What is being typed is nobody's yet.
    const isTyped = input.localName === "input" && input.value !== input.dataset.value;
    return {
      row: cell.parentElement.rowIndex - 1,
      column: cell.cellIndex,
      typed: isTyped ? input.value : null,
      selection: input.localName === "input" ? [input.selectionStart, input.selectionEnd] : null,
    };
  }

  #focusAgain({ row, column, typed, selection }) {
    const cell = this.#cell(row, column);
    cell?.focus();
    if (cell?.localName !== "input") return;
    if (typed !== null) cell.value = typed;
    if (selection) cell.setSelectionRange(...selection);
  }

  #cell(row, column) {
    const line = this.body.rows[Math.min(row, this.body.rows.length - 1)];
    return line?.cells[column]?.firstElementChild ?? this.buttons.firstChild;
  }

  async #ask(request, said) {
    const reply = await this.context.changes.request({ do: "records", group: this.section.id, ...request });
    const refused = reply.ok === false;
    setText(this.problem, refused ? reply.problem : "");
    this.problem.hidden = !refused;
    // What the list holds is what counts, whatever was typed.
    if (refused) this.update();
    else announce([said, ...(reply.also ?? [])].join(". "));
    return !refused;
  }

  async #click(event) {
    const cell = event.target.closest(".choice-button");
    if (cell) {
      this.#openCell(cell);
      return;
    }
    const act = event.target.closest("[data-record]")?.dataset.record;
    const index = event.target.closest("tr")?.rowIndex - 1;
    if (act === "add") await this.#add();
    if (act === "sort") await this.#ask({ action: "sort" }, "Sorted");
    if (act === "clear" && (await this.#ask({ action: "clear" }, "All entries removed"))) this.buttons.firstChild.focus();
    if (act === "remove") await this.#ask({ action: "remove", index }, `Entry ${index + 1} removed`);
  }

  async #add() {
    const { store } = this.context;
    const values = this.section.members.map((name) => store.model.features[name]?.default ?? "");
    const before = this.#records().map((record) => record.join("\n"));
    if (!(await this.#ask({ action: "add", values }, "Entry added"))) return;
    // A list that is kept in order takes the new entry in where it belongs.
    const at = this.#records().findIndex((record, index) => record.join("\n") !== before[index]);
    this.#cell(at, 0)?.focus();
  }

  #openCell(button) {
    const { store } = this.context;
    const name = this.section.members[button.parentElement.cellIndex];
    openChoices(button, {
      label: store.textOf(name),
      choices: store.model.features[name].choices,
      value: button.dataset.value,
      off: store.off[name] ?? {},
      conflicts: [],
      plan: async () => null,
      describe: () => "",
      choose: (value) => {
        button.dataset.value = value;
        this.#sendRow(button);
      },
    });
  }

  #typed(input) {
    input.dataset.value = input.value.trim();
    this.#sendRow(input);
  }

  #sendRow(control) {
    const line = control.closest("tr");
    const values = this.section.members.map((name, column) => {
      const cell = line.cells[column].firstElementChild;
      // A secret that was not typed again is unchanged.
      const kept = this.context.store.model.features[name]?.secret && cell !== control;
      return kept ? null : cell.dataset.value;
    });
    const index = line.rowIndex - 1;
    return this.#ask({ action: "change", index, values }, `Entry ${index + 1} changed`);
  }
}
