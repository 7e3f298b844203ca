#!/usr/bin/env python3
"""Measures a load in a process of its own beside the peer's opening of the PPD
file of the same model, and prints one table.

usage: fresh_process.py BUILD-FOLDER [--rounds N]

Each round runs both programs once for each shape, in turn. The times are
processor time of user and system, from the process's start to its end, of which
the table shows medians and the middle half of the rounds. Instructions are
counted once, and the memory is that above a load of one list of one choice.
"""

import argparse
import os
import pathlib
import re
import statistics
import subprocess
import tempfile

import callgrind

# Lists and choices of each, the highest ratio of time that is wanted, and the
# highest ratio of memory to the description's size.
SHAPES = ((300, 40), (50, 2000), (1000, 5))
WANTED_TIME = 0.5
WANTED_MEMORY = 5
SMALLEST = (1, 1)


def time_once(command):
    """Milliseconds of processor time."""
    child = os.posix_spawn(command[0], command, {"LC_ALL": "C"})
    _, status, usage = os.wait4(child, 0)
    if status != 0:
        raise SystemExit(f"failed: {' '.join(command)}")
    return 1000 * (usage.ru_utime + usage.ru_stime)


def count_once(command, folder, environment=None, status=0):
    """Instructions from the start of the process to its end, which is to have that
    exit status."""
    command = [str(word) for word in command]
    result = subprocess.run(
        ["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder}/out", *command],
        env=callgrind.environment_for(command[0]) | (environment or {}), capture_output=True,
        text=True)
    found = re.search(r"Collected : (\d+)", result.stderr)
    if result.returncode != status or not found:
        raise SystemExit(f"callgrind failed:\n{result.stderr}")
    return int(found.group(1))


def peak_of(command):
    """Bytes."""
    output = subprocess.run([command[0], "--peak", *command[1:]], check=True,
                            stdout=subprocess.PIPE).stdout
    return 1024 * int(output)


def write_models(programs, folder, shapes):
    for shape in shapes:
        subprocess.run([programs / "write_models", "--lists", folder, *map(str, shape)],
                       check=True)


def count_loads(build, shapes):
    """Instructions of the library's side, by "fresh load/LISTSxCHOICES"."""
    programs = build.resolve() / "bin"
    with tempfile.TemporaryDirectory() as folder:
        write_models(programs, folder, shapes)
        side = Side(programs / "fresh_load", pathlib.Path(folder), "lists_ps")
        return {f"fresh load/{shape[0]}x{shape[1]}": count_once(side.command(shape), folder)
                for shape in shapes}


class Side:
    """One of the two programs."""

    def __init__(self, program, models, kind):
        self.program, self.models, self.kind = program, models, kind
        self.times = {shape: [] for shape in SHAPES}

    def file(self, shape):
        return self.models / f"{self.kind}_{shape[0]}_{shape[1]}"

    def command(self, shape):
        return [str(self.program), str(self.file(shape))]

    def run_round(self):
        for shape in SHAPES:
            self.times[shape].append(time_once(self.command(shape)))

    def peak(self, shape):
        return peak_of(self.command(shape)) - peak_of(self.command(SMALLEST))


def spread(values):
    """The median and the middle half."""
    low, middle, high = statistics.quantiles(values, n=4)
    return middle, low, high


def shown(values, digits):
    middle, low, high = spread(values)
    return f"{middle:.{digits}f} ({low:.{digits}f} to {high:.{digits}f})"


def print_table(ours, theirs, folder, limits):
    print("| load in a fresh process | ours, ms | peer, ms | ratio | wanted "
          "| instructions, ours / peer | ratio | peak memory of the file's size | wanted |")
    print("|" + "---|" * 9)
    for shape in SHAPES:
        ratios = [a / b for a, b in zip(ours.times[shape], theirs.times[shape])]
        counts = [count_once(side.command(shape), folder) for side in (ours, theirs)]
        memory = ours.peak(shape) / ours.file(shape).stat().st_size
        print(f"| {shape[0]:,} lists of {shape[1]:,} choices | {shown(ours.times[shape], 1)} "
              f"| {shown(theirs.times[shape], 1)} | {shown(ratios, 2)} | {WANTED_TIME} "
              f"| {counts[0]:,} / {counts[1]:,} | {counts[0] / counts[1]:.2f} "
              f"| {memory:.1f} | {WANTED_MEMORY} |")
        if limits is not None:
            name = f"load in a fresh process, {shape[0]:,} lists of {shape[1]:,} choices"
            middle, low, _ = spread(ratios)
            limits.add(f"{name}: time", middle, WANTED_TIME, low)
            limits.add(f"{name}: memory beside the file", memory, WANTED_MEMORY)


def measure(build, rounds, limits=None):
    programs = build.resolve() / "bin"
    with tempfile.TemporaryDirectory() as folder:
        models = pathlib.Path(folder)
        write_models(programs, folder, (SMALLEST, *SHAPES))
        ours = Side(programs / "fresh_load", models, "lists_ps")
        theirs = Side(programs / "fresh_open", models, "lists_ppd")
        for _ in range(rounds):
            ours.run_round()
            theirs.run_round()
        print_table(ours, theirs, folder, limits)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--rounds", type=int, default=21)
    options = parser.parse_args()
    measure(options.build, options.rounds)


if __name__ == "__main__":
    main()
