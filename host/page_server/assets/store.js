// The page's copy of the model and of the state. Replies and events come in here
// and go out to the parts of the page as one kind of change.

// Parts of a state that a partial one lists by entry; null takes an entry away.
const kByEntry = ["values", "off", "disabled", "conflicts", "hiddenChoices", "records", "outputs"];
// Parts that every state has in full.
const kWhole = ["changed", "hidden", "masked"];

/**
 * @typedef {object} Change what a state has brought
 * @property {boolean} whole everything may differ
 * @property {Set<string>} features whose rows may look different
 * @property {Set<string>} groups whose records differ
 * @property {Set<string>} outputs that differ
 * @property {object} state as it came in: its log and notifications
 */

/**
 * An output after a change, which has only what differs: the text in between, and the
 * spans in between. A whole one is what it is.
 */
export function spliced(before, change) {
  if (change.at === undefined) return change;
  const { at, gone, text, head, tail, spans } = change;
  const moved = text.length - gone;
  const last = before.spans.slice(before.spans.length - tail);
  return {
    text: before.text.slice(0, at) + text + before.text.slice(at + gone),
    spans: [...before.spans.slice(0, head), ...spans, ...last.map(([offset, length, owner]) => [offset + moved, length, owner])],
  };
}

/** Holds the model and the state, and calls listeners after changes. */
export class Store {
  constructor() {
    this.model = null;
    this.serial = -1;
    this.forget();
    this.listeners = [];
  }

  /** @param {function(Change): void} listener called after each state */
  subscribe(listener) {
    this.listeners.push(listener);
  }

  /** Before a model that is new: nothing of the earlier state counts. */
  forget() {
    for (const part of kByEntry) this[part] = {};
    for (const part of kWhole) this[part] = new Set();
    this.command = "";
    this.query = "";
  }

  /**
   * Whether a state can be put onto what is here. The same change comes as a reply
   * and as an event; the second one to arrive is old. A partial state fits onto the
   * one before it only.
   * @returns {"new"|"old"|"gap"}
   */
  judge(state) {
    if (state.revision !== undefined && this.model && state.revision !== this.model.revision) {
      return state.revision < this.model.revision ? "old" : "gap";
    }
    if (state.whole) return state.serial < this.serial ? "old" : "new";
    if (state.serial <= this.serial) return "old";
    return state.serial === this.serial + 1 ? "new" : "gap";
  }

  /** Takes a state in and calls the listeners. */
  apply(state) {
    const change = {
      whole: Boolean(state.whole),
      features: new Set(),
      groups: new Set(Object.keys(state.records ?? {})),
      outputs: new Set(Object.keys(state.outputs ?? {})),
      state,
    };
    if (state.whole) this.forget();
    for (const part of kByEntry) this.#merge(part, state[part] ?? {}, change);
    for (const part of kWhole) this.#replace(part, state[part] ?? [], change);
    this.serial = state.serial;
    this.command = state.command ?? "";
    this.query = state.query ?? "";
    for (const listener of this.listeners) listener(change);
  }

  #merge(part, entries, change) {
    const mine = this[part];
    const ofFeatures = part !== "records" && part !== "outputs";
    for (const name in entries) {
      const entry = entries[name];
      if (entry === null) delete mine[name];
      else mine[name] = part === "outputs" ? spliced(mine[name], entry) : entry;
      if (ofFeatures) change.features.add(name);
    }
  }

  #replace(part, names, change) {
    const before = this[part];
    const after = new Set(names);
    for (const name of after) if (!before.has(name)) change.features.add(name);
    for (const name of before) if (!after.has(name)) change.features.add(name);
    this[part] = after;
  }

  /** The text that people see for a feature or a group. */
  textOf(name) {
    const feature = this.model?.features[name];
    if (feature) return feature.text || name;
    return this.model?.sections.find((section) => section.id === name)?.text || name;
  }

  /** The text of a feature's value as people see it. */
  valueText(name, value) {
    const choice = this.model?.features[name]?.choices?.find((one) => one.name === value);
    return choice ? choice.text || choice.name : value;
  }
}
