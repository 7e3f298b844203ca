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
import { Refused, fetchModel, listen } from "./transport.js";
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
  if (!change.whole) hideBanner("info");
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

let loads = 0;
let isLoaded = null;
let hasOpened = false;

/** Loads the model and the state. Of several loads under way the last one counts. */
async function load() {
  const mine = ++loads;
  let model;
  try {
    model = await fetchModel(language.chosen);
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    if (mine === loads) context.complain(problem.message);
    return;
  }
  if (mine !== loads) return;
  context.sources.forget();
  isLoaded = model.loaded !== false;
  const title = model.name || model.file || "Printer settings";
  document.title = model.loaded === false ? `Faults in ${title}` : `${title} – settings`;
  setText(byId("title"), title);
  setText(byId("subtitle"), model.mode === "printer" || model.file === title ? "" : (model.file ?? ""));
  byId("main").setAttribute("aria-busy", "false");
  if (!isLoaded) {
    // The state of the last model stays in the background.
    store.model = store.model ? { ...store.model, revision: model.revision } : null;
    showFaults(model, context.sources);
    announce(`${title} cannot be loaded`);
    return;
  }
  hideFaults();
  show(model);
  await context.changes.askState();
  await openAddress();
}

// The address with which the page was opened counts once, when there is something to set.
async function openAddress() {
  if (hasOpened || store.serial < 0) return;
  hasOpened = true;
  if (Address.query() !== "") await context.address.open();
}

function show(model) {
  if (model.revision !== store.model?.revision) hideBanner("crash");
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

// What there is now: the page may have missed it, and findings may have been added.
function follow({ revision, serial, loaded }) {
  if (revision !== store.model?.revision || loaded !== isLoaded || !loaded) load();
  else if (serial !== store.serial) context.changes.askState();
}

function textOfEnd() {
  return document.body.dataset.mode === "printer"
    ? "This visit has ended. Reload the page to begin a new one; its address keeps the settings."
    : "The program has ended. Start it again, and open the address that it shows.";
}

const handlers = {
  hello: follow,
  awaits: (serial) => serial > store.serial,
  state: (state) => context.changes.receive(state),
  model: follow,
  crash: showCrash,
  picture: (picture) => context.outputs.picture.take(picture),
  bye: () => {
    events.close();
    showConnection("ended");
    showBanner("connection", "warning", textOfEnd());
  },
  open: () => {
    showConnection("live");
    hideBanner("connection");
  },
  lost: (forGood) => {
    showConnection(forGood ? "ended" : "lost");
    const text = forGood
      ? textOfEnd()
      : "The program does not reply. What you see is the last state; the page tries to reach it again.";
    showBanner("connection", "warning", text);
  },
};

startTheme();
startChoices();
startViews(context);
await load();
const events = listen(handlers);
document.documentElement.dataset.ready = "true";
