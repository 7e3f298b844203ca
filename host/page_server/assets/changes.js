// Changes and questions: what the page asks of the server, and what it does with the
// replies. Every state, however it arrives, goes through receive().

import { Refused, fetchState, send } from "./transport.js";

/** Sends changes for the parts of the page. */
export class Changes {
  /**
   * @param {import("./store.js").Store} store
   * @param {function(string): void} complain shows what went wrong on the way
   */
  constructor(store, complain) {
    this.store = store;
    this.complain = complain;
    this.plans = new Map();
    this.asking = null;
    this.again = false;
    this.pending = 0;
    store.subscribe(() => this.plans.clear());
  }

  /**
   * Takes in a state from a reply or an event; asks for the whole one when some are
   * missing in between.
   */
  async receive(state) {
    const judged = this.store.judge(state);
    if (judged === "new") this.store.apply(state);
    if (judged === "gap") await this.askState();
  }

  /**
   * Asks for the whole state, once at a time. What is asked for meanwhile may be newer
   * than the reply that is under way: then it is asked for once more.
   */
  askState() {
    this.again = this.asking !== null;
    this.asking ??= this.#askUntilNew().finally(() => {
      this.asking = null;
    });
    return this.asking;
  }

  async #askUntilNew() {
    do {
      this.again = false;
      try {
        const state = await fetchState(this.store.model?.language);
        if (state.values && this.store.judge(state) === "new") this.store.apply(state);
      } catch (problem) {
        if (!(problem instanceof Refused)) throw problem;
        this.complain(problem.message);
      }
    } while (this.again);
  }

  /**
   * Asks for a change.
   * @param {object} request without the language
   * @returns {Promise<object>} the reply; "ok" false and "problem" when it was refused
   *   or did not arrive
   */
  async request(request) {
    this.#pend(1);
    try {
      const reply = await send({ ...request, language: this.store.model?.language });
      if (reply.error !== undefined) return { ok: false, problem: reply.error };
      if (reply.ok !== false && reply.serial !== undefined) await this.receive(reply);
      return reply;
    } catch (problem) {
      if (!(problem instanceof Refused)) throw problem;
      return { ok: false, problem: problem.message };
    } finally {
      // What is done with the reply comes first.
      setTimeout(() => this.#pend(-1));
    }
  }

  // How many changes are under way, for those who watch the page from outside.
  #pend(count) {
    this.pending += count;
    document.documentElement.dataset.pending = String(this.pending);
  }

  /**
   * Sets one feature. Without conduct "mend" it is refused when other features would
   * have to change; the reply says which.
   */
  set(name, value, conduct = "refuse") {
    return this.request({ do: "set", settings: [[name, value]], conduct });
  }

  /**
   * What setting a feature would change. Asked once for each value until something
   * changes.
   * @returns {Promise<object|null>} null when there was no reply
   */
  plan(name, value) {
    const key = `${name}=${value}`;
    if (!this.plans.has(key)) {
      const language = this.store.model?.language;
      this.plans.set(
        key,
        send({ do: "plan", settings: [[name, value]], language }).catch(() => null),
      );
    }
    return this.plans.get(key);
  }
}
