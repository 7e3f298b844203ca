"""Finds every single mutation that is made of a source file.

A mutation replaces one range of the file's text. Each kind has a function
that yields (start, end, replacement).
"""

import dataclasses
import re

import tables
from enumerators import next_enumerator

_COMPARISONS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">"}
_ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*"}
_NO_STATEMENT = frozenset(
    "return if for while switch case default using const auto static constexpr constinit template "
    "class struct enum public private protected typedef namespace friend extern delete throw try "
    "catch do else inline explicit virtual".split())


@dataclasses.dataclass(frozen=True)
class Mutation:
    path: str  # from the project's root
    line: int  # of the first change, counted from 1
    kind: str
    start: int
    end: int
    replacement: str
    before: str  # the lines that change, and what distinguishes them; blanks collapsed
    after: str

    def apply(self, text):
        return text[:self.start] + self.replacement + text[self.end:]


def _comparison(source, _):
    for index, token in enumerate(source.tokens):
        if token.text in _COMPARISONS and source.is_spaced(index):
            yield token.start, token.end, _COMPARISONS[token.text]


def _connective(source, _):
    for index, token in enumerate(source.tokens):
        if token.text in ("&&", "||") and source.is_spaced(index):
            yield token.start, token.end, "||" if token.text == "&&" else "&&"


def _arithmetic(source, _):
    for index, token in enumerate(source.tokens):
        if token.text in _ARITHMETIC and source.is_spaced(index):
            yield token.start, token.end, _ARITHMETIC[token.text]
        elif token.text in ("++", "--"):
            yield token.start, token.end, "--" if token.text == "++" else "++"


def _has_one_comparison(source, part):
    """Another kind turns such a condition into its contrary already."""
    words = [source.word(index) for index in part]
    equalities = [word for word in words if word in ("==", "!=")]
    return len(equalities) == 1 and not {"&&", "||", "?", "<=", ">="} & set(words)


def _conditions(source):
    """The conditions of if, while and for, and the values that are returned,
    as lists of token indices."""
    for index, token in enumerate(source.tokens):
        following = index + 1
        if token.text in ("if", "while") and source.word(following) == "(":
            yield list(range(following + 1, source.partner[following]))
        elif token.text == "for" and source.word(following) == "(":
            ends = [at for at in range(following, source.partner[following])
                    if source.word(at) == ";" and source.outer[at] == following]
            if len(ends) == 2:
                yield list(range(ends[0] + 1, ends[1]))
        elif token.text == "return":
            end = following
            while source.word(end) != ";" or source.outer[end] != source.outer[index]:
                end += 1
            yield list(range(following, end))


def _negated_condition(source, _):
    for index, token in enumerate(source.tokens):
        if token.text == "!" and not source.is_spaced(index):
            yield token.start, token.end, ""
    for part in _conditions(source):
        words = [source.word(index) for index in part]
        if not part or "=" in words or words[0] in ("!", "{") or _has_one_comparison(source, part):
            continue
        if len(part) == 1 and source.tokens[part[0]].kind != "word":
            continue
        if words in (["true"], ["false"], ["nullptr"]) or words[0] == "std":
            continue
        start, end = source.tokens[part[0]].start, source.tokens[part[-1]].end
        yield start, end, f"!({source.text[start:end]})"


def _next_number(text):
    if whole := re.fullmatch(r"(0x[0-9A-Fa-f]+|\d+)([UL]*)", text):
        value = int(whole.group(1), 0)
        return str(1 - value if value < 2 else value + 1) + whole.group(2)
    if re.fullmatch(r"\d+\.\d+F?", text):
        return "1" + text
    return None


def _next_character(text):
    if len(text) == 3:
        return "'" + chr(ord(text[1]) + 1) + "'" if text[1] not in "&[" else "'x'"
    return "'x'"


def _is_key(source, index):
    """Whether an enumerator is the key of a table's row, which no other row
    may have."""
    return source.word(index - 3) == "{" and tables.has_property_key(source, [index - 3])


def _means_nothing(source, index):
    """Whether a number is not a value: that of a pure virtual function, or the
    length of a buffer, which may well be longer."""
    before = [source.word(index - 1), source.word(index - 2), source.word(index - 3)]
    is_pure = before[0] == "=" and before[1] in (")", "const")
    return is_pure or before == [",", "char", "<"]


def _constant(source, enumerators):
    for index, token in enumerate(source.tokens):
        replacement = None
        if token.kind == "number":
            replacement = None if _means_nothing(source, index) else _next_number(token.text)
        elif token.kind == "character":
            replacement = _next_character(token.text)
        elif token.text in ("true", "false"):
            replacement = "false" if token.text == "true" else "true"
        elif token.kind == "word" and source.word(index + 1) != "=" and not _is_key(source, index):
            replacement = next_enumerator(source, index, enumerators)
        if replacement is not None:
            yield token.start, token.end, replacement


def _text(source, _):
    for token in source.tokens:
        if token.kind != "text":
            continue
        inner = token.text[1:-1]
        letters = [at for at in range(len(inner))
                   if inner[at] not in "\\{}" and inner[max(at - 1, 0)] != "\\"]
        if not letters:
            if not inner:
                yield token.start, token.end, '"x"'
            continue
        at = token.start + 1 + letters[len(letters) // 2]
        yield at, at + 1, "x" if source.text[at] != "x" else "y"


def _is_declaration(source, part):
    for left, right in zip(part, part[1:]):
        if source.word(right) in ("(", "=", ".", "->", "["):
            return False
        if source.tokens[right].kind == "word" and (
                source.tokens[left].kind == "word" or source.word(left) in (">", "&", "*")):
            return True
    return False


def _is_function_body(source, opening):
    """Whether a brace holds statements: not a class, a namespace or values."""
    words = []
    index = opening - 1
    while index >= 0 and source.word(index) not in (";", "{", "}"):
        words.append(source.word(index))
        index -= 1
    if words and words[0] in ("=", ",", "(", "return"):
        return False
    return not {"class", "struct", "enum", "namespace", "extern"} & set(words)


def _statements(source):
    """Calls, assignments and jumps, as lists of token indices with the end."""
    for index, token in enumerate(source.tokens):
        opening = source.outer[index]
        if opening is None or source.word(opening) != "{" or token.text in _NO_STATEMENT:
            continue
        if source.word(index - 1) not in (";", "{", "}", ")", "else", ":"):
            continue
        if token.kind != "word" and token.text not in ("*", "++", "--", "("):
            continue
        if not _is_function_body(source, opening):
            continue
        end = index
        while end < source.partner[opening] and not (
                source.word(end) == ";" and source.outer[end] == opening):
            end += 1
        if source.word(end) == ";":
            yield list(range(index, end))


def _dropped_statement(source, _):
    for part in _statements(source):
        words = {source.word(index) for index in part
                 if source.outer[index] == source.outer[part[0]]}
        is_jump = words in ({"break"}, {"continue"})
        acts = "(" in words or "<<" in words or {"=", "+=", "-=", "*=", "++", "--"} & words
        if not is_jump and (not acts or "{" in words or _is_declaration(source, part)):
            continue
        yield source.tokens[part[0]].start, source.tokens[part[-1]].end, ""


_KINDS = (
    ("comparison swapped", _comparison),
    ("&& and || swapped", _connective),
    ("arithmetic swapped", _arithmetic),
    ("condition or result negated", _negated_condition),
    ("constant changed", _constant),
    ("text edited", _text),
    ("statement dropped", _dropped_statement),
    ("table entries swapped", tables.swapped_entries),
)


def _collapsed(text):
    return " ".join(text.split())


def _describe(source, kind, start, end, replacement):
    before, first = source.lines(start, end)
    # Lines that are in the file more than once get those above them, too.
    while first > 0 and source.text.count(before) > 1:
        above, first = source.lines(first - 1, first - 1)
        before = f"{above}\n{before}"
    after = before[:start - first] + replacement + before[end - first:]
    return Mutation(source.path, source.line_of(start), kind, start, end, replacement,
                    _collapsed(before), _collapsed(after))


def find_mutations(source, enumerators):
    """All mutations of a file, in the order of their places, none twice."""
    found = {}
    for kind, find in _KINDS:
        for start, end, replacement in find(source, enumerators):
            first = next((at for at, token in enumerate(source.tokens) if token.end > start), 0)
            if source.is_skipped(first):
                continue
            mutation = _describe(source, kind, start, end, replacement)
            # Two kinds may come to the same text.
            found.setdefault(hash(mutation.apply(source.text)), mutation)
    return sorted(found.values(), key=lambda each: (each.start, each.end, each.replacement))
