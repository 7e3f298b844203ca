#!/usr/bin/env python3
"""Prints the project's sources that a change touches, each ended by NUL: those
that it adds or alters, and those that include such a header, directly or through
others.

usage: changed_sources.py BASE < SOURCES

BASE is the commit that the change starts from. SOURCES are the candidates, each
ended by NUL. Files that only got another name are not altered.
"""

import pathlib
import re
import subprocess
import sys

_ROOT = pathlib.Path(__file__).resolve().parents[1]
_INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
_ROOTS = ("library", ".", "platform/common_api", "platform/xml_parser")


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


def included_by(name, known):
    """The files that a file includes, as far as they are known."""
    text = (_ROOT / name).read_text(errors="replace")
    folders = (pathlib.Path(name).parent, *map(pathlib.Path, _ROOTS))
    for include in _INCLUDE.findall(text):
        for folder in folders:
            candidate = str(folder / include)
            if candidate in known:
                yield candidate
                break


def users_of(altered, names):
    """The altered files and all that include them."""
    users = {}
    for name in names:
        for included in included_by(name, names):
            users.setdefault(included, set()).add(name)
    touched, todo = set(), list(altered)
    while todo:
        name = todo.pop()
        if name not in touched:
            touched.add(name)
            todo += users.get(name, ())
    return touched


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sources = {str(pathlib.Path(path).relative_to(_ROOT))
               for path in sys.stdin.read().split("\0") if path}
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard",
                             "*.h", "*.cc"],
                            cwd=_ROOT, stdout=subprocess.PIPE, text=True, check=True)
    names = {name for name in listed.stdout.split("\0") if name and (_ROOT / name).is_file()}
    for name in sorted(sources & users_of(altered_files(sys.argv[1]), names)):
        sys.stdout.write(f"{_ROOT / name}\0")


if __name__ == "__main__":
    main()
