// How an output is cut into pieces, and what counts as added and removed.

import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { assets } from "./tools.js";

const text = fs.readFileSync(path.join(assets, "pieces.js"), "utf8");
const { compare, cut, middle } = await import(`data:text/javascript,${encodeURIComponent(text)}`);

const pieces = (...pairs) => pairs.map(([owner, words]) => ({ owner, text: words }));

test("Cut_SpansAndGaps_GiveEveryCharacterOnce", () => {
  const rows = [
    ["no spans", "abc", [], pieces(["", "abc"])],
    ["nothing", "", [], []],
    ["gaps around", "abcdef", [[1, 2, "A"], [4, 1, "B"]], pieces(["", "a"], ["A", "bc"], ["", "d"], ["B", "e"], ["", "f"])],
    ["side by side", "abcd", [[0, 2, "A"], [2, 2, "B"]], pieces(["A", "ab"], ["B", "cd"])],
    ["a member in its group", "<<x y>>", [[0, 7, "G"], [2, 1, "A"], [4, 1, "B"]], pieces(["G", "<<"], ["A", "x"], ["G", " "], ["B", "y"], ["G", ">>"])],
    ["a member at the group's end", "<<x", [[0, 3, "G"], [2, 1, "A"]], pieces(["G", "<<"], ["A", "x"])],
    ["in another order", "abcd", [[2, 2, "B"], [0, 2, "A"]], pieces(["A", "ab"], ["B", "cd"])],
  ];
  for (const [name, words, spans, wanted] of rows) assert.deepEqual(cut({ text: words, spans }), wanted, name);
});

test("Compare_TwoOutputs_PairsPiecesByTheirOwners", () => {
  const kinds = (before, after) => compare(before, after).steps.map((step) => `${step.kind} ${step.piece.owner}`);
  const before = pieces(["A", "a1"], ["B", "b1"], ["C", "c1"], ["D", "d1"]);
  assert.deepEqual(kinds(before, before), []);
  assert.deepEqual(kinds(before, pieces(["A", "a1"], ["B", "b2"], ["C", "c1"], ["D", "d1"])), ["changed B"]);
  assert.deepEqual(kinds(before, pieces(["A", "a1"], ["D", "d1"])), ["removed B", "removed C"]);
  assert.deepEqual(kinds(before, pieces(["A", "a1"], ["AA", "x"], ["B", "b1"], ["C", "c1"], ["D", "d1"])), ["added AA"]);
  assert.deepEqual(kinds(before, pieces(["A", "a2"], ["B", "b1"], ["D", "d2"])), ["changed A", "same B", "removed C", "changed D"]);
  assert.deepEqual(kinds([], pieces(["A", "a"])), ["added A"]);
  assert.deepEqual(kinds(pieces(["A", "a"], ["A", "b"]), pieces(["A", "b"])), ["removed A"]);
  const { head, tail } = compare(before, pieces(["A", "a1"], ["B", "b2"], ["C", "c1"], ["D", "d1"]));
  assert.deepEqual([head, tail], [1, 2]);
});

test("Middle_OfAChangedText_IsWholeWords", () => {
  const rows = [
    ["<< /Duplex false >>\n", "<< /Duplex true /Tumble false >>\n", ["<< /Duplex ", "false", "true /Tumble false", " >>\n"]],
    ["(Plain)", "(Recycled)", ["(", "Plain", "Recycled", ")"]],
    ["[595 842]", "[595 843]", ["[595 ", "842", "843", "]"]],
    ["", "new", ["", "", "new", ""]],
  ];
  for (const [before, after, wanted] of rows) {
    const parts = middle(before, after);
    assert.deepEqual([parts.head, parts.gone, parts.come, parts.tail], wanted, after);
    assert.equal(parts.head + parts.come + parts.tail, after);
    assert.equal(parts.head + parts.gone + parts.tail, before);
  }
});
