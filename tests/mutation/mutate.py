"""Changes the library's sources in one place at a time and sees which change
no test notices. See `./dev mutate --help` for how to run it, and docs/testing.md for
what it is for.
"""

import argparse
import collections
import concurrent.futures
import dataclasses
import pathlib
import queue
import random
import re
import subprocess
import sys
import threading
import time

from cpp_tokens import Source
from enumerators import collect_enumerators
from mutations import find_mutations
from trials import INVALID, KILLED, SURVIVED, Trials
from workspace import BuildError, Worker, Workspace, library_sources

_ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(_ROOT / "tests/support"))
from paragraphs import ListError, read_paragraphs  # noqa: E402

_EXPLANATIONS = _ROOT / "tests/mutation/survivors.txt"
_EQUIVALENT = _ROOT / "tests/mutation/equivalent.txt"
_UNREACHABLE = _ROOT / "tests/mutation/unreachable.txt"
# Of those that change what the library does.
_LEAST_PERCENTAGE = 97
# Fewer mutations say nothing about a percentage.
_LEAST_FOR_PERCENTAGE = 100


def read_arguments():
    parser = argparse.ArgumentParser(
        prog="./dev mutate",
        description="Applies single mutations to the library's sources and runs the tests.")
    parser.add_argument("--sample", type=int, metavar="N",
                        help="try N mutations, each file in proportion, and not all")
    parser.add_argument("--seed", default="1", help="picks another sample (default: 1)")
    parser.add_argument("--jobs", type=int, default=2, help="workers (default: 2)")
    parser.add_argument("--build", metavar="FOLDER",
                        help="run the tests of this build of the working tree, and make none")
    parser.add_argument("--since", metavar="COMMIT",
                        help="only the lines that have changed since that commit")
    parser.add_argument("--list", action="store_true", help="only list the mutations")
    parser.add_argument("places", nargs="*", metavar="FILE[:LINE]",
                        help="the library's files, or lines of them (default: all)")
    return parser.parse_args()


def draw_sample(mutations, size, seed):
    """Draws from each file in proportion. The remainders of the proportions
    go to the files that lose most by rounding."""
    files = collections.defaultdict(list)
    for mutation in mutations:
        files[mutation.path].append(mutation)
    size = min(size, len(mutations))
    shares = {path: size * len(found) / len(mutations) for path, found in files.items()}
    counts = {path: int(share) for path, share in shares.items()}
    by_loss = sorted(files, key=lambda path: (counts[path] - shares[path], path))
    for path in by_loss[:size - sum(counts.values())]:
        counts[path] += 1
    drawn = []
    for path, found in files.items():
        drawn += random.Random(f"{seed} {path}").sample(found, counts[path])
    # Neighbours in a file are tried far apart, so that the figures on the way
    # are representative.
    random.Random(seed).shuffle(drawn)
    return drawn


class Progress:
    """Counts the outcomes and prints the survivors as they come."""

    def __init__(self, total):
        self.outcomes = []
        self._total = total
        self._lock = threading.Lock()
        self._start = time.monotonic()

    def add(self, mutation, outcome):
        with self._lock:
            self.outcomes.append((mutation, outcome))
            if outcome.verdict == SURVIVED:
                print(f"survived: {describe(mutation)}")
            done = len(self.outcomes)
            if done % 25 == 0 or done == self._total:
                counts = collections.Counter(each.verdict for _, each in self.outcomes)
                print(f"{done} of {self._total}: {counts[KILLED]} killed, {counts[SURVIVED]} "
                      f"survived, {counts[INVALID]} did not compile "
                      f"({time.monotonic() - self._start:.0f} s)", flush=True)


def key_of(mutation):
    return mutation.path, mutation.before, mutation.after


def describe(mutation):
    return (f"{mutation.path}:{mutation.line}: {mutation.kind}\n"
            f"  - {mutation.before}\n  + {mutation.after}")


def try_all(workspace, mutations, texts, jobs):
    trials = Trials(workspace)
    workers = queue.Queue()
    for number in range(1, jobs + 1):
        workers.put(Worker(workspace, number))
    progress = Progress(len(mutations))

    def try_one(mutation):
        worker = workers.get()
        try:
            outcome = trials.run(worker, mutation, mutation.apply(texts[mutation.path]))
        finally:
            workers.put(worker)
        progress.add(mutation, outcome)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for finished in [pool.submit(try_one, mutation) for mutation in mutations]:
            finished.result()
    return progress.outcomes


# A survivor that changes nothing but the cost.
SAME = "same"


def verdict_of(mutation, outcome, reasons):
    if outcome.verdict == SURVIVED and key_of(mutation) in reasons.equivalent:
        return SAME
    return outcome.verdict


def percentage(counts):
    tried = counts[KILLED] + counts[SURVIVED]
    return 100 * counts[KILLED] / tried if tried else 100.0


def table_of(outcomes, reasons):
    """The verdicts per room and per kind, as lines."""
    lines = []
    for title, group in (("room", lambda each: each.path.split("/")[1]),
                         ("kind", lambda each: each.kind)):
        rows = collections.defaultdict(collections.Counter)
        for mutation, outcome in outcomes:
            verdict = verdict_of(mutation, outcome, reasons)
            rows[group(mutation)][verdict] += 1
            rows["all"][verdict] += 1
        lines.append(f"{title:28} killed  survived  equivalent  invalid        %")
        for name in [*sorted(set(rows) - {"all"}), "all"]:
            counts = rows[name]
            lines.append(f"{name:28} {counts[KILLED]:6}  {counts[SURVIVED]:8}  "
                         f"{counts[SAME]:10}  {counts[INVALID]:7}  {percentage(counts):7.1f}")
        lines.append("")
    return lines


def report(outcomes, reasons):
    """The report as lines."""
    lines = table_of(outcomes, reasons)
    for mutation, outcome in sorted(outcomes, key=lambda each: (each[0].path, each[0].start)):
        reason = reasons.of(mutation)
        if outcome.verdict == SURVIVED:
            lines += [describe(mutation), f"  {reason or 'NOT EXPLAINED'}"]
        elif outcome.verdict == KILLED and reason is not None:
            lines += [describe(mutation), f"  was killed, and is listed as a survivor: {reason}"]
    return lines


def judge(outcomes, reasons):
    """What is wrong, as texts."""
    faults = []
    counts = collections.Counter(verdict_of(*each, reasons) for each in outcomes)
    unexplained = sum(outcome.verdict == SURVIVED and reasons.of(mutation) is None
                      for mutation, outcome in outcomes)
    if unexplained:
        faults.append(f"{unexplained} survivors are not explained: write a test that kills them, "
                      f"or a reason into {_EXPLANATIONS.relative_to(_ROOT)} or, if they change "
                      f"nothing, into {_EQUIVALENT.relative_to(_ROOT)}")
    wrong = sum(outcome.verdict == KILLED and key_of(mutation) in reasons.equivalent
                for mutation, outcome in outcomes)
    if wrong:
        faults.append(f"{wrong} that {_EQUIVALENT.relative_to(_ROOT)} lists were killed: take "
                      "their paragraphs out")
    tried = counts[KILLED] + counts[SURVIVED]
    if tried >= _LEAST_FOR_PERCENTAGE and percentage(counts) < _LEAST_PERCENTAGE:
        faults.append(f"{percentage(counts):.1f} % are killed, less than {_LEAST_PERCENTAGE} %")
    return faults


def lines_within(text, opening):
    """The numbers of the lines of the block that such a line opens."""
    lines = text.splitlines()
    starts = [number for number, line in enumerate(lines) if line.strip() == opening]
    if len(starts) != 1:
        raise ListError(f"{_UNREACHABLE.relative_to(_ROOT)}: {len(starts)} lines read {opening}")
    indent = lines[starts[0]][:-len(opening)]
    end = next(number for number in range(starts[0] + 1, len(lines))
               if lines[number].startswith(indent + "}"))
    return range(starts[0] + 2, end + 1)


def read_unreachable(everything, texts):
    """The reasons of all mutations in blocks that no test can reach."""
    reasons = {}
    for (path, block), reason in read_paragraphs(_UNREACHABLE, ("file", "block", "reason")).items():
        within = lines_within(texts[path], block)
        reasons.update({key_of(each): reason for each in everything
                        if each.path == path and each.line in within})
    return reasons


@dataclasses.dataclass(frozen=True)
class Reasons:
    """Why mutations survive, by their keys."""
    survivors: dict
    equivalent: dict

    def of(self, mutation):
        key = key_of(mutation)
        return self.equivalent.get(key, self.survivors.get(key))


def read_list(path, everything):
    """The reasons of a committed list, each of which fits a mutation."""
    reasons = read_paragraphs(path, ("file", "line", "becomes", "reason"))
    stale = set(reasons) - {key_of(each) for each in everything}
    if stale:
        source, before, after = sorted(stale)[0]
        raise ListError(f"{path.relative_to(_ROOT)}: no mutation of {source} makes\n"
                        f"  - {before}\n  + {after}\nany more; take the paragraph out")
    return reasons


def read_reasons(everything, texts):
    survivors = read_unreachable(everything, texts) | read_list(_EXPLANATIONS, everything)
    return Reasons(survivors, read_list(_EQUIVALENT, everything))


def changed_lines(base):
    """(path, line) of each line that the working tree has and the base has not."""
    done = subprocess.run(["git", "diff", "--unified=0", "--find-renames", "--no-color", base,
                           "--", "library", "model", "frame", "loader", "output", "diagnostics"],
                          cwd=_ROOT, stdout=subprocess.PIPE, text=True, check=True)
    changed = set()
    path = None
    for line in done.stdout.splitlines():
        if line.startswith("+++ "):
            path = line[len("+++ b/"):]
        elif hunk := re.match(r"@@ -\S+ \+(\d+)(?:,(\d+))? @@", line):
            first, count = int(hunk[1]), int(hunk[2] or 1)
            changed |= {(path, number) for number in range(first, first + count)}
    return changed


def main():
    arguments = read_arguments()
    paths = library_sources(_ROOT)
    unknown = [place for place in arguments.places if place.split(":")[0] not in paths]
    if unknown:
        sys.exit(f"mutate: {unknown[0]} is not a source of the library")
    texts = {path: (_ROOT / path).read_text() for path in paths}
    sources = {path: Source(path, text) for path, text in texts.items()}
    enumerators = collect_enumerators(sources.values())
    everything = [each for path in paths for each in find_mutations(sources[path], enumerators)]
    read_reasons(everything, texts)

    mutations = [each for each in everything if not arguments.places or
                 {each.path, f"{each.path}:{each.line}"} & set(arguments.places)]
    if arguments.since is not None:
        changed = changed_lines(arguments.since)
        mutations = [each for each in mutations if (each.path, each.line) in changed]
        if not mutations:
            print("mutate: nothing that can be changed in the lines since then")
            return
    if not mutations:
        sys.exit("mutate: there is nothing to change in these places")
    if arguments.sample is not None:
        mutations = draw_sample(mutations, arguments.sample, arguments.seed)
    if arguments.list:
        print("\n".join(describe(each) for each in mutations))
        return
    print(f"mutate: {len(mutations)} of {len(everything)} mutations", flush=True)
    folder = _ROOT / "build/mutate"
    workspace = Workspace(_ROOT, folder, arguments.build)
    workspace.prepare()
    outcomes = try_all(workspace, mutations, texts, arguments.jobs)
    # Reasons may have been added in the meantime.
    reasons = read_reasons(everything, texts)
    lines = report(outcomes, reasons)
    (folder / "report.txt").write_text("\n".join(lines) + "\n")
    print("\n" + "\n".join(lines))
    faults = judge(outcomes, reasons)
    if faults:
        sys.exit("\n".join(f"mutate: {fault}" for fault in faults))


if __name__ == "__main__":
    try:
        main()
    except (BuildError, ListError) as problem:
        sys.exit(f"mutate: {problem}")
