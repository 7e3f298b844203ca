#!/usr/bin/env bash
# Tests of the task runner: what it makes of its arguments, the status it ends
# with, and what its set-up decides.
#
# usage: dev_test.sh PROJECT_DIRECTORY
#
# shellcheck disable=SC2016  # stand-ins expand their lines themselves
set -uo pipefail
export LC_ALL=C  # Ranges of letters are those of ASCII.

source_dir=$(cd -- "$1" && pwd) || exit 1
# shellcheck source=tests/support/dev_frame.sh
. "$source_dir/tests/support/dev_frame.sh"

# ---------------------------------------------------------------------------
# Set-up

updateCall='apt-get -o DPkg::Lock::Timeout=300 -qq update'
installCall='apt-get -o DPkg::Lock::Timeout=300 -q -y install --no-install-recommends'

begin Setup_NothingMissing_CallsNoApt
act id 'echo 1000'
dev 0 setup
expectCalls
check 'something is complained of' [ ! -s "$work/err" ]

begin Setup_TwoMissing_InstallsExactlyThese
printf 'cmake\n' >"$work/missing"
printf 'g++\n' >"$work/removed"
act apt-get 'echo "frontend $DEBIAN_FRONTEND"'
dev 0 setup
expectCalls "$updateCall" "$installCall g++ cmake"
expectLine out 'frontend noninteractive'

begin Setup_PackageOfAnotherOne_IsNotMissing
printf 'npm\n' >"$work/missing"
act dpkg-query "shift 3
  printf '%s\n' \"\$@\" | grep -vxF -f '$work/missing' | sed -e 's/^/installed /' \
    -e 's/ nodejs\$/& nodejs-doc (= 20), npm, nodejs-dev (= 20)/'"
dev 0 setup
expectCalls

begin Setup_UpdateFails_InstallsAllTheSame
printf 'cmake\n' >"$work/missing"
act apt-get 'case "$*" in *update) exit 100 ;; esac'
dev 0 setup
expectCalls "$updateCall" "$installCall cmake"

begin Setup_InstallFails_StopsWithTheRemedy
printf 'cmake\n' >"$work/missing"
act apt-get 'exit 100'
dev 1 build
expectCalls "$updateCall" "$installCall cmake"
expectLine err "dev: Have root run 'apt-get install --no-install-recommends cmake', then run ./dev again."

begin Setup_NotRootWithSudo_InstallsThroughSudo
printf 'cmake\n' >"$work/missing"
act id 'echo 1000'
ln -s "$work/stand_in" "$work/bin/sudo"
dev 0 setup
expectCalls "sudo env DEBIAN_FRONTEND=noninteractive $updateCall" \
  "sudo env DEBIAN_FRONTEND=noninteractive $installCall cmake"

begin Setup_NotRootWithoutSudo_SaysWhatRootMustRun
printf 'cmake\nghostscript\n' >"$work/missing"
act id 'echo 1000'
dev 1 setup
expectCalls
expectLine err "dev: Have root run 'apt-get install --no-install-recommends cmake ghostscript', then run ./dev again."

begin Setup_NoDpkg_NamesTheListUnlessSwitchedOff
rm "$work/bin/apt-get" "$work/bin/dpkg-query"
dev 1 setup
expectLine err "dev: Install what cmake/debian-packages.txt lists in your system's own way, then run ./dev with DEV_NO_SETUP=1."
environment=(DEV_NO_SETUP=1)
dev 0 setup

begin PackageList_EveryLine_HasANameAndAPurpose
check 'lines of another form' [ "$(grep -cvE '^(#.*|[a-z0-9][a-z0-9+.-]+ +# [^ ].*|)$' \
  "$source_dir/cmake/debian-packages.txt")" -eq 0 ]

# ---------------------------------------------------------------------------
# Arguments

# refuses LINE [ARGUMENT]...: status 2 and that line, and nothing is run.
refuses() {
  local line=$1
  shift
  begin "Refuses '$*'"
  dev 2 "$@"
  expectCalls
  expectLine err "$line"
}
refuses 'usage: ./dev COMMAND [ARGUMENT]...'
refuses "dev: unknown command 'tset'" tset
refuses 'dev: clean takes no arguments' clean everything
refuses 'dev: --preset needs the name of a preset' test --preset
refuses 'dev: abi takes no argument but --update' abi --upgrade
refuses 'dev: instructions takes no argument but --update' instructions --upgrade
refuses 'dev: lint takes no argument but --all' lint everything
refuses 'dev: fuzz needs a number of seconds' fuzz ticket

# calls LINE ARGUMENT...: succeeds, and one of the calls is that line.
calls() {
  local line=$1
  shift
  begin "Calls of '$*'"
  dev 0 "$@"
  expectLine calls "$line"
}
ctestCall='--output-on-failure --no-tests=error -j5'
calls 'cmake --build --preset release --parallel 3' build
calls 'cmake --build --preset clang --parallel 3' build clang
calls "ctest --preset release $ctestCall -R Option" test -R Option
calls "ctest --preset asan $ctestCall" test --preset asan
calls 'make_root.sh build/i386-root' test-i386
calls 'cmake --build --preset i386 --parallel 3 --target core_tests' test-i386
calls "ctest --preset i386 $ctestCall -L ^core$ -R Option" test-i386 -R Option
calls "ctest --preset i386 $ctestCall -R Option" test-i386 --all -R Option
calls "in_locale.sh build/release tr_TR.UTF-8 ctest --preset release ${ctestCall/5/3} -R Option" \
  test-locales -R Option
calls 'compare.sh build/i386 tests/abi/baseline/i386' abi
calls 'compare.sh --update build/i386 tests/abi/baseline/i386' abi --update
calls 'drift_test.sh build/release tests/abi/baseline/x86_64 g++' abi
calls 'demo.sh build/release' demo
calls 'run.sh build/release --sample 200 --seed 7' corpus --sample 200 --seed 7
calls 'run.sh build/release --all clicks' test-page --all clicks
calls 'python3 -B bench/compare.py build/release --rounds 2' bench --rounds 2
calls 'python3 -B bench/check_instructions.py build/release bench/instruction_baseline.txt --update' \
  instructions --update
calls 'python3 -B -u tests/mutation/mutate.py --sample 12 library/model/messages.cc' \
  mutate --sample 12 library/model/messages.cc
calls 'python3 -B -u tests/mutation/rules.py' mutate --rules

begin Mutate_Changed_StartsFromTheBase
act git 'case "$*" in "rev-parse --verify --quiet main^{commit}") echo abc ;; esac'
environment=(DEV_BASE=main)
dev 0 mutate --changed --sample 12
expectLine calls 'python3 -B -u tests/mutation/mutate.py --since abc --sample 12'

begin Help_ListsEveryCommand
dev 0 help
while IFS= read -r name; do
  check "does not list $name" grep -qE -- "^  ${name//_/-} " "$work/out"
done < <(sed -n 's/^command_\([a-z0-9_]*\)() {$/\1/p' "$source_dir/dev")

# ---------------------------------------------------------------------------
# Exit status

# passesOn TOOL COMMAND...: the command ends with the status of that tool, and
# calls nothing after it.
passesOn() {
  local tool=$1
  shift
  begin "Passes on the status of $tool: '$*'"
  act "$tool" 'exit 3'
  dev 3 "$@"
  check "calls more after $tool" grep -q "^$tool " <(tail -n 1 "$work/calls")
}
passesOn cmake test
passesOn drift_test.sh abi
passesOn ctest test
passesOn make_root.sh test-i386
passesOn ctest test-i386
passesOn in_locale.sh test-locales
passesOn demo.sh demo
passesOn run.sh corpus
passesOn run.sh test-page
passesOn python3 mutate
passesOn python3 instructions
for tool in cmake cpack dpkg-deb make_root.sh contents_test.sh life_test.sh; do
  passesOn "$tool" package
done

begin Abi_FirstArchitectureDiffers_FailsAndComparesTheOther
act compare.sh 'case "$*" in *x86_64) exit 1 ;; esac'
dev 1 abi
expectCount 2 '^compare.sh build/'

# makeFuzzer NAME STATUS
makeFuzzer() {
  makeProgram "build/fuzz/fuzz/$1_fuzz" "echo \"$1 \$*\" >>'$work/calls'
    echo '#9 DONE   cov: 12 ft: 34 corp: 5/6b'; echo 'stat::number_of_executed_units: 900'; exit $2"
}

begin Fuzz_Finding_FailsAfterTheOthersHaveRun
makeFuzzer one 0
makeFuzzer two 1
printf 'two\none\n' >"$project/build/fuzz/fuzz/targets.txt"
dev 1 fuzz 10
expectLine calls 'cmake --build --preset fuzz --parallel 3 --target fuzz_targets'
expectCount 1 '^two .* build/fuzz/corpus-work/two fuzz/corpus/two$'
expectCount 1 '^one -max_total_time=10 .* build/fuzz/corpus-work/one fuzz/corpus/one$'
expectLine out 'two                           900          -       12        34  FINDING in build/fuzz/findings/two'
expectLine out 'one                           900          -       12        34  no finding'
dev 0 fuzz 10 one
expectLine calls 'cmake --build --preset fuzz --parallel 3 --target one_fuzz'

begin Coverage_CountsAnewAndStopsAtAFailure
for program in diagnostics frame loader model output templates plugin plugin_interposition raw_slot; do
  makeProgram "build/coverage/bin/${program}_tests" ':'
done
: >"$project/build/coverage/old.gcda"
dev 0 coverage
check 'an old count is still there' [ ! -e "$project/build/coverage/old.gcda" ]
expectCount 1 '^python3 -B tests/coverage/check.py '
: >"$work/calls"
makeProgram build/coverage/bin/raw_slot_tests 'exit 1'
dev 1 coverage
expectCount 0 '^gcovr'

# ---------------------------------------------------------------------------
# Packages, lint, continuous integration

begin Package_NoHistory_TakesTheTimeOfTheChangelog
act stat 'echo 5678'
act cpack "echo \"time \$SOURCE_DATE_EPOCH\" >>'$work/calls'"
mkdir -p "$project/build/package"
: >"$project/build/package/old.deb"
dev 0 package
expectCount 2 '^time 5678$'
check 'an old package is still there' [ ! -e "$project/build/package/old.deb" ]

# prepareLint: a source of the project, one that it has made, a header and a script.
prepareLint() {
  mkdir -p "$project/model" "$project/build/lint"
  touch "$project/model/a.cc" "$project/model/a.h" "$project/model/run.sh" "$project/build/made.cc"
  printf '  "file": "%s",\n' "$project/model/a.cc" "$project/build/made.cc" \
    >"$project/build/lint/compile_commands.json"
}

begin Lint_NoHistory_ChecksAllProjectFiles
prepareLint
dev 0 lint
expectCount 1 '^clang-format --dry-run -Werror \./model/a\.(cc|h) \./model/a\.(cc|h)$'
expectLine calls 'shellcheck -x dev .ci/run ./model/run.sh'
expectCount 1 '^clang-tidy '
expectLine calls "clang-tidy --quiet -p build/lint $project/model/a.cc"
expectCount 1 '^cmake .*-B build/lint -DDRIVER_FEATURE_BATCHES=OFF -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON$'

for tool in clang-format clang-tidy shellcheck; do
  begin "Lint_FindingsOf_${tool}_Fail"
  prepareLint
  act "$tool" 'echo "a.cc:1: a finding"; exit 1'
  dev 1 lint
  expectLine out 'a.cc:1: a finding'
  expectLine err "dev: lint found faults: $tool"
done

# Two commits a month apart: the second one alters a header that two of three sources
# include through another header. What is wrong with it, one of them shows.
begin Lint_History_ChecksWhatTheLastChangeTouches
prepareLint
ln -sf "$(command -v git)" "$work/bin/git"
ln -sf "$(python3 -c 'import sys; print(sys.executable)')" "$work/bin/python3"
mkdir -p "$project/tests/support" "$project/library"
cp "$source_dir/tests/changed_sources.py" "$project/tests/"
cp "$source_dir/tests/support/includes.py" "$project/tests/support/"
printf '#include "inner.h"\n' >"$project/library/outer.h"
: >"$project/library/inner.h"
printf '#include "outer.h"\n' >"$project/model/a.cc"
: >"$project/model/b.cc"
printf '#include "outer.h"\n' >"$project/model/c.cc"
printf '  "file": "%s",\n' "$project"/model/{a,b,c}.cc \
  >"$project/build/lint/compile_commands.json"
commit() {
  (cd "$project" && git add library model tests &&
    GIT_COMMITTER_DATE="$1" git -c user.name=t -c user.email=t@t commit -qm t)
}
(cd "$project" && git init -q)
commit '2026-01-01T12:00:00Z'
printf 'int changed;\n' >"$project/library/inner.h"
commit '2026-02-01T12:00:00Z'
dev 0 lint
expectCount 1 '^clang-tidy'
expectCount 1 '^clang-tidy .*/model/a.cc$'
: >"$work/calls"
environment=(DEV_BASE=HEAD)
dev 0 lint
expectCount 0 '^clang-tidy'
dev 0 lint --all
expectCount 3 '^clang-tidy'

# The header's own source comes first, and an altered one before all.
printf '#include "outer.h"\n' >"$project/library/outer.cc"
printf '  "file": "%s",\n' "$project/library/outer.cc" \
  >>"$project/build/lint/compile_commands.json"
commit '2026-03-01T12:00:00Z'
: >"$work/calls"
printf 'int again;\n' >"$project/library/outer.h"
dev 0 lint
expectCount 1 '^clang-tidy'
expectCount 1 '^clang-tidy .*/library/outer.cc$'
: >"$work/calls"
printf 'int too;\n' >>"$project/model/c.cc"
dev 0 lint
expectCount 1 '^clang-tidy'
expectCount 1 '^clang-tidy .*/model/c.cc$'

# ci STATUS LINE-OF-DEV: runs the legs with a stand-in for dev.
ci() {
  mkdir "$project/.ci"
  cp "$source_dir/.ci/run" "$project/.ci/"
  makeProgram dev "echo \"dev \$*\" >>'$work/calls'; $2"
  bash "$project/.ci/run" </dev/null >"$work/out" 2>"$work/err"
  check 'another status' [ $? -eq "$1" ]
}

begin Ci_AllLegsPass_SummaryNamesThem
ci 0 ':'
legs=$(wc -l <"$work/calls")
check 'hardly any legs' [ "$legs" -ge 5 ]
check 'summary is not whole' [ "$(grep -cE '^passed  .*  \([0-9]+ s\)$' "$work/out")" -eq "$legs" ]

begin Ci_ALegFails_EndsWithItsStatus
ci 9 'case "$1" in abi) exit 9 ;; esac'
check 'goes on' [ "$(tail -n 1 "$work/calls")" = 'dev abi' ]
check 'summary does not name the leg' \
  grep -qE '^FAILED with status 9  binary interface' "$work/out"
expectLine out 'not run  lint of what has changed'

printf '%d checks, %d failed\n' "$checks" "$failures"
[ "$failures" -eq 0 ]
