"""Judges a measurement of the library's coverage.

    check.py REPORT.json SUMMARY.json

The two files are gcovr's, from the same measurement. Prints the figures of
each file and every uncovered line. Fails below the limits and for an uncovered
line without a reason in uncovered.txt.
"""

import json
import pathlib
import sys

_ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(_ROOT / "tests/support"))
from paragraphs import ListError, read_paragraphs  # noqa: E402

_LIST = _ROOT / "tests/coverage/uncovered.txt"
_LEAST_LINES = 99
_LEAST_BRANCHES = 97


def percentage(covered, total):
    return 100 * covered / total if total else 100.0


def print_figures(summary):
    print(f"{'file':48} {'lines':>16} {'branches':>16}")
    for entry in [*summary["files"], {**summary, "filename": "all"}]:
        cells = []
        for kind in ("line", "branch"):
            covered, total = entry[f"{kind}_covered"], entry[f"{kind}_total"]
            cells.append(f"{covered:5}/{total:<5}{percentage(covered, total):5.1f}")
        print(f"{entry['filename']:48} {cells[0]:>16} {cells[1]:>16}")


def text_of(lines, number):
    """A line with as many of those below as make it unique, blanks
    collapsed."""
    everything = " ".join(" ".join(lines).split())
    for end in range(number, len(lines) + 1):
        text = " ".join(" ".join(lines[number - 1:end]).split())
        if everything.count(text) == 1:
            break
    return text


def uncovered_lines(report):
    """(file, number, the line's text) of each line that never ran."""
    for entry in report["files"]:
        lines = (_ROOT / entry["file"]).read_text().splitlines()
        for line in entry["lines"]:
            if line["count"] == 0 and not line.get("gcovr/noncode"):
                yield entry["file"], line["line_number"], text_of(lines, line["line_number"])


def check_lines(report):
    """Prints the uncovered lines; what is wrong, as texts, and the places (file,
    line) that have a reason."""
    reasons = read_paragraphs(_LIST, ("file", "line", "reason"))
    used = set()
    explained = set()
    unexplained = 0
    print("\nuncovered lines:")
    for path, number, text in uncovered_lines(report):
        reason = reasons.get((path, text))
        used.add((path, text))
        unexplained += reason is None
        if reason:
            explained.add((path, number))
        print(f"{path}:{number}: {text}\n    {reason or 'NOT EXPLAINED'}")
    faults = []
    name = _LIST.relative_to(_ROOT)
    if unexplained:
        faults.append(f"{unexplained} uncovered lines are not explained: write a test that runs "
                      f"them, or a reason into {name}")
    for path, text in sorted(set(reasons) - used):
        faults.append(f"{name} explains a line of {path} that is covered or gone: {text}")
    return faults, explained


def branches_on(report, explained):
    """The number of branches on lines that no test runs, for a reason."""
    return sum(len(line.get("branches", [])) for entry in report["files"]
               for line in entry["lines"] if (entry["file"], line["line_number"]) in explained)


def check_figures(summary):
    faults = []
    for kind, name, least in (("line", "lines", _LEAST_LINES),
                              ("branch", "branches", _LEAST_BRANCHES)):
        share = percentage(summary[f"{kind}_covered"], summary[f"{kind}_total"])
        if share < least:
            faults.append(f"{share:.2f} % of the {name} are covered, less than {least} %")
    return faults


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: check.py REPORT.json SUMMARY.json")
    report, summary = (json.loads(pathlib.Path(name).read_text()) for name in sys.argv[1:])
    if not summary["line_total"]:
        sys.exit("coverage: the measurement holds no line")
    print_figures(summary)
    faults, explained = check_lines(report)
    # Branches that cannot be reached are no more a fault than their lines.
    left_out = branches_on(report, explained)
    summary["branch_total"] -= left_out
    print(f"coverage: {percentage(summary['branch_covered'], summary['branch_total']):.2f} % of the "
          f"branches, without {left_out} on lines with a reason")
    faults = check_figures(summary) + faults
    if faults:
        sys.exit("\n".join(f"coverage: {fault}" for fault in faults))


if __name__ == "__main__":
    try:
        main()
    except ListError as problem:
        sys.exit(f"coverage: {problem}")
