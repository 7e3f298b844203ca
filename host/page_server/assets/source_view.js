// The place of a feature or a finding in its file: the lines around it, with their
// numbers.

import { element } from "./dom.js";
import { fetchSource } from "./transport.js";

const kBefore = 2;
const kAfter = 9;

/** The files as they were when last asked for. */
export class Sources {
  constructor() {
    this.files = new Map();
  }

  /** After a file was saved. */
  forget() {
    this.files.clear();
  }

  /** @returns {Promise<string[]>} the lines; empty when the file cannot be read */
  lines(file) {
    if (!this.files.has(file)) {
      this.files.set(
        file,
        fetchSource(file)
          .then((text) => text.split(/\r\n|\r|\n/))
          .catch(() => []),
      );
    }
    return this.files.get(file);
  }

  /**
   * The lines around a place.
   * @param {{file: string, line: number, column: number}} place
   * @param {number} before lines above it
   * @param {number} after lines below it
   */
  async excerpt(place, before = kBefore, after = kAfter) {
    const lines = await this.lines(place.file);
    const from = Math.max(1, place.line - before);
    const to = Math.min(lines.length, place.line + after);
    const list = element("ol", { class: "lines", start: String(from), translate: "no" });
    for (let line = from; line <= to; ++line) {
      list.append(
        element(
          "li",
          { class: line === place.line ? "line is-place" : "line", "aria-current": line === place.line ? "location" : null },
          element("span", { class: "line-number", "aria-hidden": "true", text: String(line) }),
          element("code", { class: "line-text", text: lines[line - 1] || " " }),
        ),
      );
    }
    return list;
  }
}
