"""The committed list of mutations that no test can or need kill.

Paragraphs of four lines, with comments behind "#" at the start of a line:

    file: output/conversion.cc
    line: the whole lines before the change, blanks collapsed
    becomes: the same after it
    reason: why no test fails
"""

_FIELDS = ("file", "line", "becomes", "reason")


class ListError(Exception):
    """The list is not as it must be; the text says where."""


def read_explanations(path):
    """The reasons by (file, line, becomes)."""
    reasons = {}
    paragraph = {}
    lines = path.read_text().splitlines() if path.exists() else []
    for number, line in enumerate([*lines, ""], 1):
        if line.startswith("#"):
            continue
        if line.strip():
            field, separator, value = line.partition(": ")
            if not separator or field not in _FIELDS or field in paragraph:
                raise ListError(f"{path}:{number}: not 'file: ', 'line: ', 'becomes: ' or "
                                "'reason: ' of a paragraph")
            paragraph[field] = value
        elif paragraph:
            missing = [field for field in _FIELDS if field not in paragraph]
            if missing:
                raise ListError(f"{path}:{number}: the paragraph above has no {missing[0]}")
            reasons[tuple(paragraph[field] for field in _FIELDS[:3])] = paragraph["reason"]
            paragraph = {}
    return reasons


def key_of(mutation):
    return mutation.path, mutation.before, mutation.after
