// A list of two choices that mean on and off.

import { element, setAttribute, setText } from "./dom.js";

/** @param {import("./row.js").Row} row */
export function makeSwitch(row) {
  const { feature } = row;
  const box = element("input", {
    type: "checkbox",
    role: "switch",
    class: "switch-box",
    "aria-labelledby": row.labelId,
  });
  const text = element("span", { class: "switch-text", "aria-hidden": "true" });
  const whole = element("label", { class: "switch" }, box, element("span", { class: "switch-track" }), text);
  const other = () => (box.dataset.value === feature.on ? feature.off : feature.on);
  const reason = (view) => view.off[view.value === feature.on ? feature.off : feature.on];
  return {
    element: whole,
    focusTarget: box,
    update(view) {
      box.checked = view.value === feature.on;
      box.dataset.value = view.value;
      const fixed = view.disabled !== undefined || reason(view) !== undefined;
      setAttribute(box, "aria-disabled", fixed ? "true" : null);
      setText(text, row.context.store.valueText(row.name, view.value));
      whole.classList.toggle("changes-others", view.conflicts.includes(other()));
    },
    note: (view) => reason(view) ?? "",
    change() {
      const value = box.checked ? feature.on : feature.off;
      // The mark follows the server, not the click: the change may be refused.
      box.checked = box.dataset.value === feature.on;
      if (box.getAttribute("aria-disabled") !== "true") row.choose(value);
    },
    pointed: () => row.preview(other(), whole),
  };
}
