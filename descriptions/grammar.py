#!/usr/bin/env python3
"""Derives from the grammar feature_description.rng what must say the same: the
grammar in the compact syntax, for Emacs, and the sentences in the tables of the
document on descriptions.

usage: grammar.py [--write] GRAMMAR COMPACT DOCUMENT

Without --write nothing is written: the status is 1 if one of the two files
differs. An element or attribute without a sentence is an error.
"""

import difflib
import re
import sys
import textwrap
import xml.etree.ElementTree as ElementTree

RNG = "{http://relaxng.org/ns/structure/1.0}"
SENTENCE = "{http://relaxng.org/ns/compatibility/annotations/1.0}documentation"
COLUMNS = 88

# The types of values in the document, and what the grammar calls them.
FORMS = {"bool": "Boolean", "int": "Integer", "float": "Decimal", "template": "Template",
         "routine": "Routine", "option name": "OptionName", "feature name": "FeatureName"}


def tag(node):
    """The name of an element of the grammar; empty for a comment."""
    return node.tag.replace(RNG, "") if isinstance(node.tag, str) else ""


def patterns(node):
    """The children that say what is allowed."""
    return [child for child in node if tag(child) and child.tag != SENTENCE]


def sentence_of(node):
    found = node.find(SENTENCE)
    return "" if found is None else found.text.strip()


def comment(text, mark):
    lines = textwrap.dedent(text).strip().split("\n")
    return [(mark + " " + line.strip()).rstrip() for line in lines]


def documented(node, lines):
    """The lines with the node's sentence above them."""
    sentence = sentence_of(node)
    width = COLUMNS - len("## ")
    return [f"## {line}" for line in textwrap.wrap(sentence, width)] + lines


def indented(lines):
    return ["  " + line for line in lines]


def literal(text):
    mark = '"' if '"' not in text else "'"
    return mark + text + mark


class Compact:
    """Writes a grammar in the compact syntax."""

    def grammar(self, root):
        lines = ['namespace local = ""', f'datatypes xsd = "{root.get("datatypeLibrary")}"']
        for child in root:
            lines.append("")
            if not tag(child):
                lines.pop()
                lines += [""] + comment(child.text, "#")
                continue
            if lines[-2].startswith("#"):
                lines.pop()
            name = "start" if tag(child) == "start" else child.get("name")
            lines += documented(child, [f"{name} ="] + indented(self.sequence(child)))
        return "\n".join(lines) + "\n"

    def sequence(self, node, separator=","):
        """The node's patterns, one below the other."""
        lines = []
        for pattern in patterns(node):
            if lines:
                lines[-1] += separator if separator == "," else f" {separator}"
            lines += self.pattern(pattern)
        return lines

    def group(self, node, separator=","):
        """The same between parentheses, unless it is a single short pattern."""
        lines = self.sequence(node, separator)
        if len(patterns(node)) == 1:
            return lines
        if not any("#" in line for line in lines) and len(" ".join(lines)) < COLUMNS - 20:
            return ["(" + " ".join(lines) + ")"]
        return ["("] + indented(lines) + [")"]

    def repeated(self, node, mark):
        lines = self.group(node)
        lines[-1] += mark
        return lines

    def pattern(self, node):
        kind = tag(node)
        if kind in ("optional", "zeroOrMore", "oneOrMore"):
            return self.repeated(node, {"optional": "?", "zeroOrMore": "*", "oneOrMore": "+"}[kind])
        return getattr(self, kind)(node)

    def choice(self, node):
        return self.group(node, "|")

    def interleave(self, node):
        return self.group(node, "&")

    def ref(self, node):
        return [node.get("name")]

    def text(self, _):
        return ["text"]

    def value(self, node):
        return [literal(node.text)]

    def data(self, node):
        parameters = [f"{p.get('name')} = {literal(p.text)}" for p in node]
        return [f"xsd:{node.get('type')} {{ {' '.join(parameters)} }}"]

    def element(self, node):
        return self.named(node, "element")

    def attribute(self, node):
        return self.named(node, "attribute")

    def named(self, node, word):
        name, content = node.get("name"), node
        if name is None:
            name = self.name_class(patterns(node)[0])
            content = ElementTree.Element("group")
            content.extend(patterns(node)[1:])
        inside = self.sequence(content) or ["text"]
        if len(inside) == 1 and len(inside[0]) < COLUMNS - 50:
            return documented(node, [f"{word} {name} {{ {inside[0]} }}"])
        return documented(node, [f"{word} {name} {{"] + indented(inside) + ["}"])

    def name_class(self, node):
        if tag(node) == "name":
            return node.text
        if tag(node) == "nsName":
            return "local:*" if node.get("ns") == "" else sys.exit("a namespace has no prefix")
        left_out = node.find(RNG + "except")
        if left_out is None:
            return "*"
        names = [self.name_class(name) for name in patterns(left_out)]
        return "* - " + (names[0] if len(names) == 1 else f"({' | '.join(names)})")


class Sentences:
    """The sentences on elements, on types of features, on forms of values, and
    on attributes by their element or type."""

    def __init__(self, root):
        self.defines = {define.get("name"): define for define in root.findall(RNG + "define")}
        self.elements, self.types, self.attributes = {}, {}, {}
        self.forms = {form: self.required(self.defines[name]) for form, name in FORMS.items()}
        for define in self.defines.values():
            for element in define.iter(RNG + "element"):
                if element.get("name") is not None:
                    self.elements[element.get("name")] = self.required(element)
                    self.collect(element, element.get("name"))

    def required(self, node):
        sentence = sentence_of(node)
        if not sentence:
            sys.exit(f'the {tag(node)} "{node.get("name")}" of the grammar has no sentence')
        return sentence

    def collect(self, node, owner):
        for child in patterns(node):
            if tag(child) == "ref":
                define = self.defines[child.get("name")]
                if define.find(RNG + "element") is None:
                    self.collect(define, self.type_of(define) or owner)
            elif tag(child) == "attribute" and child.get("name"):
                self.attributes.setdefault((owner, child.get("name")), self.required(child))
            elif tag(child) not in ("attribute", "element"):
                self.collect(child, owner)

    def type_of(self, define):
        """The type of feature whose part it is."""
        value = define.find(f"{RNG}attribute[@name='FeatureType']/{RNG}value")
        if value is None:
            return None
        self.types[value.text] = self.required(define)
        return value.text


def cells_of(row):
    return [cell.strip() for cell in re.split(r"(?<!\\)\|", row)[1:-1]]


class Tables:
    """The document with the sentences in its tables."""

    def __init__(self, sentences):
        self.sentences = sentences

    def sentence_for(self, head, place, cells):
        name = re.sub(r"^`(\w+)`.*", r"\1", cells[0])
        if head[0] == "Element":
            return self.sentences.elements.get(name)
        if head[0] == "`FeatureType`":
            return self.sentences.types.get(name)
        if head[:2] == ["Type", "Text"]:
            return self.sentences.forms.get(cells[0])
        if head[:2] != ["Attribute", "Type"]:
            return None
        attributes = self.sentences.attributes
        owner = "Feature" if place == "Attributes of every feature" else place
        if (owner, name) in attributes:
            return attributes[owner, name]
        # What only some types have may be in the table of every feature.
        found = {sentence for (o, n), sentence in attributes.items()
                 if n == name and o in self.sentences.types}
        return found.pop() if len(found) == 1 else None

    def rewritten(self, document):
        place, head, lines = "", None, []
        for line in document.split("\n"):
            if line.startswith("#"):
                place = line.lstrip("# ")
            if not line.startswith("|"):
                head = None
            elif head is None:
                head = cells_of(line)
            elif not line.startswith("|---"):
                line = self.row(line, head, place)
            lines.append(line)
        return "\n".join(lines)

    def row(self, line, head, place):
        cells = cells_of(line)
        sentence = self.sentence_for(head, place, cells)
        if sentence is None:
            return line
        cells[1 if head[0] in ("`FeatureType`", "Type") else len(head) - 1] = sentence
        return "| " + " | ".join(cells) + " |"


def main(arguments):
    writes = arguments[:1] == ["--write"]
    if len(arguments) - writes != 3:
        sys.exit(__doc__)
    grammar, compact, document = arguments[writes:]
    builder = ElementTree.TreeBuilder(insert_comments=True)
    root = ElementTree.parse(grammar, ElementTree.XMLParser(target=builder)).getroot()
    wanted = {compact: Compact().grammar(root)}
    with open(document, encoding="utf-8") as file:
        wanted[document] = Tables(Sentences(root)).rewritten(file.read())
    differs = False
    for path, text in wanted.items():
        try:
            with open(path, encoding="utf-8") as file:
                present = file.read()
        except FileNotFoundError:
            present = ""
        if present == text:
            continue
        if writes:
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
            continue
        differs = True
        sys.stdout.writelines(difflib.unified_diff(
            present.splitlines(True), text.splitlines(True), path, path + " made of the grammar"))
    return 1 if differs else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
