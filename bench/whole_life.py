#!/usr/bin/env python3
"""Measures whole lives of processes, as users get them: jobs through the filter
beside jobs through CUPS' own filter pstops, the start of programs beside that of
an empty C++ program, and commands on long lists. Prints a table of them, and one of
what is wanted and reached.

usage: whole_life.py BUILD-FOLDER [--real FOLDER] [--rounds N]

FOLDER has PPD files of printers (NAME.ppd), each of which gets two rows: a job of
one small page and one of 60 MB. Without it, two printers of ./dev corpus get them,
if that has fetched their files. The times are processor time of user and system,
from a process's start to its end. Rounds run both sides in turn; the table shows
medians and the middle half of the rounds. Each job's output goes to a file.
"""

import argparse
import os
import pathlib
import statistics
import subprocess
import tempfile

from limits import WANTED_GROWTH, Limits

PSTOPS = pathlib.Path("/usr/lib/cups/filter/pstops")
CORPUS = pathlib.Path(__file__).resolve().parent.parent / "build" / "corpus" / "ppds"
PRINTERS = tuple(CORPUS / "openprinting-ppds" / name for name in (
    "Ricoh/PS/Ricoh-Pro_C7200S_Light_PS.ppd", "Kyocera/en/Kyocera_Mita_KM-4230_en.ppd"))
JOB = ("1", "jane", "title", "1", "")
WANTED_JOB = 0.6
WANTED_START = 2
WANTED_IMPORT = 1000  # Milliseconds.
LARGE = 60_000_000
GROUPS = (500, 1000, 2000)

PAGE = """%!PS-Adobe-3.0
%%Pages: 1
%%EndComments
%%BeginProlog
%%EndProlog
%%BeginSetup
%%EndSetup
%%Page: 1 1
/Helvetica 36 selectfont 36 100 moveto (Hello, printer) show
showpage
%%Trailer
%%EOF
"""
PATH = "12.34 56.78 moveto 123.45 67.89 lineto 100 200 300 400 500 600 curveto stroke\n"


class Run:
    """A command whose times are taken."""

    def __init__(self, command, environment=None, status=0):
        self.command = [str(word) for word in command]
        self.status = status  # With which it must end.
        self.environment = {"LC_ALL": "C", **(environment or {})}
        self.times = []

    def once(self, folder):
        """Milliseconds."""
        files = [(os.POSIX_SPAWN_OPEN, number, f"{folder}/stream{number}",
                  os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600) for number in (1, 2)]
        child = os.posix_spawn(self.command[0], self.command, self.environment,
                               file_actions=files)
        _, status, usage = os.wait4(child, 0)
        if os.waitstatus_to_exitcode(status) != self.status:
            errors = pathlib.Path(f"{folder}/stream2").read_text(errors="replace")
            raise SystemExit(f"failed: {' '.join(self.command)}\n{errors}")
        self.times.append(1000 * (usage.ru_utime + usage.ru_stime))


def shown(values, digits):
    low, middle, high = statistics.quantiles(values, n=4)
    return f"{middle:.{digits}f} ({low:.{digits}f} to {high:.{digits}f})"


def print_pair(name, ours, theirs, wanted, rounds, folder, limits):
    for _ in range(rounds):
        ours.once(folder)
        theirs.once(folder)
    ratios = [a / b for a, b in zip(ours.times, theirs.times)]
    print(f"| {name} | {shown(ours.times, 2)} | {shown(theirs.times, 2)} "
          f"| {shown(ratios, 2)} | {wanted} |")
    low, middle, _ = statistics.quantiles(ratios, n=4)
    limits.add(f"{name}: time", middle, wanted, low)


def print_alone(name, run, rounds, folder):
    """A row without a peer. Returns the median of the milliseconds."""
    for _ in range(rounds):
        run.once(folder)
    print(f"| {name} | {shown(run.times, 2)} | | | |")
    return statistics.median(run.times)


def write_documents(folder):
    (folder / "page.ps").write_text(PAGE)
    head, line, tail = PAGE.partition("/Helvetica")
    with open(folder / "large.ps", "w") as document:
        document.write(head)
        document.writelines(PATH for _ in range(LARGE // len(PATH)))
        document.write(line + tail)


def make_queue(program, ppd, folder):
    """The PPD of a queue for the printer."""
    description, queue = folder / f"{ppd.stem}.xml", folder / f"{ppd.stem}.queue.ppd"
    for command in (("import", ppd, "--output", description),
                    ("queue", description, "--ppd", ppd, "--output", queue)):
        subprocess.run([program, *command], check=True, stderr=subprocess.DEVNULL)
    return queue


def printers_of(folder):
    if folder is not None:
        return sorted(folder.glob("*.ppd"))
    return [ppd for ppd in PRINTERS if ppd.exists()]


def measure_jobs(programs, real, rounds, folder, limits):
    write_documents(folder)
    for ppd in printers_of(real):
        queue = make_queue(programs / "driver-feature", ppd, folder)
        for name, document, count in (("a small page", "page.ps", rounds),
                                      ("60 MB", "large.ps", max(rounds // 5, 3))):
            job = (*JOB, folder / document)
            ours = Run((programs / "driver-feature-filter", *job), {"PPD": str(queue)})
            theirs = Run((PSTOPS, *job), {"PPD": str(ppd)})
            print_pair(f"job of {name}, {ppd.stem}", ours, theirs, WANTED_JOB, count, folder,
                       limits)


def measure_starts(programs, rounds, folder, limits):
    """Of programs that show their version or refuse their arguments."""
    for name, arguments, status in (("driver-feature", ("--version",), 0),
                                    ("driver-feature-filter", (), 1)):
        print_pair(f"start of {' '.join((name, *arguments))} beside an empty C++ program",
                   Run((programs / name, *arguments), status=status),
                   Run((programs / "empty_program",)), WANTED_START, rounds, folder, limits)


def write_long_ppd(path, choices):
    head = ('*PPD-Adobe: "4.3"\n*FormatVersion: "4.3"\n*ModelName: "Long"\n'
            "*OpenUI *Long: PickOne\n*OrderDependency: 10 AnySetup *Long\n*DefaultLong: C1\n")
    lines = (f'*Long C{number}: "{number} long"\n' for number in range(choices))
    path.write_text(head + "".join(lines) + "*CloseUI: *Long\n")


def write_groups(path, count):
    groups = (f'<FeatureDynamicGroup Name="G{number}"><FeatureStaticGroup Name="R{number}">'
              f'<Feature FeatureType="IntEntry" Name="F{number}" IntMinValue="0" '
              'IntMaxValue="9" DefaultValue="1"/>'
              "</FeatureStaticGroup></FeatureDynamicGroup>\n" for number in range(count))
    path.write_text('<FeatureDescription><BaseFeatureInfo '
                    'DefaultCallbackHandler="DriverFeatureHostUpdate" '
                    'LoadVORNCallbackHandler="DriverFeatureHostLoad"/>\n'
                    + "".join(groups) + "</FeatureDescription>\n")


def measure_commands(programs, rounds, folder, limits):
    program = programs / "driver-feature"
    write_long_ppd(folder / "long.ppd", 20_000)
    run = Run((program, "import", folder / "long.ppd", "--output", folder / "long.xml"))
    limits.add("import with 20,000 choices, ms",
               print_alone("import with 20,000 choices", run, rounds, folder), WANTED_IMPORT,
               min(run.times))
    each = []
    for count in GROUPS:
        write_groups(folder / "groups.xml", count)
        emit = (program, "emit", folder / "groups.xml", "--to", f"ps={folder / 'groups.ps'}")
        settings = folder / "groups.txt"
        subprocess.run([*emit, "--save", settings], check=True)
        run = Run((*emit, "--settings", settings))
        each.append(print_alone(f"--settings with {count:,} groups", run, rounds, folder) / count)
    limits.add(f"--settings, a group: {GROUPS[-1]:,} beside {GROUPS[0]}", each[-1] / each[0],
               WANTED_GROWTH)


def measure(build, real, rounds, limits):
    programs = build.resolve() / "bin"
    print("| whole life of a process | ours, ms | peer, ms | ratio | wanted |")
    print("|" + "---|" * 5)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        if PSTOPS.exists():
            measure_jobs(programs, real, rounds, folder, limits)
        measure_starts(programs, rounds, folder, limits)
        measure_commands(programs, max(rounds // 5, 3), folder, limits)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--real", type=pathlib.Path, metavar="FOLDER")
    parser.add_argument("--rounds", type=int, default=21)
    options = parser.parse_args()
    limits = Limits()
    measure(options.build, options.real, options.rounds, limits)
    print()
    if missed := limits.print_table():
        raise SystemExit(f"{missed} limits are missed")


if __name__ == "__main__":
    main()
