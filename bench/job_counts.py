"""Counts the instructions of whole processes: small jobs through the filter, and
starts of the programs."""

import pathlib
import tempfile

import fresh_process
import whole_life

PROJECT = pathlib.Path(__file__).resolve().parent.parent
OFFICE = PROJECT / "tests" / "printing" / "office.ppd"
STARTS = {"start/driver-feature": ("driver-feature", "--version"),
          "start/driver-feature-filter": ("driver-feature-filter",)}
JOBS = {"small job/office": OFFICE,
        "small job/Ricoh-Pro_C7200S_Light_PS": whole_life.PRINTERS[0]}
ROWS = (*STARTS, *JOBS)


def count(build):
    """By the names of the rows. A printer whose file is not there has no count."""
    programs = build.resolve() / "bin"
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        counts = {row: fresh_process.count_once([programs / program, *arguments], folder,
                                                status=0 if arguments else 1)
                  for row, (program, *arguments) in STARTS.items()}
        (folder / "page.ps").write_text(whole_life.PAGE)
        for row, ppd in JOBS.items():
            if not ppd.exists():
                continue
            queue = whole_life.make_queue(programs / "driver-feature", ppd, folder)
            job = [programs / "driver-feature-filter", *whole_life.JOB, folder / "page.ps"]
            counts[row] = fresh_process.count_once(job, folder, {"PPD": str(queue)})
    return counts
