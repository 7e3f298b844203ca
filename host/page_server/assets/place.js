// What belongs to the selected feature: its place in the file, and the
// outputs that it has written to.

import { byId, element } from "./dom.js";
import { titleOf } from "./outputs.js";

/** The part of the page below the outputs. */
export class Place {
  constructor(context) {
    this.context = context;
    this.closed = false;
    byId("place-close").addEventListener("click", () => {
      this.closed = true;
      byId("place").hidden = true;
      // The button that had the focus has gone.
      byId("output").focus();
    });
    byId("place-outputs").addEventListener("click", (event) => {
      const button = event.target.closest("[data-output]");
      if (button) this.context.outputs.show(button.dataset.output);
    });
  }

  /**
   * @param {string} name of the feature or group
   * @param {boolean} asked the user has asked for it, so that it opens again
   */
  async show(name, asked) {
    const { store, outputs, sources } = this.context;
    if (asked) this.closed = false;
    this.name = name;
    const place = store.model.features[name]?.place ?? store.model.sections.find((one) => one.id === name)?.place;
    if (this.closed || store.model.mode === "printer" || !place) {
      byId("place").hidden = true;
      return;
    }
    byId("place-heading").replaceChildren(store.textOf(name), element("code", { class: "place-file", title: place.file, text: ` ${place.file.replace(/^.*\//, "")}:${place.line}` }));
    const written = outputs.writtenBy(name);
    byId("place-outputs").replaceChildren(
      ...(written.length > 0 ? ["writes to "] : ["writes nothing now"]),
      ...written.map((output) => element("button", { class: "link", type: "button", "data-output": output, text: titleOf(output) })),
    );
    const lines = await sources.excerpt(place);
    if (this.name !== name || this.closed) return;
    byId("place-excerpt").replaceChildren(lines);
    byId("place").hidden = false;
  }
}
