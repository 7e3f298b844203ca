"""Runs the tests against one mutation."""

import dataclasses
import json
import os
import resource
import signal
import subprocess
import tempfile

KILLED, SURVIVED, INVALID = "killed", "survived", "invalid"
_MEMORY_LIMIT = 4 << 30
# Tests that take longer are run when all others have passed.
_SLOW_SECONDS = 0.1

# The test programs that a change in a room can affect, its own first.
_AFFECTED = {
    "diagnostics": ("diagnostics_tests", "plugin_tests", "fault_tests"),
    "frame": ("frame_tests", "output_tests", "diagnostics_tests", "loader_tests", "plugin_tests",
              "raw_slot_tests", "fault_tests"),
    "loader": ("loader_tests", "plugin_tests", "raw_slot_tests", "fault_tests"),
    "model": ("model_tests", "loader_tests", "output_tests", "frame_tests", "diagnostics_tests",
              "raw_slot_tests", "plugin_tests", "fault_tests"),
    "output": ("output_tests", "plugin_tests", "raw_slot_tests", "fault_tests"),
    "templates": ("templates_tests", "output_tests"),
}


@dataclasses.dataclass(frozen=True)
class Outcome:
    verdict: str
    by: str = ""  # the program that killed it, and how


def _limit_process():
    resource.setrlimit(resource.RLIMIT_AS, (_MEMORY_LIMIT, _MEMORY_LIMIT))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run_program(path, folder, library_folder, arguments, timeout):
    """The exit status, or None when the time is over."""
    environment = {**os.environ, "LD_LIBRARY_PATH": str(library_folder), "GTEST_FAIL_FAST": "1",
                   "GTEST_BRIEF": "1"}
    process = subprocess.Popen([path, *arguments], cwd=folder, env=environment,
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, start_new_session=True,
                               preexec_fn=_limit_process)
    try:
        return process.wait(timeout)
    except subprocess.TimeoutExpired:
        return None
    finally:
        # Death tests have children, and these may be the ones that hang.
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()


class Trials:
    """The test programs, with what they take when nothing is changed."""

    def __init__(self, workspace):
        self._libraries = workspace.base / "lib"
        self._passes = {}
        for program in workspace.programs:
            self._passes[program] = self._measure(workspace, program)

    def _measure(self, workspace, program):
        """Runs a program as it is. Returns its passes: arguments and the
        longest time to wait."""
        with tempfile.NamedTemporaryFile(suffix=".json") as report:
            status = run_program(workspace.base / "bin" / program, workspace.base, self._libraries,
                                 [f"--gtest_output=json:{report.name}"], 600)
            if status != 0:
                raise RuntimeError(f"{program} fails without any mutation; it must pass first")
            suites = json.load(report)["testsuites"]
        quick, slow, slow_names = 0.0, 0.0, []
        for suite in suites:
            for test in suite["testsuite"]:
                seconds = float(test["time"].rstrip("s"))
                if seconds > _SLOW_SECONDS:
                    slow += seconds
                    slow_names.append(f"{suite['name']}.{test['name']}")
                else:
                    quick += seconds
        if not slow_names:
            return [([], 10 + 10 * quick)]
        names = ":".join(slow_names)
        return [([f"--gtest_filter=-{names}"], 10 + 10 * quick),
                ([f"--gtest_filter={names}"], 10 + 10 * slow)]

    def run(self, worker, mutation, text):
        """Tries one mutation. `text` is the whole changed file."""
        if not worker.compile(mutation.path, text):
            return Outcome(INVALID, "does not compile")
        affected = _AFFECTED[mutation.path.split("/")[1]]
        programs = [program for program in affected if program in self._passes]
        for is_slow in (False, True):
            for program in programs:
                passes = self._passes[program][1:] if is_slow else self._passes[program][:1]
                if not passes:
                    continue
                if not worker.link(program):
                    return Outcome(INVALID, "does not link")
                arguments, timeout = passes[0]
                status = run_program(worker.program_path(program), worker.folder, self._libraries,
                                     arguments, timeout)
                if status is None:
                    return Outcome(KILLED, f"{program}, by its time")
                if status != 0:
                    return Outcome(KILLED, program)
        return Outcome(SURVIVED)
