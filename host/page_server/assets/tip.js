// A note beside what the pointer or the focus is on. It is not part of the layout, so
// that rows do not jump below the pointer.

import { announce } from "./announce.js";
import { byId, element } from "./dom.js";
import { placeBeside } from "./place_beside.js";

let tip = null;
let owner = null;

/**
 * Shows a text beside a node until the pointer or the focus leaves it.
 * @param {Element} near
 * @param {string} text
 */
export function showTip(near, text) {
  if (!tip) {
    tip = element("div", { class: "tip", role: "tooltip", id: "tip", popover: "manual" });
    byId("main").append(tip);
  }
  if (owner !== near) hideTip();
  tip.textContent = text;
  owner = near;
  near.addEventListener("pointerleave", hideTip, { once: true });
  near.addEventListener("focusout", hideTip, { once: true });
  tip.showPopover();
  placeBeside(tip, near, { gap: 6, sameWidth: false });
  // The pointer shows it; at the keyboard it is read.
  if (near.contains(document.activeElement)) announce(text);
}

/** Hides it. */
export function hideTip() {
  if (tip && owner) tip.hidePopover();
  owner = null;
}
