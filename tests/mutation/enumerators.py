"""The enumerators of the library, each with the one that follows it."""

import dataclasses


@dataclasses.dataclass(frozen=True)
class Enumerators:
    followers: dict  # (enumeration, enumerator) -> the next; the last's is the first
    owners: dict  # enumerator -> the enumerations that have one of this name


def _members(source, opening):
    for part in source.parts(opening):
        yield source.word(part[0])


def collect_enumerators(sources):
    followers = {}
    owners = {}
    for source in sources:
        for index, token in enumerate(source.tokens):
            if token.text != "enum":
                continue
            at = index + 2 if source.word(index + 1) == "class" else index + 1
            name = source.word(at)
            while source.word(at) not in ("{", ";"):
                at += 1
            if source.word(at) == ";":
                continue
            members = list(_members(source, at))
            for member, follower in zip(members, members[1:] + members[:1]):
                followers[name, member] = follower
                owners.setdefault(member, []).append(name)
    return Enumerators(followers, owners)


def _scope_of(source, index):
    """The enumeration that a word is qualified with; a `using` is followed."""
    if source.word(index - 1) != "::":
        return None
    scope = source.word(index - 2)
    for at in range(len(source.tokens) - 2):
        if source.word(at) == "using" and source.word(at + 1) == scope and \
                source.word(at + 2) == "=":
            end = at
            while source.word(end) != ";":
                end += 1
            return source.word(end - 1)
    return scope


def _is_being_defined(source, index):
    opening = source.outer[index]
    while opening is not None:
        at = opening
        while at > 0 and source.word(at) not in (";", "}", "enum"):
            at -= 1
        if source.word(at) == "enum" and source.outer[at] == source.outer[opening]:
            return True
        opening = source.outer[opening]
    return False


def next_enumerator(source, index, enumerators):
    """What may replace an enumerator; None where the word is not one, or where
    it is not certain which enumeration it belongs to."""
    word = source.word(index)
    owners = enumerators.owners.get(word)
    if owners is None or _is_being_defined(source, index):
        return None
    scope = _scope_of(source, index)
    if (scope, word) in enumerators.followers:
        return enumerators.followers[scope, word]
    return enumerators.followers[owners[0], word] if len(owners) == 1 else None
