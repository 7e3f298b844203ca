// Runs before the first paint, so that a page in a chosen colour scheme never
// flashes in the other one. The rest of the page is made of modules.
(() => {
  let chosen = null;
  try {
    chosen = localStorage.getItem("driver-feature-colours");
  } catch {
    // Storage may be switched off: the system's scheme it is.
  }
  if (chosen === "light" || chosen === "dark") document.documentElement.dataset.theme = chosen;
})();
