// A number with its range and its steps. What is typed is sent as it is typed: the
// server judges it, in its own words.

import { element, setAttribute } from "./dom.js";

// A number that is typed counts when no key was pressed for this long.
const kPause = 450;

/** The step of a feature that has none of its own. */
export function stepOf(feature) {
  if (feature.step) return feature.step;
  if (feature.kind === "integer") return 1;
  const range = (feature.max ?? Infinity) - (feature.min ?? -Infinity);
  return range <= 50 ? 0.1 : 1;
}

/** A value one step further, inside the range, without the dust of binary fractions. */
export function stepped(feature, text, count) {
  const step = stepOf(feature);
  const now = Number.parseFloat(text);
  const from = Number.isFinite(now) ? now : Number(feature.default ?? feature.min ?? 0);
  const digits = (String(step).split(".")[1] ?? "").length;
  let next = from + count * step;
  if (feature.min !== undefined) next = Math.max(feature.min, next);
  if (feature.max !== undefined) next = Math.min(feature.max, next);
  const own = (String(from).split(".")[1] ?? "").length;
  return String(Number(next.toFixed(Math.max(digits, own))));
}

function rangeText(feature) {
  const { min, max } = feature;
  if (min !== undefined && max !== undefined) return `${min} to ${max}`;
  if (min !== undefined) return `at least ${min}`;
  if (max !== undefined) return `at most ${max}`;
  return feature.kind === "integer" ? "a whole number" : "a number";
}

/** Whether the page itself sees that a text is in range; only then is it sent unasked. */
function looksRight(feature, text) {
  if (!/^-?\d+(\.\d+)?$/.test(text)) return false;
  const number = Number(text);
  return !(number < feature.min || number > feature.max);
}

/** @param {import("./row.js").Row} row */
export function makeNumber(row) {
  const { feature } = row;
  const input = element("input", {
    class: "number-input",
    type: "text",
    role: "spinbutton",
    inputmode: feature.kind === "integer" ? "numeric" : "decimal",
    autocomplete: "off",
    spellcheck: "false",
    "aria-labelledby": row.labelId,
    "aria-valuemin": feature.min,
    "aria-valuemax": feature.max,
  });
  // The arrow keys do the same, so that these need no stop of the Tab key.
  const button = (step, sign, word) =>
    element("button", { class: "step", type: "button", tabindex: "-1", "data-step": step, "aria-hidden": "true", title: word, text: sign });
  const whole = element(
    "div",
    { class: "number" },
    element("span", { class: "stepper" }, button(-1, "−", "Less"), input, button(1, "+", "More")),
    element("span", { class: "range", text: rangeText(feature) }),
  );
  let current = "";
  let pause = null;
  let dirty = false;
  let disabled = false;
  const send = () => {
    clearTimeout(pause);
    if (!dirty) return;
    dirty = false;
    if (input.value.trim() !== current) row.choose(input.value.trim());
    else row.clearNotice();
  };
  const move = (count) => {
    if (disabled) return;
    input.value = stepped(feature, input.value, count);
    dirty = true;
    send();
  };
  return {
    element: whole,
    focusTarget: input,
    update(view) {
      current = view.value;
      disabled = view.disabled !== undefined;
      if (!dirty && !input.hasAttribute("aria-invalid")) input.value = view.value;
      setAttribute(input, "aria-valuenow", Number.isFinite(Number(view.value)) ? view.value : "0");
      setAttribute(input, "aria-valuetext", view.value || "none");
      input.readOnly = disabled;
      setAttribute(input, "aria-disabled", disabled ? "true" : null);
    },
    setRefused(is) {
      setAttribute(input, "aria-invalid", is ? "true" : null);
    },
    input() {
      dirty = true;
      clearTimeout(pause);
      if (looksRight(feature, input.value.trim())) pause = setTimeout(send, kPause);
    },
    change: send,
    click(event) {
      const step = event.target.closest("[data-step]");
      if (step) move(Number(step.dataset.step));
    },
    keydown(event) {
      const steps = { ArrowUp: 1, ArrowDown: -1, PageUp: 10, PageDown: -10 }[event.key];
      if (steps) move(steps);
      else if (event.key === "Enter") send();
      else if (event.key === "Escape" && (dirty || row.notice)) {
        dirty = false;
        row.clearNotice();
        input.value = current;
      } else return;
      event.preventDefault();
    },
  };
}
