// Narrow windows show one side at a time, and links for the keyboard lead to each.

import { byId } from "./dom.js";

/**
 * Connects the switch between the sides.
 * @param {object} context gets "showView"
 */
export function startViews(context) {
  const buttons = { settings: byId("view-settings"), output: byId("view-output") };
  context.showView = (view) => {
    byId("main").dataset.view = view;
    for (const name in buttons) buttons[name].setAttribute("aria-pressed", String(name === view));
  };
  for (const name in buttons) buttons[name].addEventListener("click", () => context.showView(name));
  for (const link of document.querySelectorAll("a.skip")) {
    link.addEventListener("click", (event) => {
      // The address holds the settings; a link must not put its target there.
      event.preventDefault();
      const target = link.getAttribute("href").slice(1);
      context.showView(target);
      byId(target).focus();
    });
  }
}
