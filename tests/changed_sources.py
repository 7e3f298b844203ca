#!/usr/bin/env python3
"""Prints the project's sources that a change touches, each ended by NUL: those
that it adds or alters, and those that include such a header, directly or through
others.

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


def users_of(altered, names):
    """The altered files and all that include them."""
    users = {}
    for name in names:
        for _, included in project_includes(_ROOT, pathlib.Path(name)):
            users.setdefault(str(included), set()).add(name)
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
