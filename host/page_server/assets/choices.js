// The list of choices that a button opens: one for the whole page, filled when it
// opens, so that a dialog with thousands of lists stays light. The list is searchable
// when it is long. Choices that are taken out stay in it, with the reason.

import { byId, element, freshId } from "./dom.js";
import { placeBeside } from "./place_beside.js";

// Longer lists get a field to search in.
const kSearchable = 12;
// Choices in one block: the browser skips blocks that are out of sight.
const kBlock = 50;
// How long a closed list keeps its choices.
const kEmptied = 400;
// A pause after which letters typed into a short list begin a new word.
const kTypingPause = 700;

let shown = null;

/**
 * @param {HTMLElement} button that opens it
 * @param {object} offer label, choices, value, off, conflicts, plan, describe, choose
 */
export function openChoices(button, offer) {
  const again = shown?.button === button;
  close();
  if (again) return;
  shown = { button, offer, active: null, typed: "", typedAt: 0 };
  fill();
  const box = byId("choices");
  box.showPopover();
  placeBeside(box, button, { gap: 4, sameWidth: true });
  button.setAttribute("aria-expanded", "true");
  (shown.search ?? shown.list).focus();
  const first = shown.options.find((option) => option.dataset.value === offer.value) ?? shown.options[0];
  if (first) activate(first, "center");
}

/** Closes it, and gives the focus back when it had it. */
export function close() {
  if (!shown) return;
  const { button } = shown;
  const box = byId("choices");
  const hadFocus = box.contains(document.activeElement);
  shown = null;
  box.hidePopover();
  // Thousands of nodes go when there is time, not between a click and its result.
  setTimeout(() => {
    if (!shown) box.replaceChildren();
  }, kEmptied);
  button.setAttribute("aria-expanded", "false");
  if (hadFocus && button.isConnected) button.focus({ preventScroll: true });
}

function makeOption(choice) {
  const { offer } = shown;
  const reason = offer.off[choice.name];
  const selected = choice.name === offer.value;
  const option = element(
    "div",
    {
      class: "option",
      role: "option",
      id: freshId("option"),
      "aria-selected": String(selected),
      "aria-disabled": reason !== undefined ? "true" : null,
      "data-value": choice.name,
    },
    element("span", { class: "option-text", text: choice.text || choice.name }),
  );
  if (reason !== undefined) option.append(element("span", { class: "option-reason", text: reason || "Not available now." }));
  else if (shown.changing.has(choice.name)) option.append(element("span", { class: "option-mark", text: "changes others" }));
  return option;
}

function fill() {
  const { offer } = shown;
  shown.changing = new Set(offer.conflicts);
  const listId = freshId("choices");
  byId("choices").lang = byId("sections").lang;
  shown.list = element("div", { class: "option-list", role: "listbox", id: listId, "aria-label": offer.label, tabindex: "-1" });
  shown.options = offer.choices.map(makeOption);
  shown.words = offer.choices.map((choice) => `${choice.text ?? ""}\n${choice.name}`.toLowerCase());
  for (let from = 0; from < shown.options.length; from += kBlock) {
    shown.list.append(element("div", { class: "option-block", role: "none" }, ...shown.options.slice(from, from + kBlock)));
  }
  shown.foot = element("p", { class: "option-foot", role: "status", hidden: true });
  const parts = [shown.list, shown.foot];
  if (offer.choices.length > kSearchable) {
    shown.search = element("input", {
      class: "option-search",
      type: "search",
      role: "combobox",
      "aria-expanded": "true",
      "aria-controls": listId,
      "aria-autocomplete": "list",
      "aria-label": `Search ${offer.choices.length} choices of ${offer.label}`,
      placeholder: `Search ${offer.choices.length} choices`,
      autocomplete: "off",
      spellcheck: "false",
    });
    shown.search.addEventListener("input", narrow);
    parts.unshift(shown.search);
  }
  byId("choices").replaceChildren(...parts);
}

function narrow() {
  const words = shown.search.value.toLowerCase().split(/\s+/).filter(Boolean);
  let first = null;
  let count = 0;
  shown.options.forEach((option, at) => {
    const fits = words.every((word) => shown.words[at].includes(word));
    option.hidden = !fits;
    if (!fits) return;
    ++count;
    first ??= option;
  });
  activate(first);
  if (count === 0) showFoot("No choice has these letters.");
}

function showFoot(text) {
  shown.foot.textContent = text;
  shown.foot.hidden = text === "";
}

function activate(option, block = "nearest") {
  shown.active?.classList.remove("is-active");
  shown.active = option;
  const holder = shown.search ?? shown.list;
  if (!option) {
    holder.removeAttribute("aria-activedescendant");
    return;
  }
  option.classList.add("is-active");
  holder.setAttribute("aria-activedescendant", option.id);
  option.scrollIntoView({ block });
  foretell(option);
}

// Says what the choice would change before it is made.
async function foretell(option) {
  const mine = shown;
  const { offer } = mine;
  const value = option.dataset.value;
  showFoot("");
  if (!mine.changing.has(value)) return;
  const text = offer.describe(await offer.plan(value));
  if (shown === mine && mine.active === option && text) showFoot(text);
}

function choose(option) {
  if (!option || option.getAttribute("aria-disabled") === "true") return;
  const { offer } = shown;
  // The server works while the list closes.
  offer.choose(option.dataset.value);
  close();
}

function move(count) {
  const open = shown.options.filter((option) => !option.hidden);
  if (open.length === 0) return;
  const at = open.indexOf(shown.active);
  activate(open[Math.min(open.length - 1, Math.max(0, at + count))]);
}

// Letters typed into a short list go to the next choice that begins with them.
function typeAhead(letter) {
  const now = performance.now();
  const fresh = now - shown.typedAt > kTypingPause;
  shown.typed = (fresh ? "" : shown.typed) + letter.toLowerCase();
  shown.typedAt = now;
  const at = shown.options.indexOf(shown.active);
  const from = shown.typed.length === 1 ? at + 1 : at;
  for (let step = 0; step < shown.options.length; ++step) {
    const option = shown.options[(from + step) % shown.options.length];
    if (option.firstChild.textContent.toLowerCase().startsWith(shown.typed)) {
      activate(option);
      return;
    }
  }
}

function onKey(event) {
  if (!shown) return;
  const moves = { ArrowDown: 1, ArrowUp: -1, PageDown: 10, PageUp: -10 };
  if (!shown.search) Object.assign(moves, { Home: -Infinity, End: Infinity });
  if (event.key in moves) move(moves[event.key]);
  else if (event.key === "Enter" || (event.key === " " && !shown.search)) choose(shown.active);
  else if (event.key === "Escape") close();
  else if (event.key === "Tab") {
    close();
    return;
  } else if (!shown.search && event.key.length === 1 && !event.ctrlKey && !event.metaKey) typeAhead(event.key);
  else return;
  event.preventDefault();
}

// The page below has been scrolled: the list stays at its button while that is in sight.
function follow(box) {
  const around = shown.button.getBoundingClientRect();
  if (around.bottom < 0 || around.top > window.innerHeight) close();
  else placeBeside(box, shown.button, { gap: 4, sameWidth: true });
}

/** Connects the list; called once. */
export function startChoices() {
  const box = byId("choices");
  box.addEventListener("keydown", onKey);
  box.addEventListener("click", (event) => choose(event.target.closest(".option")));
  box.addEventListener("pointermove", (event) => {
    const option = event.target.closest(".option");
    if (option && shown && option !== shown.active) activate(option);
  });
  document.addEventListener("pointerdown", (event) => {
    if (shown && !box.contains(event.target) && !shown.button.contains(event.target)) close();
  });
  window.addEventListener("resize", close);
  document.addEventListener(
    "scroll",
    (event) => {
      if (shown && event.target instanceof Node && !box.contains(event.target)) follow(box);
    },
    true,
  );
}
