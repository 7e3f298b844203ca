"""Committed lists of paragraphs: one "field: value" per line, all fields in
each paragraph, paragraphs apart by empty lines, comments after "#" at the
start of a line.
"""


class ListError(Exception):
    """The list is not as it must be; the text says where."""


def read_paragraphs(path, fields):
    """The values of the last field by those of the others."""
    found = {}
    paragraph = {}
    for number, line in enumerate([*path.read_text().splitlines(), ""], 1):
        if line.startswith("#"):
            continue
        if line.strip():
            field, separator, value = line.partition(": ")
            if not separator or field not in fields or field in paragraph:
                raise ListError(f"{path}:{number}: a paragraph has one line each of: "
                                f"{', '.join(fields)}")
            paragraph[field] = value
        elif paragraph:
            missing = [field for field in fields if field not in paragraph]
            if missing:
                raise ListError(f"{path}:{number}: the paragraph above has no {missing[0]}")
            found[tuple(paragraph[field] for field in fields[:-1])] = paragraph[fields[-1]]
            paragraph = {}
    return found
