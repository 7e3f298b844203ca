"""The tables of ./dev bench as a text, and as the end of docs/performance.md."""

import datetime
import os
import pathlib
import platform

import check_instructions

PERFORMANCE = pathlib.Path(__file__).resolve().parent.parent / "docs" / "performance.md"
MARK = "<!-- ./dev bench --update writes what follows. -->"


def circumstances(build):
    """When and where the figures are from."""
    depends = check_instructions.circumstances(build)
    return (f"Measured on {datetime.date.today()}: {os.cpu_count()} cores, {depends['compiler']}, "
            f"{depends['libc']}, Linux {platform.release()}.")


def text_of(tables, build):
    """Of tables by their titles."""
    return f"{circumstances(build)}\n" + "".join(
        f"\n## {title}\n\n{table}\n" for title, table in tables.items())


def update(path, text):
    """Replaces what follows the mark in the document."""
    head, mark, _ = path.read_text(encoding="utf-8").partition(MARK)
    if not mark:
        raise SystemExit(f"{path} has no line: {MARK}")
    path.write_text(f"{head}{mark}\n\n{text}", encoding="utf-8")
