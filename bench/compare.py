#!/usr/bin/env python3
"""Measures the library beside its peer, libcups, and prints tables.

usage: compare.py BUILD-FOLDER [--rounds N] [--min-time SECONDS] [--real FOLDER] [--update]

The models are generated again, the texts of both are compared before anything
is timed, and all figures of the table come from this one run: rounds of the
two programs in turn, of which the table shows medians (of processor time, and
of the rounds' ratios), and one count of instructions each under callgrind. The
first table has what was reached beside what is wanted; a limit that is missed by
more than the spread of the rounds makes the run fail. --update writes the tables
into docs/performance.md as well.
"""

import argparse
import contextlib
import io
import json
import math
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import tempfile

import callgrind
import document
import fresh_process
import whole_life
from limits import Limits

SIZES = (10, 100, 1000, 10000)

# An operation of the library, one of the peer, and the highest ratio wanted of
# the first to the second at 1,000 features. At 10,000 it is to be half of it.
PAIRS = (
    ("load", "open", 1),
    ("build", "open", 1 / 4),
    ("change choice", "mark", 1 / 8),
    ("choose in a list", "mark in a list", 1 / 4),
    ("read int", "look up", 1 / 2),
    ("read choice", "look up", 1 / 2),
    ("serialize PostScript", "emit", 1 / 4),
    ("serialize PJL", "emit", 1 / 4),
    ("change and serialize PostScript", "mark and emit", 1 / 4),
    ("change and serialize PJL", "mark and emit", 1 / 4),
)
FLOOR = "copy the PostScript"


REAL_PAIRS = (
    ("load of a real printer", "open a real printer's file"),
    ("change choice of a real printer", "mark in a real printer's file"),
    ("serialize a real printer", "emit a real printer's file"),
)


def run(program, models, *arguments):
    environment = dict(os.environ, BENCH_MODELS=str(models), LC_ALL="C")
    return subprocess.run([str(program), *arguments], env=environment, check=True,
                          stdout=subprocess.PIPE).stdout


def require_equal_texts(library, peer, models):
    for size in SIZES:
        texts = [run(program, models, "--text", str(size)) for program in (library, peer)]
        if texts[0] != texts[1] or not texts[0]:
            raise SystemExit(f"the texts of {size} features differ: nothing is measured")


def add_real_models(program, printers, models):
    """Puts the PPD files and what is imported of them among the models. Returns
    their names."""
    for number, ppd in enumerate(printers):
        shutil.copy(ppd, models / f"real_ppd_{number}")
        subprocess.run([program, "import", ppd, "--output", models / f"real_xml_{number}"],
                       check=True, stderr=subprocess.DEVNULL)
    return [ppd.stem for ppd in printers]


def require_equal_real_texts(library, peer, models, names):
    """An imported description marks where its sections begin and end."""
    for number, name in enumerate(names):
        ours = run(library, models, "--real", str(number))
        ours = re.sub(rb"(?m)^%%?DriverSection .*\n", b"", ours)
        ours = re.sub(rb"(?m)^\n?%%?EndDriverSection\n", b"", ours)
        if ours != run(peer, models, "--real", str(number)) or not ours:
            raise SystemExit(f"the texts of {name} differ: nothing is measured")


def time_once(program, models, min_time):
    """By "operation/size": processor time in ns and allocations; and the fits."""
    report = json.loads(run(program, models, "--benchmark_format=json",
                            f"--benchmark_min_time={min_time}"))
    times, allocations, fits = {}, {}, {}
    for row in report["benchmarks"]:
        name = row["name"].split("/iterations:")[0]
        if row["run_type"] == "iteration":
            scale = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[row["time_unit"]]
            times[name] = row["cpu_time"] * scale
            allocations[name] = round(row["allocations"])
        elif row["aggregate_name"] == "BigO":
            fits[row["run_name"].split("/iterations:")[0]] = row["big_o"]
    return times, allocations, fits


class Rounds:
    """The rounds of one program."""

    def __init__(self):
        self.times, self.allocations, self.fits = [], {}, {}

    def add(self, program, models, min_time):
        times, self.allocations, self.fits = time_once(program, models, min_time)
        self.times.append(times)

    def median(self, name):
        return statistics.median(times[name] for times in self.times)


def shown_time(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def print_pairs(ours, theirs, our_counts, their_counts):
    print("| operation | features | ours | peer | ratio | ours, instructions "
          "| peer, instructions | ratio | wanted | allocations, ours / peer | of the floor |")
    print("|" + "---|" * 11)
    for our_name, their_name, wanted in PAIRS:
        for size in SIZES:
            mine, other = f"{our_name}/{size}", f"{their_name}/{size}"
            ratio = statistics.median(
                a[mine] / b[other] for a, b in zip(ours.times, theirs.times))
            limit = {1000: wanted, 10000: wanted / 2}.get(size)
            floor = ""
            if "serialize" in our_name:
                floor = (f"{ours.median(mine) / ours.median(f'{FLOOR}/{size}'):.1f} times, "
                         f"{our_counts[mine] / our_counts[f'{FLOOR}/{size}']:.1f} of instructions")
            print(f"| {our_name} | {size:,} | {shown_time(ours.median(mine))} "
                  f"| {shown_time(theirs.median(other))} | {ratio:.3f} "
                  f"| {our_counts[mine]:,.0f} | {their_counts[other]:,.0f} "
                  f"| {our_counts[mine] / their_counts[other]:.3f} "
                  f"| {f'{limit:.3f}' if limit else ''} "
                  f"| {ours.allocations[mine]:,} / {theirs.allocations[other]:,} | {floor} |")


def add_pairs(limits, ours, theirs, our_counts, their_counts):
    for our_name, their_name, wanted in PAIRS:
        for size, limit in ((1000, wanted), (10000, wanted / 2)):
            mine, other = f"{our_name}/{size}", f"{their_name}/{size}"
            limits.add(f"{our_name}, {size:,}: instructions",
                       our_counts[mine] / their_counts[other], limit)
            ratios = [a[mine] / b[other] for a, b in zip(ours.times, theirs.times)]
            limits.add(f"{our_name}, {size:,}: time", statistics.median(ratios), limit,
                       min(ratios))


def print_real(ours, theirs, our_counts, their_counts, names):
    print("| printer | operation | ours | peer | times faster | ours, instructions "
          "| peer, instructions | times fewer |")
    print("|" + "---|" * 8)
    for number, name in enumerate(names):
        for our_name, their_name in REAL_PAIRS:
            mine, other = f"{our_name}/{number}", f"{their_name}/{number}"
            ratio = statistics.median(
                b[other] / a[mine] for a, b in zip(ours.times, theirs.times))
            print(f"| {name} | {our_name.partition(' of a ')[0].partition(' a real')[0]} "
                  f"| {shown_time(ours.median(mine))} | {shown_time(theirs.median(other))} "
                  f"| {ratio:.1f} | {our_counts[mine]:,.0f} | {their_counts[other]:,.0f} "
                  f"| {their_counts[other] / our_counts[mine]:.1f} |")


def print_all(ours, counts):
    print("| operation | sizes | time | instructions | allocations | growth of time, fitted "
          "| of instructions |")
    print("|" + "---|" * 7)
    sizes_of = {}
    for mine in ours.times[0]:
        name, size = mine.rsplit("/", 1)
        sizes_of.setdefault(name, []).append(int(size))
    for name, sizes in sizes_of.items():
        if name in dict(REAL_PAIRS):
            continue
        rows = [f"{name}/{size}" for size in sizes]
        # Over the last step, where costs that do not depend on the size matter
        # least.
        power = math.log(counts[rows[-1]] / counts[rows[-2]], sizes[-1] / sizes[-2])
        print("| " + " | ".join((
            name,
            " / ".join(f"{size:,}" for size in sizes),
            " / ".join(shown_time(ours.median(row)) for row in rows),
            " / ".join(f"{counts[row]:,.0f}" for row in rows),
            " / ".join(f"{ours.allocations[row]:,}" for row in rows),
            ours.fits.get(name, ""),
            f"size to the power {power:.2f}")) + " |")


def captured(function, *arguments):
    """What the function prints, and returns."""
    output = io.StringIO()
    with contextlib.redirect_stdout(output):
        result = function(*arguments)
    return output.getvalue().strip("\n"), result


def measure_warm(options, limits):
    """The tables of operations in processes that have done them before, by title."""
    programs = options.build / "bin"
    library, peer = programs / "library_timing", programs / "peer_timing"
    with tempfile.TemporaryDirectory() as folder:
        models = pathlib.Path(folder)
        run(programs / "write_models", models, str(models))
        require_equal_texts(library, peer, models)
        names = add_real_models(programs / "driver-feature", whole_life.printers_of(options.real),
                                models)
        require_equal_real_texts(library, peer, models, names)
        ours, theirs = Rounds(), Rounds()
        for _ in range(options.rounds):
            ours.add(library, models, options.min_time)
            theirs.add(peer, models, options.min_time)
        our_counts = callgrind.count(programs / "library_counting", list(ours.times[0]), models)
        their_counts = callgrind.count(programs / "peer_counting", list(theirs.times[0]), models)
        memory = run(programs / "memory_report", models, "10000").decode()
    add_pairs(limits, ours, theirs, our_counts, their_counts)
    limits.add_growth(our_counts)
    limits.add_comparison(our_counts)
    limits.add_hand_written(our_counts)
    limits.add_memory(memory)
    counts = (ours, theirs, our_counts, their_counts)
    tables = {"Warm: the library beside its peer": captured(print_pairs, *counts)[0]}
    if names:
        tables["Warm: descriptions of real printers"] = captured(print_real, *counts, names)[0]
    tables["Warm: all operations"] = captured(print_all, ours, our_counts)[0]
    tables["Memory of a model of 10,000 features"] = f"```\n{memory.strip()}\n```"
    return tables


def measure(options):
    """All tables by title, and the number of limits that are missed."""
    limits = Limits()
    rounds = 4 * options.rounds
    warm = measure_warm(options, limits)
    fresh, _ = captured(fresh_process.measure, options.build, rounds, limits)
    lives, _ = captured(whole_life.measure, options.build, options.real, rounds, limits)
    reached, missed = captured(limits.print_table)
    return {"Wanted and reached": reached, "Loads in fresh processes": fresh,
            "Whole lives of processes": lives, **warm}, missed


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--real", type=pathlib.Path, metavar="FOLDER",
                        help="PPD files of the real printers to measure")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--min-time", type=float, default=0.05)
    parser.add_argument("--update", action="store_true",
                        help="write the tables into docs/performance.md, too")
    options = parser.parse_args()
    tables, missed = measure(options)
    text = document.text_of(tables, options.build)
    print(text)
    if options.update:
        document.update(document.PERFORMANCE, text)
    if missed:
        raise SystemExit(f"{missed} limits are missed")


if __name__ == "__main__":
    main()
