// The languages of the description.

import { byId, element } from "./dom.js";

function nameOf(tag) {
  try {
    return new Intl.DisplayNames([tag], { type: "language" }).of(tag) ?? tag;
  } catch {
    return tag;
  }
}

/** The choice of a language. */
export class Language {
  /** @param {function(string): void} change called with the one that was chosen */
  constructor(change) {
    this.chosen = navigator.language;
    byId("language").addEventListener("change", (event) => {
      this.chosen = event.target.value;
      change(this.chosen);
    });
  }

  /** Shows the languages of a model that is new. */
  show(model) {
    const languages = model.languages ?? [];
    byId("language-field").hidden = languages.length < 2;
    byId("language").replaceChildren(
      ...languages.map((tag) => element("option", { value: tag, text: nameOf(tag), selected: tag === model.language, lang: tag })),
    );
  }
}
