// A few short choices, side by side.

import { element, freshId, setAttribute } from "./dom.js";

/** @param {import("./row.js").Row} row */
export function makeRadios(row) {
  const { feature } = row;
  const group = freshId("radio");
  const whole = element("div", { class: "radios", role: "radiogroup", "aria-labelledby": row.labelId });
  const inputs = feature.choices.map((choice) => {
    const input = element("input", { type: "radio", name: group, value: choice.name, class: "radio-box" });
    const label = element(
      "label",
      { class: "radio" },
      input,
      element("span", { text: choice.text || choice.name }),
    );
    whole.append(label);
    return input;
  });
  let current = "";
  const mark = () => {
    for (const input of inputs) input.checked = input.value === current;
  };
  return {
    element: whole,
    focusTarget: whole,
    focus: (options) => (inputs.find((input) => input.checked) ?? inputs.find((input) => !input.disabled))?.focus(options),
    update(view) {
      current = view.value;
      mark();
      for (const input of inputs) {
        const out = view.disabled !== undefined || (view.off[input.value] !== undefined && input.value !== current);
        input.disabled = out;
        input.parentElement.hidden = view.hidden.includes(input.value);
        input.parentElement.classList.toggle("changes-others", view.conflicts.includes(input.value));
      }
      setAttribute(whole, "aria-disabled", view.disabled !== undefined ? "true" : null);
    },
    note(view) {
      const lines = inputs
        .filter((input) => view.off[input.value] !== undefined && !input.parentElement.hidden)
        .map((input) => `${input.nextSibling.textContent}: ${view.off[input.value]}`);
      return lines.join(" ");
    },
    change(event) {
      const value = event.target.value;
      mark();
      row.choose(value);
    },
    pointed(target) {
      const label = target.closest(".radio");
      if (label) row.preview(label.firstChild.value, label);
    },
  };
}
