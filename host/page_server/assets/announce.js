// Tells screen readers about changes that happen elsewhere on the page than
// where its reader is.

import { byId } from "./dom.js";

let waiting = null;

/**
 * Says a sentence. Sentences that come shortly after one another replace each other:
 * only the last state of things matters.
 * @param {string} text
 */
export function announce(text) {
  if (waiting) clearTimeout(waiting);
  waiting = setTimeout(() => {
    waiting = null;
    const live = byId("live");
    // The same sentence twice is not read twice unless the node changes.
    live.textContent = live.textContent === text ? `${text}\u00a0` : text;
  }, 120);
}
