// One output as text: each piece leads to its feature, and what the last change added
// and took away is marked. Only pieces that differ are drawn again.

import { element } from "./dom.js";
import { compare, cut, middle } from "./pieces.js";

// Pieces in one block. The browser lays out a block at a time, and skips those that
// are out of sight.
const kBlock = 40;
// Control characters are shown as symbols; the text itself is unchanged.
const kControl = /[\u0000-\u0008\u000b-\u001f\u007f]/;
const kControls = /([\u0000-\u0008\u000b-\u001f\u007f])/;

function signOf(letter) {
  const code = letter.charCodeAt(0);
  return String.fromCharCode(code === 127 ? 0x2421 : 0x2400 + code);
}

function appendText(node, text) {
  if (!kControl.test(text)) {
    node.append(text);
    return;
  }
  for (const part of text.split(kControls)) {
    if (part === "") continue;
    if (part.length === 1 && kControl.test(part)) node.append(element("span", { class: "sign", "data-sign": signOf(part), text: part }));
    else node.append(part);
  }
}

function marked(tag, text) {
  const node = element(tag, { class: "mark" });
  appendText(node, text);
  return node;
}

function drawPiece(step) {
  const node = document.createElement("span");
  node.className = step.piece.owner ? "piece" : "piece nobody";
  if (step.piece.owner) node.dataset.owner = step.piece.owner;
  if (step.kind === "changed") {
    const parts = middle(step.before.text, step.piece.text);
    appendText(node, parts.head);
    if (parts.gone) node.append(marked("del", parts.gone));
    if (parts.come) node.append(marked("ins", parts.come));
    appendText(node, parts.tail);
  } else if (step.kind === "added") node.append(marked("ins", step.piece.text));
  else if (step.kind === "removed") node.append(marked("del", step.piece.text));
  else appendText(node, step.piece.text);
  return node;
}

/** The text of one output. */
export class OutputPane {
  /**
   * @param {string} label for screen readers
   */
  constructor(label) {
    this.element = element("section", { class: "code", tabindex: "0", "aria-label": label, translate: "no" });
    this.pieces = null;
    this.counts = { added: 0, removed: 0 };
    this.selected = null;
    this.drawn = null;
    this.waiting = null;
  }

  /**
   * Takes an output in; it is drawn when the pane is looked at.
   * @param {{text: string, spans: Array}} output
   */
  take(output) {
    const pieces = cut(output);
    // The first output has nothing to differ from.
    const difference = this.pieces ? compare(this.pieces, pieces) : null;
    this.counts = count(difference);
    this.pieces = pieces;
    this.problem = output.problem ?? "";
    this.waiting = difference ? { difference } : {};
  }

  /** Nothing has changed here: the marks of the change before go. */
  settle() {
    if (!this.pieces || (this.counts.added + this.counts.removed === 0 && !this.waiting)) return;
    this.counts = { added: 0, removed: 0 };
    this.waiting = { ...this.waiting, difference: { head: this.pieces.length, tail: 0, steps: [] } };
  }

  /** Draws what has come in since. */
  draw() {
    if (!this.waiting) return;
    const { difference } = this.waiting;
    this.waiting = null;
    const steps = stepsOf(this.pieces, difference);
    this.#redraw(steps);
    if (this.selected) this.mark(this.selected);
  }

  // Blocks at both ends that hold the same steps as before stay as they are.
  #redraw(steps) {
    const blocks = blocksOf(steps);
    const old = this.drawn ?? [];
    let head = 0;
    while (head < Math.min(old.length, blocks.length) && sameBlock(old[head].steps, blocks[head])) ++head;
    let tail = 0;
    const most = Math.min(old.length, blocks.length) - head;
    while (tail < most && sameBlock(old[old.length - 1 - tail].steps, blocks[blocks.length - 1 - tail])) ++tail;
    const next = blocks.slice(head, blocks.length - tail).map((some) => ({
      steps: some,
      node: element("span", { class: "block" }, ...some.map(drawPiece)),
    }));
    for (const gone of old.slice(head, old.length - tail)) gone.node.remove();
    const before = old[old.length - tail]?.node ?? null;
    const nodes = document.createDocumentFragment();
    for (const made of next) nodes.append(made.node);
    this.element.insertBefore(nodes, before);
    this.drawn = [...old.slice(0, head), ...next, ...old.slice(old.length - tail)];
    this.element.classList.toggle("is-empty", this.pieces.length === 0);
    this.element.dataset.problem = this.problem;
  }

  /** Marks the pieces of a feature or a group, and brings the first one into sight. */
  mark(owner, scroll = false) {
    this.selected = owner;
    for (const node of this.element.querySelectorAll(".is-selected")) node.classList.remove("is-selected");
    if (!owner) return;
    const nodes = this.element.querySelectorAll(`[data-owner="${CSS.escape(owner)}"]`);
    for (const node of nodes) node.classList.add("is-selected");
    if (scroll && nodes.length > 0) nodes[0].scrollIntoView({ block: "nearest" });
  }

  /** Whether a feature or a group has written anything here. */
  has(owner) {
    return (this.pieces ?? []).some((piece) => piece.owner === owner);
  }

  /** The first place that the last change has touched comes into sight. */
  showChange() {
    this.element.querySelector(".mark")?.scrollIntoView({ block: "nearest" });
  }

  /** The piece that is one further from the marked one, for the arrow keys. */
  step(count) {
    const nodes = [...this.element.querySelectorAll(".piece[data-owner]")];
    if (nodes.length === 0) return null;
    const at = nodes.findIndex((node) => node.classList.contains("is-here"));
    for (const node of nodes) node.classList.remove("is-here");
    const next = nodes[Math.min(nodes.length - 1, Math.max(0, at + count))];
    next.classList.add("is-here");
    next.scrollIntoView({ block: "nearest" });
    return next;
  }

  /** What is added and removed, for the tab. */
  countText() {
    const { added, removed } = this.counts;
    return [added ? `+${added}` : "", removed ? `−${removed}` : ""].filter(Boolean).join(" ");
  }
}

function count(difference) {
  const counts = { added: 0, removed: 0 };
  for (const step of difference?.steps ?? []) {
    if (step.kind === "added" || step.kind === "changed") ++counts.added;
    if (step.kind === "removed" || step.kind === "changed") ++counts.removed;
  }
  return counts;
}

function stepsOf(pieces, difference) {
  const plain = (piece) => ({ kind: "same", piece });
  if (!difference) return pieces.map(plain);
  const { head, tail, steps } = difference;
  return [...pieces.slice(0, head).map(plain), ...steps, ...pieces.slice(pieces.length - tail).map(plain)];
}

// A block ends at a line end only, since it is a box of its own.
function blocksOf(steps) {
  const blocks = [];
  let block = [];
  for (const step of steps) {
    block.push(step);
    if (block.length < kBlock || !step.piece.text.endsWith("\n")) continue;
    blocks.push(block);
    block = [];
  }
  if (block.length > 0) blocks.push(block);
  return blocks;
}

function sameBlock(a, b) {
  if (a.length !== b.length) return false;
  return a.every((step, index) => {
    const other = b[index];
    return (
      step.kind === "same" && other.kind === "same" && step.piece.owner === other.piece.owner && step.piece.text === other.piece.text
    );
  });
}
