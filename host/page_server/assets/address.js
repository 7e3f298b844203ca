// Every state has an address: the part after # holds the settings that differ from
// their defaults. It is never sent with the address, and long ones are no trouble. A
// link that was written by hand may have them after ? as well.

// Browsers allow a limited number of changes of the address in a time.
const kPause = 300;

/** Keeps the address up to date, and opens the states of addresses. */
export class Address {
  /**
   * @param {object} context store, changes, complain
   */
  constructor(context) {
    this.context = context;
    this.pause = null;
    window.addEventListener("hashchange", () => this.open());
  }

  /** The query in the address, as the server wrote it once. */
  static query() {
    return location.hash.replace(/^#\??/, "") || location.search.slice(1);
  }

  /** Asks for the state of the address, unless it is the one at hand. */
  async open() {
    const query = Address.query();
    if (query === this.context.store.query) return;
    const reply = await this.context.changes.request({ do: "open", query, conduct: "refuse" });
    if (reply.ok !== false) return;
    this.context.complain(`The settings of this address cannot be opened: ${reply.problem}`);
    this.#write();
  }

  /** After a change. */
  update() {
    if (this.pause) return;
    this.pause = setTimeout(() => this.#write(), kPause);
  }

  #write() {
    this.pause = null;
    const { query } = this.context.store;
    if (query === location.hash.slice(1) && location.search === "") return;
    history.replaceState(null, "", `${location.pathname}${query ? `#${query}` : ""}`);
  }

  /** The address of the state at hand. */
  whole() {
    const { query } = this.context.store;
    return `${location.origin}${location.pathname}${query ? `#${query}` : ""}`;
  }
}
