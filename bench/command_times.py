"""Measures the commands of driver-feature on descriptions of several sizes:

    command_times.py BUILD_DIR [SIZE]...

Prints a table of the processors' time in seconds, each the shortest of three runs,
and of how it grows from the last size but one to the last: 1.0 is in proportion to
the size.
"""

import math
import pathlib
import resource
import subprocess
import sys
import tempfile

_SIZES = (85, 1000, 10000)


def feature(number):
    """One of each kind in turn: lists, numbers, decimal numbers, texts."""
    name = f"Feature{number:05}"
    commands = (f'PSCommand="/{name} %s def&#10;" PJLCommand="@PJL SET {name.upper()}=%s&#13;&#10;"'
                f' TESKJTAttributeName="{name.lower()}" TESKAttributeSyntax="keyword"')
    kind = number % 4
    if kind == 1:
        return (f'  <Feature FeatureType="IntEntry" Name="{name}" IntMinValue="0" IntMaxValue="99"'
                f' DefaultValue="1" {commands.replace("%s", "%d")}/>\n')
    if kind == 2:
        return (f'  <Feature FeatureType="FloatEntry" Name="{name}" FloatMinValue="0"'
                f' FloatMaxValue="9.5" DefaultValue="1.5" {commands.replace("%s", "%.2f")}/>\n')
    if kind == 3:
        return (f'  <Feature FeatureType="TextEntry" Name="{name}" MaxTextLength="9"'
                f' TextValidationCharSet="abcdefgh" DefaultValue="abc" {commands}/>\n')
    options = "".join(f'    <Option Name="Choice{letter}" PSCommand="{at}" PJLCommand="{letter}"'
                      f' TESKCommand="choice-{letter.lower()}"/>\n'
                      for at, letter in enumerate("ABCDE"))
    return (f'  <Feature FeatureType="MultiSelect" Name="{name}" DefaultValue="ChoiceA"'
            f' {commands}>\n{options}  </Feature>\n')


def changed_value(number):
    return ("ChoiceC", "7", "2.5", "fed")[number % 4]


def write_files(folder, size):
    (folder / "printer.xml").write_text(
        '<FeatureDescription>\n'
        '  <BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate"\n'
        '                   LoadVORNCallbackHandler="DriverFeatureHostLoad"/>\n' +
        "".join(feature(number) for number in range(size)) + "</FeatureDescription>\n")
    (folder / "changed.conf").write_text(
        "".join(f"Feature{number:05}={changed_value(number)}\n" for number in range(size)))
    cases = folder / "cases"
    cases.mkdir()
    (cases / "driver.txt").write_text("Description=../printer.xml\n")
    (cases / "defaults.conf").write_text("")
    (cases / "changed.conf").write_text((folder / "changed.conf").read_text())


def spent_by_children():
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


def seconds(command, folder):
    begin = spent_by_children()
    done = subprocess.run(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                          text=True, check=False)
    spent = spent_by_children() - begin
    if done.returncode not in ((0, 1) if "diff" in command else (0,)):
        sys.exit(f"{command}: status {done.returncode}\n{done.stderr}")
    return spent


def commands(program):
    settings = ["--settings", "changed.conf"]
    printer = [str(program), "--quiet"]
    return {
        "check": [*printer, "check", "printer.xml"],
        "show": [*printer, "show", "printer.xml", *settings],
        "emit": [*printer, "emit", "printer.xml", "--to", "ps=a", "--to", "pjl=b", "--to",
                 "ticket=c", *settings],
        "try": [*printer, "try", "printer.xml", *settings],
        "diff": [*printer, "diff", "printer.xml", "/dev/null", "changed.conf"],
        "dump": [*printer, "dump", "printer.xml", *settings],
        "test, two cases": [*printer, "test", "cases"],
    }


def measure(program, size):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        write_files(folder, size)
        seconds([str(program), "test", "cases", "--update"], folder)
        times = {name: min(seconds(command, folder) for _ in range(3))
                 for name, command in commands(program).items()}
        times["new"] = min(seconds([str(program), "new", f"new{at}"], folder) for at in range(3))
        return times


def main():
    program = pathlib.Path(sys.argv[1]).resolve() / "bin/driver-feature"
    sizes = [int(word) for word in sys.argv[2:]] or list(_SIZES)
    times = {size: measure(program, size) for size in sizes}
    print("| command | " + " | ".join(f"{size:,} features" for size in sizes) + " | growth |")
    print("|---|" + "---|" * (len(sizes) + 1))
    for name in times[sizes[0]]:
        row = [times[size][name] for size in sizes]
        growth = ""
        if len(row) > 1 and name != "new":
            growth = f"{math.log(row[-1] / row[-2]) / math.log(sizes[-1] / sizes[-2]):.2f}"
        print(f"| {name} | " + " | ".join(f"{spent:.3f} s" for spent in row) + f" | {growth} |")


if __name__ == "__main__":
    main()
