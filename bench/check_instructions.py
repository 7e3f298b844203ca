#!/usr/bin/env python3
"""Compares the instructions of the main operations with the committed baseline.

usage: check_instructions.py BUILD-FOLDER BASELINE [--update]

Fails when an operation takes more than 5 % more than the baseline says. Counts
depend on the compiler, the C library and what its string functions choose on
this processor; the baseline names all three, and with others nothing is
compared (exit status 77). --update writes a new baseline.
"""

import argparse
import pathlib
import platform
import subprocess
import sys
import tempfile

import callgrind
import fresh_process
import job_counts

HIGHEST_GROWTH = 1.05
WITHOUT_FILE = "./dev corpus --sample 1 fetches the printer's PPD file"
OPERATIONS = (
    "load/1000",
    "build/1000",
    "find feature/1000",
    "read int/1000",
    "read choice/1000",
    "change choice/1000",
    "serialize PostScript/1000",
    "serialize PJL/1000",
    "change and serialize PostScript/1000",
    "serialize ticket/1000",
    "restore defaults/1000",
    "save values/1000",
    "restore values/1000",
    "choose in a list/10000",
    "find in a list/10000",
    "constrain in a list/10000",
    "find group/10000",
    "find no name among groups/10000",
    "fetch by any position/10000",
    "load two features more/10000",
    "read a record of many members/1000",
    "add record/1000",
    "load record/1000",
    "compare records of five members/1000",
    "look for duplicate record/1000",
    "remove the first record/10000",
    "remove the middle record/10000",
    "serialize nested groups/200",
    "serialize PJL of grouped features/1000",
    "write PostScript by hand/1000",
    "write ticket by hand/1000",
)
# Processes that load this many lists of this many choices and end.
FRESH_LOADS = ((300, 40), (1000, 5))
ROWS = (OPERATIONS + tuple(f"fresh load/{lists}x{choices}" for lists, choices in FRESH_LOADS)
        + job_counts.ROWS)
NOT_COMPARABLE = 77


def circumstances(build):
    compiler = (build / "bench" / "compiler.txt").read_text(encoding="ascii").strip()
    flags = pathlib.Path("/proc/cpuinfo").read_text(encoding="ascii").split()
    strings = "avx2" if "avx2" in flags else "sse2"
    return {"compiler": compiler, "libc": " ".join(platform.libc_ver()), "strings": strings}


def count(build):
    with tempfile.TemporaryDirectory() as models:
        subprocess.run([build / "bin" / "write_models", models, "1000"], check=True)
        counts = callgrind.count(build / "bin" / "library_counting", OPERATIONS, models)
    return counts | fresh_process.count_loads(build, FRESH_LOADS) | job_counts.count(build)


def read_baseline(path):
    """What the counts depend on, and the counts."""
    depends, counts = {}, {}
    for line in path.read_text(encoding="ascii").splitlines():
        if line.startswith("#") or not line:
            continue
        key, value = line.split(": ", 1)
        if "/" in key:
            counts[key] = int(value)
        else:
            depends[key] = value
    return depends, counts


def write_baseline(path, depends, counts):
    lines = ["# Instructions of one run of each operation, kept by check_instructions.py."]
    lines += [f"{key}: {value}" for key, value in depends.items()]
    missing = [operation for operation in ROWS if operation not in counts]
    if missing:
        raise SystemExit(f"not measured: {', '.join(missing)}; {WITHOUT_FILE}")
    lines += [f"{operation}: {counts[operation]:.0f}" for operation in ROWS]
    path.write_text("\n".join(lines) + "\n", encoding="ascii")


def compare(baseline, counts):
    """Prints all and returns whether none has grown too much."""
    good = True
    for operation in ROWS:
        if operation not in baseline:
            good = False
            print(f"{operation:40}is not in the baseline; --update writes a new one")
            continue
        if operation not in counts:
            print(f"{operation:40}is not measured: {WITHOUT_FILE}")
            continue
        ratio = counts[operation] / baseline[operation]
        verdict = "" if ratio <= HIGHEST_GROWTH else "  GROWN by more than 5 %"
        good = good and not verdict
        print(f"{operation:40}{baseline[operation]:14,}{counts[operation]:14,.0f}"
              f"{ratio - 1:+9.2%}{verdict}")
    return good


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("baseline", type=pathlib.Path)
    parser.add_argument("--update", action="store_true")
    options = parser.parse_args()
    depends = circumstances(options.build)
    if options.update:
        write_baseline(options.baseline, depends, count(options.build))
        return 0
    wanted, baseline = read_baseline(options.baseline)
    if wanted != depends:
        print(f"the baseline is of {wanted}, this is {depends}: not comparable")
        return NOT_COMPARABLE
    if compare(baseline, count(options.build)):
        return 0
    print("Where the growth is meant, ./dev instructions --update writes a new baseline.")
    return 1


if __name__ == "__main__":
    sys.exit(main())
