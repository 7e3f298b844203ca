// A text with its length and its characters; a PIN is masked.

import { element, setAttribute, setText } from "./dom.js";

const kRanges = ["AZ", "az", "09"];

/**
 * Characters in a short form: letters and digits as ranges where all are there, then
 * the others.
 * @param {string} allowed
 */
export function rangesOf(allowed) {
  const left = new Set(allowed);
  const parts = [];
  for (const [first, last] of kRanges) {
    const all = [];
    for (let code = first.charCodeAt(0); code <= last.charCodeAt(0); ++code) all.push(String.fromCharCode(code));
    if (!all.every((letter) => left.has(letter))) continue;
    parts.push(`${first}–${last}`);
    for (const letter of all) left.delete(letter);
  }
  const blank = left.delete(" ") ? ["blank"] : [];
  return [...parts, ...blank, ...left].join(" ");
}

function hintOf(feature) {
  const length = feature.maxLength ? `Up to ${feature.maxLength} characters` : "";
  const allowed = feature.allowed ? rangesOf(feature.allowed) : "";
  if (length && allowed) return `${length}: ${allowed}`;
  return length || (allowed ? `Allowed: ${allowed}` : "");
}

function makeEye(input, row) {
  const eye = element("button", {
    class: "eye",
    type: "button",
    "data-eye": true,
    "aria-pressed": "false",
    "aria-label": `Show what is typed: ${row.feature.text || row.name}`,
    text: "Show",
  });
  eye.toggle = () => {
    const shown = input.type === "password";
    input.type = shown ? "text" : "password";
    eye.setAttribute("aria-pressed", String(shown));
    eye.textContent = shown ? "Hide" : "Show";
  };
  return eye;
}

/** @param {import("./row.js").Row} row */
export function makeText(row) {
  const { feature } = row;
  const input = element("input", {
    class: "text-input",
    type: feature.secret ? "password" : "text",
    autocomplete: "off",
    spellcheck: "false",
    autocapitalize: "off",
    "aria-labelledby": row.labelId,
  });
  const count = element("span", { class: "text-count", "aria-hidden": "true", hidden: !feature.maxLength });
  const eye = feature.secret ? makeEye(input, row) : null;
  const whole = element("div", { class: "text" }, input, count, ...(eye ? [eye] : []));
  let current = "";
  let dirty = false;
  const showCount = () => setText(count, `${input.value.length}/${feature.maxLength}`);
  const send = () => {
    if (!dirty) return;
    dirty = false;
    if (input.value !== current || feature.secret) row.choose(input.value);
    else row.clearNotice();
  };
  return {
    element: whole,
    focusTarget: input,
    update(view) {
      current = view.value;
      // What was refused stays to be mended.
      if (!dirty && !input.hasAttribute("aria-invalid")) input.value = view.value;
      input.placeholder = view.masked ? "••••" : "";
      input.readOnly = view.disabled !== undefined;
      setAttribute(input, "aria-disabled", input.readOnly ? "true" : null);
      if (eye) eye.hidden = input.readOnly;
      // Nobody knows how long a secret is that is masked.
      count.hidden = !feature.maxLength || (view.masked && input.value === "");
      showCount();
    },
    note: () => hintOf(feature),
    setRefused(is) {
      setAttribute(input, "aria-invalid", is ? "true" : null);
    },
    input() {
      dirty = true;
      count.hidden = !feature.maxLength;
      showCount();
    },
    change: send,
    click(event) {
      if (event.target.closest("[data-eye]")) eye.toggle();
    },
    keydown(event) {
      if (event.key === "Enter") send();
      else if (event.key === "Escape" && (dirty || row.notice)) {
        dirty = false;
        row.clearNotice();
        input.value = current;
        showCount();
        event.preventDefault();
      }
    },
  };
}
