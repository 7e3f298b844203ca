"""Splits C++ source text into tokens, as far as mutations need it.

Comments, blanks and preprocessor lines are left out. Raw string literals and
trigraphs are not understood; the library has none.
"""

import bisect
import dataclasses
import re

_PATTERN = re.compile(
    r"""(?P<skip>\s+|//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*)
      |(?P<text>"(?:\\.|[^"\\\n])*")
      |(?P<character>'(?:\\.|[^'\\\n])*')
      |(?P<number>\d(?:[eEpP][+-]|'(?=\w)|[\w.])*)
      |(?P<word>[A-Za-z_]\w*)
      |(?P<mark><=>|<<=|>>=|->\*|\.\.\.|&&|\|\||[=!<>+\-*/%&|^]=|\+\+|--|->|::|<<|.)""",
    re.VERBOSE | re.MULTILINE | re.DOTALL)

_OPENING = {"(": ")", "[": "]", "{": "}"}


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str  # text, character, number, word or mark
    text: str
    start: int
    end: int


class Source:
    """A source file's text, its tokens, and how its brackets nest."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.tokens = [
            Token(found.lastgroup, found.group(), found.start(), found.end())
            for found in _PATTERN.finditer(text) if found.lastgroup != "skip"
        ]
        self.partner = {}  # of a bracket's index: that of the other one
        self.outer = []  # per token the index of the bracket around it, or None
        self._line_starts = [0] + [at.end() for at in re.finditer("\n", text)]
        self._match_brackets()
        self._skipped = self._find_skipped()

    def _match_brackets(self):
        open_brackets = []
        for index, token in enumerate(self.tokens):
            if token.text in (")", "]", "}") and open_brackets:
                start = open_brackets.pop()
                if _OPENING[self.tokens[start].text] != token.text:
                    raise ValueError(f"{self.path}:{self.line_of(token.start)}: brackets differ")
                self.partner[start] = index
                self.partner[index] = start
            self.outer.append(open_brackets[-1] if open_brackets else None)
            if token.text in _OPENING:
                open_brackets.append(index)

    def _find_skipped(self):
        """Tokens that a mutation would only turn into a compile error, or that
        name a language: static_assert and what it calls, extern "C", and
        operators' names."""
        skipped = set()
        for index, token in enumerate(self.tokens):
            if token.text in ("static_assert", "decltype", "explicit"):
                if self.word(index + 1) == "(":
                    skipped.update(range(index, self.partner[index + 1] + 1))
            elif token.text == "consteval" and self.word(index + 1) == "bool":
                body = next(at for at in range(index, len(self.tokens)) if self.word(at) == "{")
                skipped.update(range(index, self.partner[body] + 1))
            elif token.text in ("extern", "operator"):
                skipped.update((index, index + 1))
        return skipped

    def word(self, index):
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def is_skipped(self, index):
        return index in self._skipped

    def line_of(self, position):
        return bisect.bisect_right(self._line_starts, position)

    def is_spaced(self, index):
        """Whether there are blanks on both sides, as around a binary operator."""
        token = self.tokens[index]
        return (self.text[token.start - 1:token.start].isspace()
                and self.text[token.end:token.end + 1].isspace())

    def lines(self, start, end):
        """The whole lines that hold the range, and where they begin."""
        first = self._line_starts[self.line_of(start) - 1]
        last = self.text.find("\n", end)
        return self.text[first:last if last >= 0 else len(self.text)], first

    def parts(self, opening):
        """What commas separate inside a bracket: lists of token indices."""
        parts = [[]]
        for index in range(opening + 1, self.partner[opening]):
            if self.tokens[index].text == "," and self.outer[index] == opening:
                parts.append([])
            else:
                parts[-1].append(index)
        return [part for part in parts if part]
