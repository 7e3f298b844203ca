"""Mutations of tables: neighbouring entries and rows that change places."""


def _is_initializer(source, opening):
    """Whether a brace holds values, judging by what comes before it."""
    return source.word(opening - 1) in ("=", "(", ":", "{", "return")


def _range(source, part):
    return source.tokens[part[0]].start, source.tokens[part[-1]].end


def _swap(source, left, right):
    left_start, left_end = _range(source, left)
    right_start, right_end = _range(source, right)
    first, second = source.text[left_start:left_end], source.text[right_start:right_end]
    if first == second:
        return
    between = source.text[left_end:right_start]
    yield left_start, right_end, second + between + first


def _copy(source, left, right):
    start, end = _range(source, left)
    other_start, other_end = _range(source, right)
    yield start, end, source.text[other_start:other_end]


def _is_row(source, part):
    return source.word(part[0]) == "{" and source.partner[part[0]] == part[-1]


def has_property_key(source, row):
    """Whether a row begins with a property's enumerator. Such a table does not
    compile with a key twice or, where order counts, with rows out of order."""
    return source.word(row[0] + 1) in ("Property", "OptionProperty", "Name")


def _swap_rows(source, upper, lower):
    """Each cell of a row with the one below it, and the rows as a whole."""
    upper_cells, lower_cells = source.parts(upper[0]), source.parts(lower[0])
    keyed = has_property_key(source, upper)
    first = 1 if keyed else 0
    for left, right in zip(upper_cells[first:], lower_cells[first:]):
        # Two members that change places are still two members: what counts is
        # that a property has one to itself.
        yield from (_copy if source.word(left[0]) == "&" else _swap)(source, left, right)
    if not keyed:
        yield from _swap(source, upper, lower)


def _is_designated(source, part):
    return source.word(part[0]) == "." and source.word(part[2]) == "="


def _swap_parts(source, parts):
    for left, right in zip(parts, parts[1:]):
        if _is_row(source, left) and _is_row(source, right):
            yield from _swap_rows(source, left, right)
        elif _is_designated(source, left) and _is_designated(source, right):
            yield from _swap(source, left[3:], right[3:])
        elif not _is_row(source, left) and not _is_row(source, right):
            yield from _swap(source, left, right)


def _is_row_of_table(source, opening):
    outer = source.outer[opening]
    is_inside = outer is not None and source.word(outer) == "{"
    return is_inside and source.word(opening - 1) in ("{", ",")


def swapped_entries(source, _):
    for opening, closing in source.partner.items():
        if source.word(opening) != "{" or closing < opening:
            continue
        parts = source.parts(opening)
        holds_rows = parts and _is_row(source, parts[0])
        if not holds_rows and _is_row_of_table(source, opening):
            continue
        if _is_initializer(source, opening):
            yield from _swap_parts(source, parts)
