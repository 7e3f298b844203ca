// Light, dark, or as the system has it.

import { byId } from "./dom.js";

const kKey = "driver-feature-colours";

function remember(theme) {
  try {
    if (theme === "system") localStorage.removeItem(kKey);
    else localStorage.setItem(kKey, theme);
  } catch {
    // The choice then lasts as long as the page.
  }
}

/** Connects the choice of colours. */
export function startTheme() {
  const select = byId("theme");
  select.value = document.documentElement.dataset.theme ?? "system";
  select.addEventListener("change", () => {
    if (select.value === "system") delete document.documentElement.dataset.theme;
    else document.documentElement.dataset.theme = select.value;
    remember(select.value);
  });
}
