// Which control suits a feature. Each control has:
//   element      what goes into the row
//   focusTarget  what takes the focus
//   update(view) shows a state
//   note(view)   what is below it (may be missing)
//   setRefused   marks what was typed as refused (may be missing)
// and handles the row's events with change, click, keydown and input where it has them.

import { makeChoiceButton } from "./choice_button.js";
import { element } from "./dom.js";
import { makeNumber } from "./number_control.js";
import { makeRadios } from "./radio_control.js";
import { makeSwitch } from "./switch_control.js";
import { makeText } from "./text_control.js";

// More or longer choices than these go into a list of their own.
const kRadioChoices = 4;
const kRadioLetters = 34;

/** Whether all choices fit side by side. */
export function fitsRadios(choices) {
  if (choices.length > kRadioChoices) return false;
  let letters = 0;
  for (const choice of choices) letters += (choice.text || choice.name).length + 2;
  return letters <= kRadioLetters;
}

/** What has a value to show and nothing to choose. */
function makeShown(row) {
  const shown = element("output", { class: "shown", tabindex: "-1", "aria-labelledby": row.labelId });
  return {
    element: shown,
    focusTarget: shown,
    update(view) {
      shown.textContent = view.value || "Set by the printer";
    },
  };
}

/**
 * Makes the control of a row.
 * @param {import("./row.js").Row} row
 */
export function makeControl(row) {
  const { feature } = row;
  switch (feature.kind) {
    case "switch":
      return makeSwitch(row);
    case "list":
      return fitsRadios(feature.choices) ? makeRadios(row) : makeChoiceButton(row);
    case "integer":
    case "decimal":
      return makeNumber(row);
    case "text":
      return makeText(row);
    default:
      return makeShown(row);
  }
}
