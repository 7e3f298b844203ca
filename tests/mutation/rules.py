"""Cuts each code of `driver-feature check` out and sees that a test notices. See
docs/testing.md for what it is for.

The sources are copied to build/rules and built there once, with a check that
drops the findings of one code before anybody sees them. For each code, the tests
of the check are run; the one that only counts codes is left out. Fails when the
tests pass without a code.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys

_ROOT = pathlib.Path(__file__).resolve().parents[2]
_FOLDER = _ROOT / "build/rules"
_VARIABLE = "CHECK_WITHOUT"
_TESTS = "Check*:-*ProduceEveryCode"

_DROP = f"""
void dropCut(Findings& findings) {{
  const char* cut = std::getenv("{_VARIABLE}");
  if (cut == nullptr) return;
  std::erase_if(findings,
                [&](const Finding& finding) {{ return std::string(rowOf(finding.code).name) == cut; }});
}}

host::Result<FileReport> checkDocument("""

# What is put after which lines of host/check/check.cc, and how often they occur.
_PLACES = [
    ("for (const Finding& finding : applyRules(description)) report.findings.push_back(finding);",
     1),
    ("report.allowed = takeAllowed(report.source, report.findings);", 1),
    ("report.findings.push_back(findingOf(text.error()));", 1),
    ("report.findings.push_back(findingOf(document.error()));", 1),
]


def run(command, **options):
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"rules: {command[0]} fails:\n{done.stdout}")


def put_cut_in(source):
    text = source.read_text()
    function = "\nhost::Result<FileReport> checkDocument("
    for line, count in [(function, 1), *_PLACES]:
        if text.count(line) != count:
            sys.exit(f"rules: {source.name} has no line \"{line.strip()}\" any more")
    text = text.replace(function, _DROP)
    for line, _ in _PLACES:
        text = text.replace(line, line + " dropCut(report.findings);")
    source.write_text("#include <cstdlib>\n#include <string>\n" + text)


def build():
    sources = _FOLDER / "sources"
    if sources.exists():
        shutil.rmtree(sources)
    _FOLDER.mkdir(parents=True, exist_ok=True)
    kept_out = {str(_ROOT / name) for name in ("build", ".git")}
    shutil.copytree(_ROOT, sources, ignore=lambda at, names: [
        name for name in names if f"{at}/{name}" in kept_out])
    put_cut_in(sources / "host/check/check.cc")
    base = _FOLDER / "base"
    run(["cmake", "-S", sources, "-B", base, "-G", "Ninja", "--log-level=WARNING",
         "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O1 -w", "-DDRIVER_FEATURE_BUILD=rules"])
    run(["ninja", "-j2", "-C", base, "host_program_tests"])
    return base / "bin/host_program_tests"


def passes(program, code):
    environment = {**os.environ, "GTEST_FAIL_FAST": "1", "GTEST_BRIEF": "1"}
    environment.pop(_VARIABLE, None)
    if code:
        environment[_VARIABLE] = code
    done = subprocess.run([program, f"--gtest_filter={_TESTS}"], env=environment, timeout=120,
                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
    return done.returncode == 0


def main():
    codes = re.findall(r'"(DF\d+)"', (_ROOT / "host/check/codes.cc").read_text())
    program = build()
    if not passes(program, None):
        sys.exit("rules: the tests fail with all codes")
    unnoticed = [code for code in codes if passes(program, code)]
    for code in unnoticed:
        print(f"{code}: no test fails without it")
    print(f"{len(codes)} codes cut out, one at a time: {len(codes) - len(unnoticed)} noticed by a "
          "test")
    return 1 if unnoticed else 0


if __name__ == "__main__":
    sys.exit(main())
