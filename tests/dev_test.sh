#!/usr/bin/env bash
# Tests of the task runner: dev_test.sh PROJECT_DIRECTORY
#
# A copy of the script and its package list runs with a PATH that holds a few
# essential tools and stand-ins for the rest. A stand-in writes its name and
# arguments to the file `calls`, and its exit status comes from `status.NAME`
# where that file exists.
#
# shellcheck disable=SC2016  # stand-ins expand their lines themselves
set -uo pipefail
export LC_ALL=C  # Ranges of letters are those of ASCII.

source_dir=$(cd -- "$1" && pwd) || exit 1
work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT
bash_path=$(command -v bash)

failures=0
checks=0
current=

# begin NAME: a fresh copy of the project's frame, with every package there.
begin() {
  current=$1
  rm -rf "${work:?}"/*
  mkdir -p "$work/bin" "$work/project/cmake" "$work/project/.ci" "$work/elsewhere"
  cp "$source_dir/dev" "$work/project/"
  cp "$source_dir/cmake/debian-packages.txt" "$work/project/cmake/"
  : >"$work/calls"
  : >"$work/missing"
  local tool
  for tool in bash cat dirname env find grep rm sed sort tr xargs; do
    ln -s "$(command -v "$tool")" "$work/bin/$tool"
  done
  fakeDpkgQuery
  fake apt-get
  fake id 'echo 0'
  fake nproc 'echo 3'
}

# fake NAME [SHELL-LINE]: puts a recording stand-in on the PATH.
fake() {
  cat >"$work/bin/$1" <<EOF
#!$bash_path
case $1 in id | nproc) ;; *) echo "$1 \$*" >>"$work/calls" ;; esac
${2:-}
if [ -f "$work/status.$1" ]; then exit "\$(<"$work/status.$1")"; fi
EOF
  chmod +x "$work/bin/$1"
}

# Answers like dpkg-query -W -f '${db:Status-Status} ${Package}\n': names in
# `missing` are unknown, a name in `removed` left its configuration behind.
fakeDpkgQuery() {
  cat >"$work/bin/dpkg-query" <<EOF
#!$bash_path
[ "\$1 \$2 \$3" = "-W -f \\\${db:Status-Status} \\\${Package}\\\\n" ] || exit 2
shift 3
status=0
for name; do
  if grep -qxF -- "\$name" "$work/missing"; then
    echo "dpkg-query: no packages found matching \$name" >&2
    status=1
  elif [ -f "$work/removed" ] && grep -qxF -- "\$name" "$work/removed"; then
    echo "config-files \$name"
  else
    echo "installed \$name"
  fi
done
exit "\$status"
EOF
  chmod +x "$work/bin/dpkg-query"
}

# Runs the copy from another directory, without standard input.
dev() {
  (cd "$work/elsewhere" && env -i PATH="$work/bin" HOME="$work" "${environment[@]}" \
    "$bash_path" "$work/project/dev" "$@") <&- >"$work/out" 2>"$work/err"
  status=$?
}
environment=(LANG=C)

fail() {
  failures=$((failures + 1))
  printf 'FAILED %s: %s\n' "$current" "$1"
  sed 's/^/  out: /' "$work/out"
  sed 's/^/  err: /' "$work/err"
  sed 's/^/  call: /' "$work/calls"
}

expectStatus() {
  checks=$((checks + 1))
  [ "$status" -eq "$1" ] || fail "status $status, expected $1"
}

# expectCalls LINE...: the recorded calls are these, in this order.
expectCalls() {
  checks=$((checks + 1))
  local expected=''
  if [ $# -gt 0 ]; then expected=$(printf '%s\n' "$@"); fi
  [ "$(<"$work/calls")" = "$expected" ] || fail "calls differ from: $expected"
}

# expectLine FILE TEXT: one line of FILE is TEXT.
expectLine() {
  checks=$((checks + 1))
  grep -qxF -- "$2" "$work/$1" || fail "no line '$2' in $1"
}

expectEmpty() {
  checks=$((checks + 1))
  [ ! -s "$work/$1" ] || fail "$1 is not empty"
}

updateCall='apt-get -qq -o DPkg::Lock::Timeout=300 update'
installCall='apt-get -q -y -o DPkg::Lock::Timeout=300 install --no-install-recommends'

begin Setup_NothingMissing_CallsNoApt
dev setup
expectStatus 0
expectCalls
expectEmpty err

begin Setup_TwoMissing_InstallsExactlyThese
printf 'cmake\n' >"$work/missing"
printf 'g++\n' >"$work/removed"
dev setup
expectStatus 0
expectCalls "$updateCall" "$installCall g++ cmake"
expectLine out 'dev: installing: g++ cmake'

begin Setup_EverythingMissing_InstallsTheWholeList
sed -e 's/[[:space:]]*#.*//' -e '/^$/d' "$source_dir/cmake/debian-packages.txt" >"$work/missing"
dev setup
expectStatus 0
expectCalls "$updateCall" "$installCall $(tr '\n' ' ' <"$work/missing" | sed 's/ $//')"

begin Setup_MissingAsRoot_AptAsksNothing
printf 'cmake\n' >"$work/missing"
fake apt-get 'echo "frontend $DEBIAN_FRONTEND"'
dev setup
expectStatus 0
expectLine out 'frontend noninteractive'

begin Setup_UpdateFails_InstallsAllTheSame
printf 'cmake\n' >"$work/missing"
fake apt-get 'case "$*" in *update) exit 100 ;; esac'
dev setup
expectStatus 0
expectCalls "$updateCall" "$installCall cmake"
expectLine err 'dev: apt-get update failed; going on with the package lists at hand'

begin Setup_InstallFails_NamesPackagesAndStops
printf 'cmake\n' >"$work/missing"
echo 100 >"$work/status.apt-get"
fake cmake
dev build
expectStatus 1
expectCalls "$updateCall" "$installCall cmake"
expectLine err '  cmake               configures the build and runs the tests'
expectLine err 'dev: apt-get could not install them; its own message stands above.'

begin Setup_NotRootWithSudo_InstallsThroughSudo
printf 'cmake\n' >"$work/missing"
fake id 'echo 1000'
fake sudo 'exec "$@"'
dev setup
expectStatus 0
expectCalls "sudo env DEBIAN_FRONTEND=noninteractive $updateCall" "$updateCall" \
  "sudo env DEBIAN_FRONTEND=noninteractive $installCall cmake" "$installCall cmake"

begin Setup_NotRootWithoutSudo_SaysWhatRootMustRun
printf 'cmake\nghostscript\n' >"$work/missing"
fake id 'echo 1000'
dev setup
expectStatus 1
expectCalls
expectLine err 'dev: these Debian packages are needed and not installed:'
expectLine err '  cmake               configures the build and runs the tests'
expectLine err '  ghostscript         runs in tests the PostScript that was generated'
expectLine err 'dev: You are not root and there is no sudo, so they cannot be installed from here.'
expectLine err "dev: Have root run 'apt-get install --no-install-recommends cmake ghostscript', then run ./dev again."

begin Setup_NotRootNothingMissing_Succeeds
fake id 'echo 1000'
dev setup
expectStatus 0
expectCalls
expectEmpty err

begin Setup_NoApt_NamesThePackages
printf 'cmake\n' >"$work/missing"
rm "$work/bin/apt-get"
dev setup
expectStatus 1
expectLine err '  cmake               configures the build and runs the tests'
expectLine err 'dev: There is no apt-get here, so they cannot be installed from here.'

begin Setup_NoDpkg_NamesEveryPackage
rm "$work/bin/apt-get" "$work/bin/dpkg-query"
dev setup
expectStatus 1
while IFS= read -r name; do
  checks=$((checks + 1))
  grep -q -- "^  ${name} " "$work/err" || fail "does not name $name"
done < <(sed -e 's/[[:space:]]*#.*//' -e '/^$/d' "$source_dir/cmake/debian-packages.txt")
expectLine err "dev: Install what they hold in your system's own way, then run ./dev with DEV_NO_SETUP=1."

begin Setup_SwitchedOff_LooksForNothing
rm "$work/bin/apt-get" "$work/bin/dpkg-query"
environment=(DEV_NO_SETUP=1)
dev setup
environment=(LANG=C)
expectStatus 0
expectEmpty err

begin Setup_NoPackageList_Fails
rm "$work/project/cmake/debian-packages.txt"
dev setup
[ "$status" -ne 0 ] || fail "succeeded without a list"

begin PackageList_EveryLine_HasANameAndAPurpose
: >"$work/out"
: >"$work/err"
checks=$((checks + 1))
if grep -vE '^(#.*|[a-z0-9][a-z0-9+.-]+ +# [^ ].*|)$' "$source_dir/cmake/debian-packages.txt" >"$work/out"; then
  fail 'lines of another form'
fi

begin Test_Arguments_ReachCtest
fake cmake
fake ctest
dev test -R Option --repeat until-fail:2
expectStatus 0
expectCalls 'cmake --preset release --log-level=WARNING' \
  'cmake --build --preset release --parallel 3' \
  'ctest --preset release --output-on-failure --no-tests=error -j3 -R Option --repeat until-fail:2'

begin Test_OtherPreset_IsBuiltAndTested
fake cmake
fake ctest 'echo "$ASAN_OPTIONS $LSAN_OPTIONS"'
dev test --preset asan
expectStatus 0
expectCalls 'cmake --preset asan --log-level=WARNING' 'cmake --build --preset asan --parallel 3' \
  'ctest --preset asan --output-on-failure --no-tests=error -j3'
expectLine out \
  "detect_leaks=1 suppressions=$work/project/tests/lsan.supp:print_suppressions=0"

# fakeI386Root: a stand-in for the script that makes the 32-bit libraries.
fakeI386Root() {
  mkdir -p "$work/project/cmake/i386"
  printf 'echo "make_root $*" >>"%s/calls"\n%s\n' "$work" "${1:-}" \
    >"$work/project/cmake/i386/make_root.sh"
}

begin TestI386_LibrariesAreMadeFirst_ArgumentsReachCtest
fakeI386Root
fake cmake
fake ctest
dev test-i386 -R Option
expectStatus 0
expectCalls 'make_root build/i386-root' 'cmake --preset i386 --log-level=WARNING' \
  'cmake --build --preset i386 --parallel 3 --target core_tests all_products' \
  'ctest --preset i386 --output-on-failure --no-tests=error -j3 -L ^core$ -R Option'

begin TestI386_All_BuildsAndTestsEverything
fakeI386Root
fake cmake
fake ctest
dev test-i386 --all -R Option
expectStatus 0
expectCalls 'make_root build/i386-root' 'cmake --preset i386 --log-level=WARNING' \
  'cmake --build --preset i386 --parallel 3' \
  'ctest --preset i386 --output-on-failure --no-tests=error -j3 -R Option'

begin TestI386_LibrariesCannotBeMade_BuildsNothing
fakeI386Root 'exit 1'
fake cmake
dev test-i386
expectStatus 1
expectCalls 'make_root build/i386-root'

# fakeLocales: stand-ins for the making of locales and the running in one.
fakeLocales() {
  mkdir -p "$work/project/tests/locales"
  printf 'echo "make_locales $*" >>"%s/calls"\n' "$work" \
    >"$work/project/tests/locales/make_locales.sh"
  printf 'echo "in_locale $*" >>"%s/calls"\ncase $2 in %s) exit 3 ;; esac\n' "$work" "${1:-none}" \
    >"$work/project/tests/locales/in_locale.sh"
}

begin TestLocales_NoArgument_RunsTheTestsInEachLocale
fakeLocales
fake cmake
dev test-locales -R Option
expectStatus 0
expectCalls 'cmake --preset release --log-level=WARNING' \
  'cmake --build --preset release --parallel 3' 'make_locales build/release/locales' \
  'in_locale build/release C ctest --preset release --output-on-failure --no-tests=error -j3 -R Option' \
  'in_locale build/release de_DE.UTF-8 ctest --preset release --output-on-failure --no-tests=error -j3 -R Option' \
  'in_locale build/release tr_TR.UTF-8 ctest --preset release --output-on-failure --no-tests=error -j3 -R Option'

begin TestLocales_OneFails_EndsWithItsStatus
fakeLocales de_DE.UTF-8
fake cmake
dev test-locales
expectStatus 3
expectCalls 'cmake --preset release --log-level=WARNING' \
  'cmake --build --preset release --parallel 3' 'make_locales build/release/locales' \
  'in_locale build/release C ctest --preset release --output-on-failure --no-tests=error -j3' \
  'in_locale build/release de_DE.UTF-8 ctest --preset release --output-on-failure --no-tests=error -j3'

# fakeComparison: a stand-in for the comparison of binary interfaces.
fakeComparison() {
  mkdir -p "$work/project/tests/abi"
  printf 'echo "compare $*" >>"%s/calls"\n%s\n' "$work" "${1:-}" \
    >"$work/project/tests/abi/compare.sh"
}

begin Abi_BothArchitectures_AreBuiltAndCompared
fakeI386Root
fakeComparison
fake cmake
dev abi
expectStatus 0
expectCalls 'cmake --preset release --log-level=WARNING' \
  'cmake --build --preset release --parallel 3 --target DriverFeature host_view' \
  'make_root build/i386-root' 'cmake --preset i386 --log-level=WARNING' \
  'cmake --build --preset i386 --parallel 3 --target DriverFeature host_view' \
  'compare build/release tests/abi/baseline/x86_64' \
  'compare build/i386 tests/abi/baseline/i386'

begin Abi_Update_IsPassedOn
fakeI386Root
fakeComparison
fake cmake
dev abi --update
expectStatus 0
checks=$((checks + 1))
[ "$(grep -c '^compare --update build/' "$work/calls")" -eq 2 ] || fail 'not passed on twice'

begin Abi_FirstArchitectureDiffers_FailsAndComparesTheOther
fakeI386Root
fakeComparison 'case "$*" in *x86_64) exit 1 ;; esac'
fake cmake
dev abi
expectStatus 1
checks=$((checks + 1))
[ "$(grep -c '^compare build/' "$work/calls")" -eq 2 ] || fail 'not compared twice'

begin Abi_OtherArgument_IsRefused
fake cmake
dev abi --upgrade
expectStatus 2
expectCalls
expectLine err 'dev: abi takes no argument but --update'

# fakeFuzzers: two fuzzers that are built already. The second finds something
# when there is a file `finding`.
fakeFuzzers() {
  fake cmake
  ln -s "$(command -v mkdir)" "$(command -v tail)" "$work/bin/"
  mkdir -p "$work/project/build/fuzz/fuzz" "$work/project/fuzz"
  printf 'one\ntwo\n' >"$work/project/build/fuzz/fuzz/targets.txt"
  : >"$work/project/fuzz/two.dict"
  local target
  for target in one two; do
    cat >"$work/project/build/fuzz/fuzz/${target}_fuzz" <<EOF
#!$bash_path
echo "$target \$*" >>"$work/calls"
echo '#9	DONE   cov: 12 ft: 34 corp: 5/6b exec/s: 7 rss: 8Mb' >&2
echo 'stat::number_of_executed_units: 900' >&2
echo 'stat::average_exec_per_sec:     90' >&2
[ $target = one ] || [ ! -f "$work/finding" ]
EOF
    chmod +x "$work/project/build/fuzz/fuzz/${target}_fuzz"
  done
}
fuzzOptions='-max_total_time=10 -timeout=20 -rss_limit_mb=2048 -print_final_stats=1'
fuzzOne="one $fuzzOptions -artifact_prefix=build/fuzz/findings/one/"
fuzzOne="$fuzzOne build/fuzz/corpus-work/one fuzz/corpus/one"
fuzzTwo="two $fuzzOptions -artifact_prefix=build/fuzz/findings/two/ -dict=fuzz/two.dict"
fuzzTwo="$fuzzTwo build/fuzz/corpus-work/two fuzz/corpus/two"

begin Fuzz_NoTarget_RunsEveryOneAndTellsFigures
fakeFuzzers
dev fuzz 10
expectStatus 0
expectCalls 'cmake --preset fuzz --log-level=WARNING' \
  'cmake --build --preset fuzz --parallel 3 --target fuzz_targets' "$fuzzOne" "$fuzzTwo"
expectLine out 'target                 executions per second    edges  features  result'
expectLine out 'one                           900         90       12        34  no finding'
expectLine out 'two                           900         90       12        34  no finding'
expectEmpty err

begin Fuzz_NamedTarget_IsBuiltAndRunAlone
fakeFuzzers
dev fuzz 10 two
expectStatus 0
expectCalls 'cmake --preset fuzz --log-level=WARNING' \
  'cmake --build --preset fuzz --parallel 3 --target two_fuzz' "$fuzzTwo"

begin Fuzz_Finding_FailsAfterTheOthersHaveRun
fakeFuzzers
: >"$work/finding"
dev fuzz 10 two one
expectStatus 1
expectLine out 'two                           900         90       12        34  FINDING in build/fuzz/findings/two'
expectLine out 'one                           900         90       12        34  no finding'
expectLine err 'dev: fuzz/README.md tells how to replay a finding'

begin Fuzz_NoNumberOfSeconds_IsRefused
fake cmake
dev fuzz ticket
expectStatus 2
expectCalls
expectLine err 'dev: fuzz needs a number of seconds'

begin Test_PresetWithoutName_IsRefused
fake cmake
dev test --preset
expectStatus 2
expectCalls

begin Test_BuildFails_RunsNoTest
fake cmake
fake ctest
echo 3 >"$work/status.cmake"
dev test
expectStatus 3
expectCalls 'cmake --preset release --log-level=WARNING'

begin Test_CtestFails_PassesItsStatusOn
fake cmake
fake ctest
echo 8 >"$work/status.ctest"
dev test
expectStatus 8

begin Build_Preset_IsPassedOn
fake cmake
dev build clang
expectStatus 0
expectCalls 'cmake --preset clang --log-level=WARNING' 'cmake --build --preset clang --parallel 3'

begin Demo_BuildsItsTargetsOnly_AndRunsTheScript
fake cmake
mkdir "$work/project/descriptions"
printf 'echo "demo of $1"; exit 7\n' >"$work/project/descriptions/demo.sh"
dev demo
expectStatus 7
expectCalls 'cmake --preset release --log-level=WARNING' \
  'cmake --build --preset release --parallel 3 --target driver-feature DriverFeature office_routines'
expectLine out 'demo of build/release'

# preparePackage: stand-ins for everything that makes packages.
preparePackage() {
  local script
  mkdir -p "$work/project/packaging" "$work/project/build/package" "$work/project/cmake/i386" \
    "$work/project/tests/package"
  : >"$work/project/packaging/changelog"
  : >"$work/project/build/package/old.deb"
  fake cmake 'case "$1" in --fresh) echo "flags $CXXFLAGS" >>'"$work/calls"' ;; esac'
  fake cpack 'echo "time $SOURCE_DATE_EPOCH" >>'"$work/calls"
  fake dpkg-buildflags 'echo "-of-$2"'
  fake dpkg-deb 'echo "a, b (>= 2)"'
  fake git 'echo 1234'
  fake stat 'echo 5678'
  for script in cmake/i386/make_root tests/package/contents_test tests/package/life_test; do
    printf 'echo "%s $*" >>"%s/calls"\n[ ! -f "%s/status.%s" ]\n' \
      "${script##*/}" "$work" "$work" "${script##*/}" >"$work/project/$script.sh"
  done
}

# expectPackageCalls TIME-CALL... TIME: the calls of a whole run, with what
# finds the time and what it finds.
expectPackageCalls() {
  local project=$work/project folder=$work/project/build/package time=${*: -1}
  local common="--log-level=WARNING -DCMAKE_INSTALL_PREFIX=/usr -DBUILD_TESTING=OFF -DDRIVER_FEATURE_PACKAGE_FOLDER=$folder"
  expectCalls 'dpkg-buildflags --get CXXFLAGS' 'dpkg-buildflags --get CPPFLAGS' "${@:1:$#-1}" \
    "cmake --fresh -B $folder/tree $common --preset release" 'flags -of-CXXFLAGS -of-CPPFLAGS -g0' \
    "cmake --build $folder/tree --parallel 3" \
    "cpack --config $folder/tree/CPackConfig.cmake" "time $time" \
    "dpkg-deb --field $folder/libdriverfeature1_*.deb Depends" \
    'make_root build/i386-root' \
    "cmake --fresh -B $folder/tree-i386 $common --preset i386 -DCMAKE_INSTALL_LIBDIR=lib/i386-linux-gnu -DDRIVER_FEATURE_FOREIGN_ARCHITECTURE=i386 -DDRIVER_FEATURE_FOREIGN_DEPENDS=a, b (>= 2)" \
    'flags -of-CXXFLAGS -of-CPPFLAGS -g0' \
    "cmake --build $folder/tree-i386 --parallel 3 --target DriverFeature common_api xml_parser" \
    "cpack --config $folder/tree-i386/CPackConfig.cmake" "time $time" \
    "contents_test $project $folder" "life_test $project $folder $project/build/i386-root"
}

begin Package_IsBuiltPackedAndTried
preparePackage
dev package
expectStatus 0
expectPackageCalls 'git log -1 --format=%ct' 1234
checks=$((checks + 1))
[ ! -e "$work/project/build/package/old.deb" ] || fail 'an old package is still there'

begin Package_NoHistory_TakesTheTimeOfTheChangelog
preparePackage
echo 128 >"$work/status.git"
fake git
dev package
expectStatus 0
expectPackageCalls 'git log -1 --format=%ct' 'stat -c %Y packaging/changelog' 5678

for tool in cmake cpack dpkg-buildflags dpkg-deb; do
  begin "Package_FailureOf_${tool}_IsPassedOn"
  preparePackage
  echo 3 >"$work/status.$tool"
  dev package
  expectStatus 3
  checks=$((checks + 1))
  ! grep -q 'the packages are in' "$work/out" || fail 'promises packages'
done
for script in make_root contents_test life_test; do
  begin "Package_FailureOf_${script}_IsPassedOn"
  preparePackage
  : >"$work/status.$script"
  dev package
  expectStatus 1
  checks=$((checks + 1))
  ! grep -q 'the packages are in' "$work/out" || fail 'promises packages'
done

# prepareLint: two sources (one that is not compiled, one in the build
# directory) and tools that find nothing.
prepareLint() {
  mkdir -p "$work/project/model" "$work/project/build/release"
  : >"$work/project/model/a.cc"
  : >"$work/project/model/a.h"
  : >"$work/project/model/run.sh"
  : >"$work/project/build/release/generated.cc"
  printf '  "file": "%s",\n' "$work/project/model/a.cc" \
    "$work/project/build/release/generated.cc" >"$work/project/build/release/compile_commands.json"
  fake cmake
  fake clang-format
  fake clang-tidy
  fake shellcheck
  fake git 'exit 128'
}

begin Lint_NoHistory_ChecksAllProjectFiles
prepareLint
dev lint
expectStatus 0
checks=$((checks + 1))
expected=$(printf '%s\n' 'clang-format --dry-run -Werror ./model/a.cc ./model/a.h' \
  "clang-tidy --quiet -p build/release $work/project/model/a.cc" \
  'cmake --preset release --log-level=WARNING' 'shellcheck -x dev .ci/run ./model/run.sh')
actual=$(sed 's|\./model/a\.h \./model/a\.cc|./model/a.cc ./model/a.h|' "$work/calls" | LC_ALL=C sort)
actual=$(grep -v '^git ' <<<"$actual")
[ "$actual" = "$expected" ] || fail "calls differ from: $expected"

# Two commits a month apart: a header is altered in the second one, which one of
# two sources includes through another header.
begin Lint_History_ChecksWhatTheLastChangeTouches
prepareLint
rm "$work/bin/git"
ln -s "$(command -v git)" "$work/bin/git"
ln -s "$(python3 -c 'import sys; print(sys.executable)')" "$work/bin/python3"
mkdir -p "$work/project/tests" "$work/project/library"
cp "$source_dir/tests/changed_sources.py" "$work/project/tests/"
printf '#include "inner.h"\n' >"$work/project/library/outer.h"
: >"$work/project/library/inner.h"
printf '#include "outer.h"\n' >"$work/project/model/a.cc"
: >"$work/project/model/b.cc"
printf '  "file": "%s",\n' "$work/project/model/a.cc" "$work/project/model/b.cc" \
  >"$work/project/build/release/compile_commands.json"
commit() {
  (cd "$work/project" && git add library model tests &&
    GIT_COMMITTER_DATE="$1" git -c user.name=t -c user.email=t@t commit -qm t)
}
(cd "$work/project" && git init -q)
commit '2026-01-01T12:00:00Z'
printf 'int changed;\n' >"$work/project/library/inner.h"
commit '2026-02-01T12:00:00Z'
dev lint
expectStatus 0
checks=$((checks + 1))
[ "$(grep -c '^clang-tidy' "$work/calls")" = 1 ] || fail 'not one source is checked'
grep -qxF "clang-tidy --quiet -p build/release $work/project/model/a.cc" "$work/calls" ||
  fail 'the source that includes the header is not checked'
: >"$work/calls"
dev lint --all
expectStatus 0
checks=$((checks + 1))
[ "$(grep -c '^clang-tidy' "$work/calls")" = 2 ] || fail 'not all sources are checked'
: >"$work/calls"
environment=(LANG=C DEV_BASE=HEAD)
dev lint
environment=(LANG=C)
expectStatus 0
checks=$((checks + 1))
! grep -q '^clang-tidy' "$work/calls" || fail 'sources are checked that have not changed'

begin Lint_OtherArgument_IsRefused
prepareLint
dev lint everything
expectStatus 2
expectLine err 'dev: lint takes no argument but --all'

for tool in clang-format clang-tidy shellcheck; do
  begin "Lint_FindingsOf_${tool}_Fail"
  prepareLint
  echo 1 >"$work/status.$tool"
  dev lint
  expectStatus 1
  expectLine err "dev: lint found faults: $tool"
done

begin Lint_Findings_ArePrinted
prepareLint
fake clang-tidy 'echo "a.cc:1: a finding" >&2; exit 1'
dev lint
expectStatus 1
expectLine out 'a.cc:1: a finding'

begin Format_SourcesAndHeaders_AreLaidOut
prepareLint
dev format
expectStatus 0
checks=$((checks + 1))
grep -qE '^clang-format -i \./model/a\.(cc|h) \./model/a\.(cc|h)$' "$work/calls" || fail 'not laid out'

begin Clean_BuildDirectory_IsGone
prepareLint
dev clean
expectStatus 0
checks=$((checks + 1))
[ ! -e "$work/project/build" ] || fail 'build is still there'
[ -e "$work/project/model/a.cc" ] || fail 'a source is gone'

begin Coverage_CountsAnewAndJudgesWhatGcovrFound
for tool in cmake gcovr python3; do fake "$tool"; done
ln -s "$(command -v mkdir)" "$work/bin/mkdir"
mkdir -p "$work/project/build/coverage/bin"
: >"$work/project/build/coverage/old.gcda"
for program in diagnostics frame loader model output templates plugin plugin_interposition raw_slot; do
  printf '#!%s\necho "%s_tests $*" >>"%s/calls"\n' "$bash_path" "$program" "$work" \
    >"$work/project/build/coverage/bin/${program}_tests"
  chmod +x "$work/project/build/coverage/bin/${program}_tests"
done
dev coverage
expectStatus 0
checks=$((checks + 1))
[ ! -e "$work/project/build/coverage/old.gcda" ] || fail 'an old count is still there'
checks=$((checks + 1))
[ "$(grep -c '_tests --gtest_brief=1$' "$work/calls")" -eq 9 ] || fail 'not every program has run'
checks=$((checks + 1))
[ "$(tail -n 1 "$work/calls")" = 'python3 -B tests/coverage/check.py'"\
 build/coverage/report/report.json build/coverage/report/summary.json" ] || fail 'not judged at last'

begin Coverage_TestFails_IsNotMeasured
for tool in cmake gcovr python3; do fake "$tool"; done
mkdir -p "$work/project/build/coverage/bin"
printf '#!%s\nexit 1\n' "$bash_path" >"$work/project/build/coverage/bin/diagnostics_tests"
chmod +x "$work/project/build/coverage/bin/diagnostics_tests"
dev coverage
expectStatus 1
checks=$((checks + 1))
! grep -q '^gcovr' "$work/calls" || fail 'gcovr was called'

begin Bench_BuildsBothSidesAndComparesThem
fake cmake
fake python3
dev bench --rounds 2
expectStatus 0
expectCalls 'cmake --preset release --log-level=WARNING' \
  'cmake --build --preset release --parallel 3 --target library_timing library_counting peer_timing peer_counting write_models memory_report' \
  'python3 -B bench/compare.py build/release --rounds 2'

begin Instructions_AreComparedWithTheBaseline
fake cmake
fake python3
dev instructions
expectStatus 0
expectCalls 'cmake --preset release --log-level=WARNING' \
  'cmake --build --preset release --parallel 3 --target library_counting write_models' \
  'python3 -B bench/check_instructions.py build/release bench/instruction_baseline.txt'

begin Instructions_Update_IsPassedOn
fake cmake
fake python3
dev instructions --update
expectStatus 0
checks=$((checks + 1))
[ "$(tail -n 1 "$work/calls")" = \
  'python3 -B bench/check_instructions.py build/release bench/instruction_baseline.txt --update' ] ||
  fail 'not passed on'

begin Instructions_HaveGrown_IsItsStatus
fake cmake
fake python3
echo 1 >"$work/status.python3"
dev instructions
expectStatus 1

begin Instructions_OtherArgument_IsRefused
fake cmake
dev instructions --upgrade
expectStatus 2
expectCalls
expectLine err 'dev: instructions takes no argument but --update'

begin Mutate_HandsItsArgumentsOn
fake python3
dev mutate --sample 12 model/messages.cc
expectStatus 0
expectCalls 'python3 -B -u tests/mutation/mutate.py --sample 12 model/messages.cc'

begin Mutate_Changed_StartsFromTheBase
fake python3
fake git 'case "$*" in rev-parse*) echo abc ;; esac'
environment=(LANG=C DEV_BASE=main)
dev mutate --changed --sample 12
environment=(LANG=C)
expectStatus 0
expectLine calls 'python3 -B -u tests/mutation/mutate.py --since abc --sample 12'

begin Mutate_Survivors_AreItsStatus
fake python3
echo 1 >"$work/status.python3"
dev mutate
expectStatus 1

# prepareCorpus: a run that answers a status.
prepareCorpus() {
  fake cmake
  mkdir "$work/project/equivalence"
  printf 'echo "run $*" >>"%s/calls"; exit %s\n' "$work" "$1" >"$work/project/equivalence/run.sh"
}

begin Corpus_BuildsItsTargetsOnly_AndHandsItsArgumentsOn
prepareCorpus 0
dev corpus --sample 200 --seed 7
expectStatus 0
expectCalls 'cmake --preset release --log-level=WARNING' \
  'cmake --build --preset release --parallel 3 --target ppd_equivalence DriverFeature' \
  'run build/release --sample 200 --seed 7'

begin Corpus_Findings_AreItsStatus
prepareCorpus 1
dev corpus
expectStatus 1

begin Help_ListsEveryCommand
dev help
expectStatus 0
expectEmpty err
for name in setup build test test-i386 test-locales abi fuzz coverage mutate corpus demo package lint \
  format clean help; do
  checks=$((checks + 1))
  grep -qE -- "^  $name( [^ ].*)?  *[a-z].*" "$work/out" || fail "does not list $name"
done
while IFS= read -r name; do
  checks=$((checks + 1))
  grep -qE -- "^  ${name//_/-} " "$work/out" || fail "does not list $name"
done < <(sed -n 's/^command_\([a-z0-9_]*\)() {$/\1/p' "$source_dir/dev")

begin UnknownCommand_UsageOnStandardError
dev tset
expectStatus 2
expectEmpty out
expectLine err "dev: unknown command 'tset'"
expectLine err 'usage: ./dev COMMAND [ARGUMENT]...'

begin NoCommand_UsageOnStandardError
dev
expectStatus 2
expectEmpty out
expectLine err 'usage: ./dev COMMAND [ARGUMENT]...'

begin ArgumentsToACommandWithout_AreRefused
dev clean everything
expectStatus 2
expectLine err 'dev: clean takes no arguments'

# The legs of continuous integration run against a stand-in for dev.
begin Ci_AllLegsPass_SummaryNamesThem
cp "$source_dir/.ci/run" "$work/project/.ci/"
printf 'echo "dev $*" >>"%s/calls"\n' "$work" >"$work/project/dev"
sed -i "1i #!$bash_path" "$work/project/dev"
chmod +x "$work/project/dev"
(cd "$work/elsewhere" && bash "$work/project/.ci/run") <&- >"$work/out" 2>"$work/err"
status=$?
expectStatus 0
expectCalls 'dev test' 'dev test-i386' 'dev abi' 'dev test --preset asan -LE ^once$' \
  'dev mutate --changed --sample 40 --build build/release' 'dev corpus --sample 200' 'dev package' \
  'dev lint' 'dev demo'
checks=$((checks + 1))
[ "$(grep -cE '^passed  .*  \([0-9]+ s\)$' "$work/out")" -eq 9 ] || fail 'summary is not whole'

begin Ci_ALegFails_EndsWithItsStatus
cp "$source_dir/.ci/run" "$work/project/.ci/"
printf '#!%s\necho "dev $*" >>"%s/calls"\ncase "$*" in *asan*) exit 9 ;; esac\n' \
  "$bash_path" "$work" >"$work/project/dev"
chmod +x "$work/project/dev"
bash "$work/project/.ci/run" </dev/null >"$work/out" 2>"$work/err"
status=$?
expectStatus 9
expectCalls 'dev test' 'dev test-i386' 'dev abi' 'dev test --preset asan -LE ^once$'
expectLine out 'not run  lint of what has changed'
checks=$((checks + 1))
grep -qE '^FAILED with status 9  clang, addresses ' "$work/out" || fail 'summary does not name the leg'

printf '%d checks, %d failed\n' "$checks" "$failures"
[ "$failures" -eq 0 ]
