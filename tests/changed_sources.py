#!/usr/bin/env python3
"""Prints the project's sources that show what is wrong with a change, each ended by NUL:
those that it adds or alters, and, for each such header that none of them includes,
directly or through others, one that does. What is wrong with a header is the same in
all sources that include it.

usage: changed_sources.py BASE < SOURCES

BASE is the commit that the change starts from. SOURCES are the candidates, each
ended by NUL. Files that only got another name are not altered.
"""

import pathlib
import subprocess
import sys

_ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.append(str(_ROOT / "tests/support"))
from includes import project_includes  # noqa: E402


def altered_files(base):
    """From the base to the working tree."""
    done = subprocess.run(
        ["git", "diff", "--name-status", "--find-renames", "--diff-filter=d", "-z", base],
        cwd=_ROOT, stdout=subprocess.PIPE, text=True, check=True)
    words = iter(done.stdout.split("\0"))
    altered = set()
    for status in words:
        if not status:
            continue
        name = next(words)
        if status[0] in "RC":
            name = next(words)
        if status != "R100":
            altered.add(name)
    return altered


def direct_users(names):
    """For each file those that include it."""
    users = {}
    for name in names:
        for _, included in project_includes(_ROOT, pathlib.Path(name)):
            users.setdefault(str(included), set()).add(name)
    return users


def all_users(header, users):
    """All that include it, directly or through others."""
    found, todo = set(), [header]
    while todo:
        for name in users.get(todo.pop(), set()) - found:
            found.add(name)
            todo.append(name)
    return found


def shown_by(altered, sources, users):
    """The altered sources, and one for each altered header that they do not include: its
    own, if it has one."""
    shown = sources & altered
    for header in sorted(altered - sources):
        able = all_users(header, users) & sources
        if able and not able & shown:
            own = str(pathlib.Path(header).with_suffix(".cc"))
            shown.add(own if own in able else min(able))
    return shown


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sources = {str(pathlib.Path(path).relative_to(_ROOT))
               for path in sys.stdin.read().split("\0") if path}
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard",
                             "*.h", "*.cc"],
                            cwd=_ROOT, stdout=subprocess.PIPE, text=True, check=True)
    names = {name for name in listed.stdout.split("\0") if name and (_ROOT / name).is_file()}
    for name in sorted(shown_by(altered_files(sys.argv[1]), sources, direct_users(names))):
        sys.stdout.write(f"{_ROOT / name}\0")


if __name__ == "__main__":
    main()
