// Puts the parts of the page together: loads the model and the state, and leads what
// comes in later to the parts that show it.

import { Address } from "./address.js";
import { announce } from "./announce.js";
import { hideBanner, showBanner, showConnection } from "./banners.js";
import { Changes } from "./changes.js";
import { startChoices } from "./choices.js";
import { inOneLine } from "./consequences.js";
import { Dialog } from "./dialog.js";
import { byId, element, setText } from "./dom.js";
import { findingItem, hideFaults, showFaults } from "./faults.js";
import { Files } from "./files.js";
import { Language } from "./language.js";
import { Outputs } from "./outputs.js";
import { Place } from "./place.js";
import { Sources } from "./source_view.js";
import { Store } from "./store.js";
import { startTheme } from "./theme.js";
import { fetchModel, listen } from "./transport.js";
import { startViews } from "./views.js";

const store = new Store();
const context = {
  store,
  selected: null,
  complain: (text) => showBanner("problem", "error", text),
  inform: (text) => showBanner("info", "info", text),
  describe: (plan, name) => inOneLine(plan, name, store),
  select,
};
context.changes = new Changes(store, context.complain);
context.sources = new Sources();
context.address = new Address(context);
context.dialog = new Dialog(context);
context.outputs = new Outputs(context);
context.place = new Place(context);
context.files = new Files(context);
const language = new Language(() => load());

store.subscribe((change) => {
  hideBanner("problem");
  context.dialog.update(change);
  context.outputs.update(change);
  context.files.update();
  context.address.update();
  byId("main").dataset.serial = String(store.serial);
  if (context.selected) context.place.show(context.selected, false);
});

/**
 * Looks at a feature or a group: its row, its output and its place in the file.
 * @param {string} name
 * @param {"dialog"|"output"} from where it was chosen; the other side comes into sight
 */
function select(name, from) {
  const again = name === context.selected;
  context.selected = name;
  if (from === "output") {
    context.showView("settings");
    if (!context.dialog.reveal(name)) announce(`${store.textOf(name)} is not in the dialog`);
  }
  if (again && from === "dialog") return;
  context.dialog.mark(name);
  context.outputs.mark(name, from);
  context.place.show(name, from === "output" || !again);
}

/** Loads the model and the state. */
async function load() {
  let model;
  try {
    model = await fetchModel(language.chosen);
  } catch (problem) {
    context.complain(problem.message);
    return;
  }
  context.sources.forget();
  const title = model.name || model.file || "Printer settings";
  document.title = model.loaded === false ? `Faults in ${title}` : `${title} – settings`;
  setText(byId("title"), title);
  setText(byId("subtitle"), model.mode === "printer" ? "" : (model.file ?? ""));
  byId("main").setAttribute("aria-busy", "false");
  if (model.loaded === false) {
    // The state of the last model stays in the background.
    store.model = store.model ? { ...store.model, revision: model.revision } : null;
    showFaults(model, context.sources);
    announce(`${title} cannot be loaded`);
    return;
  }
  hideFaults();
  show(model);
  await context.changes.askState();
}

function show(model) {
  store.model = model;
  store.serial = -1;
  document.body.dataset.mode = model.mode ?? "preview";
  language.show(model);
  context.files.setMode(model.mode);
  context.dialog.build();
  context.outputs.build();
}

function showCrash(crash) {
  const findings = (crash.findings ?? []).map((finding) => findingItem(finding, context.sources));
  const details = findings.length > 0 ? [element("ol", { class: "findings" }, ...findings)] : [];
  showBanner("crash", "error", crash.text, details);
}

const handlers = {
  // Begins each connection: says what a page has missed since the last one.
  hello: ({ revision, serial }) => {
    if (revision !== store.model?.revision) load();
    else if (serial !== store.serial) context.changes.askState();
  },
  awaits: (serial) => serial > store.serial,
  state: (state) => context.changes.receive(state),
  model: (model) => {
    if (store.model === null || model.revision !== store.model.revision || model.revision === undefined) load();
  },
  crash: showCrash,
  picture: (picture) => context.outputs.picture.take(picture),
  bye: () => {
    events.close();
    showConnection("ended");
    showBanner("connection", "warning", "The program has ended. Start it again, and open the address that it shows.");
  },
  open: () => {
    showConnection("live");
    hideBanner("connection");
  },
  lost: (forGood) => {
    showConnection(forGood ? "ended" : "lost");
    const text = forGood
      ? "The program at this address has ended. Start it again, and open the address that it shows."
      : "The program does not reply. What you see is the last state; the page tries to reach it again.";
    showBanner("connection", "warning", text);
  },
};

startTheme();
startChoices();
startViews(context);
await load();
const events = listen(handlers);
if (Address.query() !== "" && store.model) await context.address.open();
document.documentElement.dataset.ready = "true";
