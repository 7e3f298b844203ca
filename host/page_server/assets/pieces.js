// An output cut into pieces: what each feature or group has written, and what lies
// between. And what differs between two outputs, piece by piece.

/**
 * @typedef {object} Piece
 * @property {string} owner a feature or a group; "" when it is nobody's
 * @property {string} text
 */

/**
 * Cuts an output. Spans may lie in one another, as a member's in its group's: the
 * innermost one owns the text.
 * @param {{text: string, spans: Array<[number, number, string]>}} output
 * @returns {Piece[]}
 */
export function cut(output) {
  const { text } = output;
  const spans = [...(output.spans ?? [])].sort((a, b) => a[0] - b[0] || b[1] - a[1]);
  const pieces = [];
  const open = [];
  let at = 0;
  const upTo = (end) => {
    if (end > at) pieces.push({ owner: open.at(-1)?.owner ?? "", text: text.slice(at, end) });
    at = Math.max(at, end);
  };
  const finish = () => {
    upTo(open.at(-1).end);
    open.pop();
  };
  for (const [start, length, owner] of spans) {
    while (open.length > 0 && open.at(-1).end <= start) finish();
    upTo(start);
    open.push({ owner, end: start + length });
  }
  while (open.length > 0) finish();
  upTo(text.length);
  return pieces;
}

function same(a, b) {
  return a.owner === b.owner && a.text === b.text;
}

/**
 * @typedef {object} Step one piece of the new output, or one that has gone
 * @property {"same"|"added"|"removed"|"changed"} kind
 * @property {Piece} piece
 * @property {Piece} [before] of a changed one
 */

/**
 * What became of each piece. Owners come in the same order in both outputs, so that
 * pieces are paired by owner rather than by a search for the shortest difference,
 * which would take too long for large outputs.
 * @param {Piece[]} before
 * @param {Piece[]} after
 * @returns {{head: number, tail: number, steps: Step[]}} head and tail are the counts of
 *   pieces at both ends that have not changed; steps is what lies between
 */
export function compare(before, after) {
  const most = Math.min(before.length, after.length);
  let head = 0;
  while (head < most && same(before[head], after[head])) ++head;
  let tail = 0;
  while (tail < most - head && same(before[before.length - 1 - tail], after[after.length - 1 - tail])) ++tail;
  const old = before.slice(head, before.length - tail);
  const now = after.slice(head, after.length - tail);
  return { head, tail, steps: pair(old, now) };
}

function pair(old, now) {
  const places = new Map();
  old.forEach((piece, index) => {
    if (!places.has(piece.owner)) places.set(piece.owner, []);
    places.get(piece.owner).push(index);
  });
  const steps = [];
  let at = 0;
  for (const piece of now) {
    const own = places.get(piece.owner) ?? [];
    const found = own.find((index) => index >= at && same(old[index], piece)) ?? own.find((index) => index >= at);
    if (found === undefined) {
      steps.push({ kind: "added", piece });
      continue;
    }
    while (at < found) steps.push({ kind: "removed", piece: old[at++] });
    at = found + 1;
    if (same(old[found], piece)) steps.push({ kind: "same", piece });
    else steps.push({ kind: "changed", piece, before: old[found] });
  }
  while (at < old.length) steps.push({ kind: "removed", piece: old[at++] });
  return steps;
}

// Where a text may be cut so that words stay whole.
const kWordEnd = /[^A-Za-z0-9_.-]/;

/**
 * The part of a changed text that differs, widened to whole words. A word that borders
 * on its end belongs to it: "false" that became "true /Tumble false" has gone and come
 * as another one, although its letters are still there.
 * @param {string} before
 * @param {string} after
 * @returns {{head: string, gone: string, come: string, tail: string}}
 */
export function middle(before, after) {
  const most = Math.min(before.length, after.length);
  let head = 0;
  while (head < most && before[head] === after[head]) ++head;
  let tail = 0;
  while (tail < most - head && before[before.length - 1 - tail] === after[after.length - 1 - tail]) ++tail;
  while (head > 0 && !kWordEnd.test(after[head - 1])) --head;
  while (tail > 0 && !kWordEnd.test(after[after.length - tail])) --tail;
  return {
    head: after.slice(0, head),
    gone: before.slice(head, before.length - tail),
    come: after.slice(head, after.length - tail),
    tail: after.slice(after.length - tail),
  };
}
