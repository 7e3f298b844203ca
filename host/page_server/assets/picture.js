// The page as it would be printed, and what its page device says about trays and
// finishing, drawn.

import { drawDevice } from "./device_drawing.js";
import { element, setText } from "./dom.js";

/** The tab "Page". */
export class Picture {
  constructor(context) {
    this.context = context;
    this.image = element("img", { class: "sheet", alt: "The sample page as it would be printed", hidden: true });
    this.problem = element("p", { class: "problem", hidden: true });
    this.waiting = element("p", { class: "quiet", text: "The page is being drawn…" });
    this.drawing = element("div", { class: "device-drawing" });
    this.facts = element("dl", { class: "facts" });
    this.entries = element("dl", { class: "facts facts-raw" });
    this.element = element(
      "section",
      { class: "page-view", tabindex: "0", "aria-label": "The page" },
      element("figure", { class: "sheet-frame" }, this.image, this.waiting, this.problem),
      element(
        "div",
        { class: "device" },
        element("h3", { class: "device-heading", text: "What the page device does" }),
        this.drawing,
        this.facts,
        element("h3", { class: "device-heading", text: "What was set" }),
        this.entries,
      ),
    );
    this.latest = null;
    this.drawn = null;
    this.visible = false;
    this.image.addEventListener("load", () => {
      this.image.hidden = false;
      this.waiting.hidden = true;
    });
    this.image.addEventListener("error", () => {
      this.image.hidden = true;
      this.waiting.hidden = true;
    });
  }

  /** A picture is ready on the server. */
  take(picture) {
    this.latest = picture;
    if (this.visible) this.#draw();
  }

  /** Pictures are fetched only while the tab is shown. */
  setVisible(visible) {
    this.visible = visible;
    if (visible) this.#draw();
  }

  #draw() {
    const serial = this.latest?.serial ?? this.context.store.serial;
    // The first picture is asked for before it is ready.
    const wanted = this.latest ?? serial;
    if (wanted === this.drawn) return;
    this.drawn = wanted;
    const problem = this.latest?.problem ?? "";
    setText(this.problem, problem);
    this.problem.hidden = problem === "";
    if (problem === "") this.image.src = `page.png?serial=${serial}`;
    else {
      this.image.hidden = true;
      this.waiting.hidden = true;
    }
    this.#drawDevice(this.latest?.device);
  }

  #drawDevice(device) {
    this.drawing.replaceChildren(...(device ? [drawDevice(device)] : []));
    fillFacts(this.facts, device ? factsOf(device) : []);
    fillFacts(this.entries, (device?.entries ?? []).map(([key, value]) => [`/${key}`, value]));
  }
}

function fillFacts(list, facts) {
  list.replaceChildren(
    ...facts.flatMap(([name, value]) => [element("dt", { text: name }), element("dd", { text: value })]),
  );
}

const kPointsInMillimetre = 72 / 25.4;

function factsOf(device) {
  const facts = [];
  if (device.size) {
    const [width, height] = device.size.map((points) => Math.round(points / kPointsInMillimetre));
    facts.push(["Size", `${width} × ${height} mm`]);
  }
  if (device.orientation) facts.push(["Orientation", device.orientation]);
  if (device.media) facts.push(["Media", device.media]);
  if (device.tray) facts.push(["Tray", device.tray]);
  if (device.duplex !== undefined) {
    facts.push(["Sides", device.duplex ? `two, bound on the ${device.tumble ? "short" : "long"} edge` : "one"]);
  }
  if (device.copies) facts.push(["Copies", String(device.copies)]);
  if (device.finishing?.length) facts.push(["Finishing", device.finishing.join(", ")]);
  return facts;
}
