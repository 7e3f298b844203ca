// The place of a feature or a finding in its file: the lines around it, with their
// numbers.

import { element } from "./dom.js";
import { fetchSource } from "./transport.js";

const kBefore = 2;
const kAfter = 9;
// More letters of a line are not shown: programs write files with a hundred thousand in
// one, and the browser would lay all of them out at each look.
const kLetters = 400;
// When its place lies further on, a line is shown from this many letters before it.
const kLettersBefore = 80;

// The part of a line around a column.
function around(text, column) {
  if (text.length <= kLetters) return text || " ";
  const last = text.length - kLetters;
  const from = column <= kLetters - kLettersBefore ? 0 : Math.min(last, column - 1 - kLettersBefore);
  return `${from > 0 ? "…" : ""}${text.slice(from, from + kLetters)}${from < last ? "…" : ""}`;
}

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
      const text = around(lines[line - 1], line === place.line ? (place.column ?? 1) : 1);
      list.append(
        element(
          "li",
          { class: line === place.line ? "line is-place" : "line", "aria-current": line === place.line ? "location" : null },
          element("span", { class: "line-number", "aria-hidden": "true", text: String(line) }),
          element("code", { class: "line-text", text }),
        ),
      );
    }
    return list;
  }
}
