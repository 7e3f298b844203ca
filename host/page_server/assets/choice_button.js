// A list as a button that shows the choice made; pressing it opens the choices.

import { openChoices } from "./choices.js";
import { element, freshId, setAttribute, setText } from "./dom.js";

/** @param {import("./row.js").Row} row */
export function makeChoiceButton(row) {
  const { feature } = row;
  const valueId = freshId("value");
  const value = element("span", { class: "choice-value", id: valueId });
  const button = element(
    "button",
    {
      class: "choice-button",
      type: "button",
      "aria-haspopup": "listbox",
      "aria-expanded": "false",
      "aria-labelledby": `${row.labelId} ${valueId}`,
    },
    value,
  );
  let view = { value: "", off: {}, conflicts: [], hidden: [] };
  const open = () => {
    if (button.getAttribute("aria-disabled") === "true") return;
    openChoices(button, {
      label: feature.text || row.name,
      choices: view.hidden.length > 0 ? feature.choices.filter((one) => !view.hidden.includes(one.name)) : feature.choices,
      value: view.value,
      off: view.off,
      conflicts: view.conflicts,
      plan: (choice) => row.context.changes.plan(row.name, choice),
      describe: (plan) => row.context.describe(plan, row.name),
      choose: (choice) => {
        if (choice !== view.value) row.choose(choice);
        else row.clearNotice();
      },
    });
  };
  return {
    element: button,
    focusTarget: button,
    update(next) {
      view = next;
      setText(value, row.context.store.valueText(row.name, next.value) || "—");
      setAttribute(button, "aria-disabled", next.disabled !== undefined ? "true" : null);
    },
    click: open,
    keydown(event) {
      if (event.key !== "ArrowDown" && event.key !== "ArrowUp") return;
      event.preventDefault();
      open();
    },
  };
}
