#!/usr/bin/env python3
"""Checks that an import takes no more for each choice when there are more of them.

usage: import_growth.py PROGRAM

Counts the instructions of driver-feature import for PPDs with one option of 1,000
and of 8,000 choices. Looking each choice up among all would take 30 times as much
for the second one.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

_FEW, _MANY = 1000, 8000
_HIGHEST_GROWTH = _MANY / _FEW


def instructions(program, folder, choices):
    ppd = folder / f"{choices}.ppd"
    lines = ['*PPD-Adobe: "4.3"', "*OpenUI *Big: PickOne", "*DefaultBig: C0"]
    lines += [f'*Big C{number}: "c"' for number in range(choices)]
    ppd.write_text("\n".join([*lines, "*CloseUI: *Big", ""]))
    done = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", program,
                           "import", ppd, "--output", folder / "description.xml"],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    counted = re.search(r"Collected : (\d+)", done.stdout)
    if done.returncode != 0 or not counted:
        sys.exit(f"import growth: {choices} choices:\n{done.stdout}")
    return int(counted[1])


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as name:
        few, many = (instructions(sys.argv[1], pathlib.Path(name), choices)
                     for choices in (_FEW, _MANY))
    growth = many / few
    print(f"{_FEW} choices: {few:,} instructions; {_MANY} choices: {many:,}; growth {growth:.1f}")
    if growth > _HIGHEST_GROWTH:
        sys.exit("import growth: more than the choices have grown")


if __name__ == "__main__":
    main()
