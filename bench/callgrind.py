"""Counts the instructions of operations with callgrind."""

import os
import pathlib
import re
import subprocess
import tempfile

# Valgrind counts each byte of a string instruction as one; without them a copy
# costs the same whatever its size makes the run-time system choose.
TUNABLES = ("glibc.cpu.x86_rep_movsb_threshold=1000000000"
            ":glibc.cpu.x86_rep_stosb_threshold=1000000000")


def read_dump(path):
    """The operation of one dump and its instructions per run, or nothing."""
    description = total = None
    with open(path, encoding="utf-8", errors="replace") as dump:
        for line in dump:
            if line.startswith("desc: Trigger: Client Request: "):
                description = line.rstrip("\n").partition("Client Request: ")[2]
            elif match := re.match(r"(?:summary|totals): (\d+)", line):
                total = int(match.group(1))
                break
    if description is None or total is None:
        return None
    runs, operation = description.split(" ", 1)
    return operation, total / int(runs)


def environment_for(program):
    """An environment in which the program's stack begins at the same address
    whatever the folders are called: the time that a comparison of texts takes can
    depend on their addresses."""
    return {"GLIBC_TUNABLES": TUNABLES, "BENCH_MODELS": ".", "PATH": os.defpath,
            "PADDING": "x" * max(0, 2048 - 2 * len(program))}


def count(program, operations, models):
    """Instructions per run of each operation ("load/1000") of a program."""
    with tempfile.TemporaryDirectory() as folder:
        program = str(program.resolve())
        command = ["valgrind", "--tool=callgrind", "--instr-atstart=no",
                   f"--callgrind-out-file={folder}/out", program, *operations]
        result = subprocess.run(command, env=environment_for(program), cwd=models,
                                capture_output=True, text=True)
        if result.returncode != 0:
            raise SystemExit(f"callgrind failed:\n{result.stderr}")
        found = (read_dump(path) for path in pathlib.Path(folder).iterdir())
        counts = dict(entry for entry in found if entry is not None)
    missing = [operation for operation in operations if operation not in counts]
    if missing:
        raise SystemExit(f"callgrind has not counted: {', '.join(missing)}")
    return counts
