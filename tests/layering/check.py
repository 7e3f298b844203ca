"""Checks which rooms include which.

    check.py PROJECT-FOLDER

rooms.txt lists the rooms and, for each, the rooms that it may include, all of
which come before it in the list. Fails for an include that the list does not
allow, for a room that the list does not have, and for an arrow of the list that
no include uses any more. Prints the includes between rooms.
"""

import collections
import pathlib
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from includes import project_includes  # noqa: E402

_LIST = pathlib.Path(__file__).with_name("rooms.txt")


def read_rooms():
    """The rooms that each room may include."""
    rooms = {}
    for line in _LIST.read_text().splitlines():
        line = line.split("#")[0].strip()
        if not line:
            continue
        room, separator, allowed = line.partition(":")
        if not separator or room in rooms:
            sys.exit(f"layering: {_LIST.name}: cannot read: {line}")
        for each in allowed.split():
            if each not in rooms:
                sys.exit(f"layering: {_LIST.name}: {room} includes {each}, which is not above it")
        rooms[room] = allowed.split()
    return rooms


def room_of(path, rooms):
    """The innermost room that the file is in, or None."""
    for parent in path.parents:
        if str(parent) in rooms:
            return str(parent)
    return None


def sources(root, rooms):
    """The rooms' sources; tests and test doubles may include what they like."""
    tops = sorted({room.split("/")[0] for room in rooms})
    for top in tops:
        for path in sorted((root / top).rglob("*")):
            if path.suffix in (".cc", ".h") and not path.stem.endswith("_test"):
                yield path.relative_to(root)


def main():
    root = pathlib.Path(sys.argv[1])
    rooms = read_rooms()
    counts = collections.Counter()
    faults = []
    for source in sources(root, rooms):
        room = room_of(source, rooms)
        if room is None:
            faults.append(f"{source}: its folder is not a room of {_LIST.name}")
            continue
        for number, included in project_includes(root, source):
            other = room_of(included, rooms)
            if other in (None, room):
                continue
            counts[room, other] += 1
            if other not in rooms[room]:
                faults.append(f"{source}:{number}: {room} may not include {other} ({included})")
    for room, allowed in rooms.items():
        faults += [f"{_LIST.name}: nothing in {room} includes {other}; take the arrow out"
                   for other in allowed if not counts[room, other]]
    for (room, other), count in sorted(counts.items()):
        print(f"{room:24} -> {other:24} {count:4}")
    if faults:
        sys.exit("\n".join(f"layering: {fault}" for fault in faults))


if __name__ == "__main__":
    main()
