// Copying, opening and saving.

import { announce } from "./announce.js";
import { byId, element, setText } from "./dom.js";
import { Refused, save } from "./transport.js";

// How long a button says that it has copied.
const kSaid = 1600;

// Browsers offer the clipboard to pages of this machine and to encrypted ones only; a
// printer's page may be neither, and copies a selection.
function copySelection(text) {
  const field = element("textarea", { class: "visually-hidden", readonly: true });
  field.value = text;
  document.body.append(field);
  field.select();
  const done = document.execCommand("copy");
  field.remove();
  return done;
}

async function copied(text) {
  try {
    if (!navigator.clipboard) return copySelection(text);
    await navigator.clipboard.writeText(text);
    return true;
  } catch {
    return false;
  }
}

async function copy(button, text, what, complain) {
  const done = await copied(text);
  button.focus();
  if (!done) {
    complain(`${what} could not be copied: the browser does not allow it.`);
    return;
  }
  const before = button.dataset.label ?? button.textContent;
  button.dataset.label = before;
  button.textContent = "Copied";
  announce(`${what} copied`);
  setTimeout(() => {
    button.textContent = before;
  }, kSaid);
}

/** The buttons for copies, and the menu of files. */
export class Files {
  /** @param {object} context store, changes, outputs, address, complain */
  constructor(context) {
    this.context = context;
    this.#listenToCopies();
    this.#listenToMenu();
    this.#listenToDialog();
  }

  /** What a printer's own page does not have. */
  setMode(mode) {
    const printer = mode === "printer";
    for (const id of ["save-settings", "save-preset", "command-line"]) byId(id).hidden = printer;
  }

  /** After a change. */
  update() {
    const { store } = this.context;
    setText(byId("command"), store.command);
  }

  #listenToCopies() {
    const { store, outputs, address, complain } = this.context;
    const copies = (id, textOf, what) => byId(id).addEventListener("click", (event) => copy(event.currentTarget, textOf(), what, complain));
    copies("copy-command", () => store.command, "The command");
    copies("copy-link", () => address.whole(), "The address of these settings");
    copies("copy-output", () => outputs.currentText(), "The output");
  }

  #listenToMenu() {
    const menu = byId("files");
    const button = byId("files-button");
    menu.addEventListener("toggle", (event) => {
      button.setAttribute("aria-expanded", String(event.newState === "open"));
      if (event.newState !== "open") return;
      const around = button.getBoundingClientRect();
      menu.style.top = `${around.bottom + 6}px`;
      menu.style.right = `${Math.max(8, document.documentElement.clientWidth - around.right)}px`;
      menu.querySelector(".menu-item:not([hidden])").focus();
    });
    const file = byId("settings-file");
    byId("open-settings").addEventListener("click", () => {
      menu.hidePopover();
      file.click();
    });
    file.addEventListener("change", () => this.#openFile(file));
    byId("download-settings").addEventListener("click", () => menu.hidePopover());
    for (const as of ["settings", "preset"]) {
      byId(`save-${as}`).addEventListener("click", () => {
        menu.hidePopover();
        this.#askName(as);
      });
    }
  }

  async #openFile(file) {
    const [chosen] = file.files;
    if (!chosen) return;
    const text = await chosen.text();
    file.value = "";
    const reply = await this.context.changes.request({ do: "open-text", text });
    if (reply.ok === false) this.context.complain(`${chosen.name}: ${reply.problem}`);
    else announce(`${chosen.name} opened`);
  }

  #askName(as) {
    const isPreset = as === "preset";
    this.as = as;
    setText(byId("save-heading"), isPreset ? "Save as a preset" : "Save as settings");
    setText(
      byId("save-hint"),
      isPreset
        ? "What differs from the defaults is written beside the description, without secrets. It is then one of the presets."
        : "A settings file is written beside the description, without secrets.",
    );
    byId("save-name").value = "";
    setText(byId("save-problem"), "");
    this.#mayReplace(false);
    byId("save-dialog").showModal();
  }

  #listenToDialog() {
    const dialog = byId("save-dialog");
    byId("save-cancel").addEventListener("click", () => dialog.close());
    byId("save-form").addEventListener("submit", (event) => {
      event.preventDefault();
      this.#save(dialog, byId("save-name").value.trim());
    });
    byId("save-name").addEventListener("input", () => this.#mayReplace(false));
  }

  #mayReplace(may) {
    this.replaces = may;
    setText(byId("save-confirm"), may ? "Replace it" : "Save");
  }

  async #save(dialog, name) {
    let reply;
    try {
      reply = await save(this.as, name, this.replaces);
    } catch (problem) {
      if (!(problem instanceof Refused)) throw problem;
      reply = { ok: false, problem: problem.message };
    }
    if (reply.ok) {
      dialog.close();
      this.context.inform(`${reply.file} was ${reply.same ? "already the same" : "saved"}.`);
      return;
    }
    setText(byId("save-problem"), reply.problem);
    this.#mayReplace(Boolean(reply.exists));
  }
}
