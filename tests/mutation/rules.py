"""Cuts each code of `driver-feature check` out and sees that a test notices. See
docs/testing.md for what it is for.

The sources are copied to build/rules and built there once, with a check that
drops the findings of one code before anybody sees them. For each code, the tests
of the check are run; the one that only counts codes is left out. Fails when the
tests pass without a code.

usage: rules.py [CODE]...

With codes, or what they begin with, only these are cut out.
"""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys

_ROOT = pathlib.Path(__file__).resolve().parents[2]
_FOLDER = _ROOT / "build/rules"
_VARIABLE = "CHECK_WITHOUT"
# The tests of the rules by program, without the one that only counts codes.
_TESTS = {"host_program_tests": "Check*:-*ProduceEveryCode", "host_unit_tests": "Verdict*"}

_DECLARATION = "\nnamespace driver_feature::check {\n"
_DROP = f"""
void dropCut(Findings& findings) {{
  const char* cut = std::getenv("{_VARIABLE}");
  if (cut == nullptr) return;
  std::erase_if(findings,
                [&](const Finding& finding) {{ return std::string(rowOf(finding.code).name) == cut; }});
}}
"""

# After which lines of which files of host/check/ findings are dropped.
_PLACES = {
    "check.cc": [
        "for (const Finding& finding : applyRules(description)) "
        "report.findings.push_back(finding);",
        "report.allowed = takeAllowed(report.source, report.findings);",
        "report.findings.push_back(findingOf(text.error()));",
        "report.findings.push_back(findingOf(document.error()));",
    ],
    "verdict.cc": ["kRemedy, reasons});\n  }", "                        {}});"],
}


def run(command, **options):
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"rules: {command[0]} fails:\n{done.stdout}")


def replace_once(source, text, old, new):
    if text.count(old) != 1:
        sys.exit(f"rules: {source.name} has no line \"{old.strip()}\" any more, or several")
    return text.replace(old, new)


def put_cut_in(folder):
    for name, lines in _PLACES.items():
        source = folder / name
        findings = "report.findings" if name == "check.cc" else "findings"
        text = replace_once(source, source.read_text(), _DECLARATION,
                            _DECLARATION + "void dropCut(Findings& findings);\n")
        for line in lines:
            text = replace_once(source, text, line, f"{line} dropCut({findings});")
        source.write_text(text)
    source = folder / "findings.cc"
    text = replace_once(source, source.read_text(), _DECLARATION, _DECLARATION + _DROP)
    source.write_text("#include <cstdlib>\n#include <string>\n" + text)


def build():
    sources = _FOLDER / "sources"
    if sources.exists():
        shutil.rmtree(sources)
    _FOLDER.mkdir(parents=True, exist_ok=True)
    kept_out = {str(_ROOT / name) for name in ("build", ".git")}
    shutil.copytree(_ROOT, sources, ignore=lambda at, names: [
        name for name in names if f"{at}/{name}" in kept_out])
    put_cut_in(sources / "host/check")
    base = _FOLDER / "base"
    run(["cmake", "-S", sources, "-B", base, "-G", "Ninja", "--log-level=WARNING",
         "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O1 -w", "-DDRIVER_FEATURE_BUILD=rules"])
    run(["ninja", "-j2", "-C", base, *_TESTS])
    return base / "bin"


def heed_interrupts():
    """A test presses Ctrl-C, which is ignored in the background of some shells."""
    signal.signal(signal.SIGINT, signal.SIG_DFL)


def passes(programs, code):
    environment = {**os.environ, "GTEST_FAIL_FAST": "1", "GTEST_BRIEF": "1"}
    environment.pop(_VARIABLE, None)
    if code:
        environment[_VARIABLE] = code
    return all(
        subprocess.run([programs / program, f"--gtest_filter={tests}"], env=environment,
                       timeout=300, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       preexec_fn=heed_interrupts, check=False).returncode == 0
        for program, tests in _TESTS.items())


def main():
    codes = re.findall(r'"(DF\d+)"', (_ROOT / "host/check/codes.cc").read_text())
    beginnings = tuple(sys.argv[1:]) or ("DF",)
    codes = [code for code in codes if code.startswith(beginnings)]
    programs = build()
    if not passes(programs, None):
        sys.exit("rules: the tests fail with all codes")
    unnoticed = [code for code in codes if passes(programs, code)]
    for code in unnoticed:
        print(f"{code}: no test fails without it")
    print(f"{len(codes)} codes cut out, one at a time: {len(codes) - len(unnoticed)} noticed by a "
          "test")
    return 1 if unnoticed else 0


if __name__ == "__main__":
    sys.exit(main())
