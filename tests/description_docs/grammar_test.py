#!/usr/bin/env python3
"""Proves that the grammar of descriptions, its compact form and the tables of
the document say the same, and that a missing sentence is found.

usage: grammar_test.py DESCRIPTIONS DOCUMENT RNC2RNG
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

RNG = "{http://relaxng.org/ns/structure/1.0}"
SENTENCE = re.compile(r"<a:documentation>.*?</a:documentation>\s*")


def normal(node):
    """The node without what has several spellings."""
    kind = node.tag.rpartition("}")[2]
    facts = dict(node.attrib)
    facts.pop("datatypeLibrary", None)
    children = [normal(child) for child in node]
    if kind == "except" and len(children) > 1:
        children = [("choice", (), "", tuple(children))]
    if kind in ("element", "attribute", "name"):
        facts.pop("ns", None)
    if kind in ("element", "attribute") and "name" in facts:
        name = ("name", (), facts.pop("name"), ())
        after = 1 if children and children[0][0] == "documentation" else 0
        children.insert(after, name)
    if kind == "attribute" and not {"text", "ref", "data", "value"} & {c[0] for c in children}:
        children.append(("text", (), "", ()))
    text = " ".join((node.text or "").split())
    return (kind, tuple(sorted(facts.items())), text, tuple(children))


def of_compact(path, rnc2rng):
    """The compact grammar, read by another program than the one that wrote it."""
    text = subprocess.run([rnc2rng, path], check=True, stdout=subprocess.PIPE, text=True).stdout
    return normal(ElementTree.fromstring(text.replace('xmlns:local=""', "")))


def only_difference(left, right, path="grammar"):
    if left[:3] != right[:3]:
        return f"{path}: {left[:3]} and {right[:3]}"
    if len(left[3]) != len(right[3]):
        return f"{path}: {len(left[3])} and {len(right[3])} parts"
    for a, b in zip(left[3], right[3]):
        found = only_difference(a, b, path + "/" + left[0] + str(left[1]))
        if found:
            return found
    return ""


def run(*arguments):
    result = subprocess.run([sys.executable, *map(str, arguments)], check=False,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return result.returncode, result.stdout


def missing_sentences(tool, grammar):
    """The sentences without which the tool says nothing."""
    sys.path.insert(0, str(tool.parent))
    sys.dont_write_bytecode = True
    import grammar as made  # pylint: disable=import-outside-toplevel
    text = grammar.read_text(encoding="utf-8")
    unnoticed = []
    for found in SENTENCE.finditer(text):
        without = text[:found.start()] + text[found.end():]
        try:
            made.Sentences(ElementTree.fromstring(without.encode()))
            unnoticed.append(found.group())
        except SystemExit:
            pass
    return unnoticed


def main(descriptions, document, rnc2rng):
    tool = descriptions / "grammar.py"
    grammar = descriptions / "feature_description.rng"
    compact = descriptions / "feature_description.rnc"
    failures = []
    status, output = run(tool, grammar, compact, document)
    if status != 0:
        failures.append(output + f"run {tool.name} --write {grammar} {compact} {document}")
    failures.append(only_difference(normal(ElementTree.parse(grammar).getroot()),
                                    of_compact(compact, rnc2rng)))
    failures += [f"not noticed to be missing: {s}" for s in missing_sentences(tool, grammar)]
    with tempfile.TemporaryDirectory() as folder:
        changed = pathlib.Path(folder, "changed.md")
        changed.write_text(document.read_text(encoding="utf-8").replace("Puts the", "Sets the"),
                           encoding="utf-8")
        if run(tool, grammar, compact, changed)[0] != 1:
            failures.append("a changed sentence of the document is not noticed")
    failures = [failure for failure in failures if failure]
    print("\n".join(failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*map(pathlib.Path, sys.argv[1:4])))
