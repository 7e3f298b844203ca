#!/usr/bin/env bash
# Tests of the script that makes the folder of 32-bit libraries, with
# stand-ins for the tools that fetch, unpack and compile.
#
# usage: i386_root_test.sh PROJECT_DIRECTORY
#
# shellcheck disable=SC2016  # stand-ins expand their lines themselves
set -uo pipefail

source_dir=$(cd -- "$1" && pwd) || exit 1
work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT
failures=0
checks=0
current=

# fake NAME [SHELL-LINE]: a stand-in that records its call.
fake() {
  printf '#!/bin/bash\necho "%s $*" >>"%s/calls"\n%s\n' "$1" "$work" "${2:-}" >"$work/bin/$1"
  chmod +x "$work/bin/$1"
}

begin() {
  current=$1
  rm -rf "${work:?}"/*
  mkdir -p "$work/bin" "$work/i386"
  cp "$source_dir"/cmake/i386/{make_root.sh,packages.txt} "$work/i386/"
  : >"$work/calls"
  fake uname 'echo x86_64'
  fake dpkg-query 'echo 1.0'
  fake g++ 'echo g++ 1.0'
  # What is downloaded lands in the folder from which apt-get is called.
  fake apt-get 'case "$*" in *" download "*) : >libxml2_1_i386.deb ;; *" source "*) : >benchmark_1.orig.tar.gz ;; esac'
  fake tar
  fake dpkg-deb 'mkdir -p "$3/usr/lib"; : >"$3/usr/lib/unpacked"'
  fake cmake 'case "$1" in -S) mkdir -p "$4" ;; esac'
}

makeRoot() {
  env PATH="$work/bin:$PATH" bash "$work/i386/make_root.sh" "$work/root" \
    <&- >"$work/out" 2>"$work/err"
  status=$?
}

check() {
  checks=$((checks + 1))
  "${@:2}" && return
  failures=$((failures + 1))
  printf 'FAILED %s: %s\n' "$current" "$1"
  sed 's/^/  /' "$work/out" "$work/err" "$work/calls"
}

ended() { [ "$status" -eq "$1" ]; }
says() { grep -qF -- "$2" "$work/$1"; }
saysNot() { ! says "$@"; }

begin EmptyFolder_Made_HoldsPackagesAndCompiledLibraries
makeRoot
check 'fails' ended 0
check 'the lists are not those of 32-bit packages' \
  says calls '-o APT::Architecture=i386 -o APT::Architectures=i386'
check 'apt-get works outside of the folder' \
  says calls "-o Dir::State::Lists=$work/root/apt/lists"
for name in libxml2 libxml2-dev libicu72 liblzma5 zlib1g libedit2 libedit-dev libbsd0 libmd0 libtinfo6 \
  libcups2 libcups2-dev libavahi-client3 libgnutls30 libgssapi-krb5-2; do
  check "does not fetch $name" grep -qE " download .*\\b$name\\b" "$work/calls"
done
check 'nothing is unpacked' test -f "$work/root/usr/lib/unpacked"
check 'GoogleTest is not 32-bit' says calls '-DCMAKE_CXX_FLAGS=-m32 -msse2 -mfpmath=sse'
check 'GoogleTest is not installed' says calls "cmake --install $work/root/compiled/googletest"
check "Benchmark's source is not unpacked" \
  says calls "tar -x -f $work/root/apt/packages/benchmark_1.orig.tar.gz"
check 'Benchmark is not installed' says calls "cmake --install $work/root/compiled/benchmark"
check 'what was downloaded stays' test ! -e "$work/root/apt"
check 'what was compiled stays' test ! -e "$work/root/compiled"

begin FolderUpToDate_MadeAgain_IsLeftAlone
makeRoot
: >"$work/calls"
makeRoot
check 'fails' ended 0
check 'fetches again' saysNot calls apt-get
check 'compiles again' saysNot calls cmake

begin PackageList_Changed_IsMadeAnew
makeRoot
: >"$work/calls"
: >"$work/root/old"
echo 'libmore1  # more' >>"$work/i386/packages.txt"
makeRoot
check 'fails' ended 0
check 'does not fetch the new package' grep -qE ' download .*\blibmore1\b' "$work/calls"
check 'the old folder stays' test ! -e "$work/root/old"

begin ListUpdate_FailsForOneIndex_GoesOn
fake apt-get 'case "$*" in *update) exit 100 ;; *" download "*) : >libxml2_1_i386.deb ;; *" source "*) : >benchmark_1.orig.tar.gz ;; esac'
makeRoot
check 'fails' ended 0
check 'does not say so' says out 'apt-get update reports a failure'
check 'does not install' says calls 'cmake --install'

begin Download_Fails_NamesTheRemedyAndIsTriedAgain
fake apt-get 'case "$*" in *" download "*) echo "E: no such package" >&2; exit 100 ;; esac'
makeRoot
check 'succeeds' ended 1
check "hides apt's message" says err 'E: no such package'
check 'names no remedy' says err 'Check the network and the names in cmake/i386/packages.txt'
check 'compiles all the same' saysNot calls cmake
: >"$work/calls"
makeRoot
check 'takes the unfinished folder for a finished one' says calls ' download '

begin GoogleTest_DoesNotCompile_ShowsTheMessages
fake cmake 'case "$1" in --build) echo "a compiler message"; exit 2 ;; esac'
makeRoot
check 'succeeds' ended 1
check "hides the compiler's message" says err 'a compiler message'
check 'marks the folder as finished' test ! -e "$work/root/recipe"

begin OtherMachine_IsRefused
fake uname 'echo aarch64'
makeRoot
check 'succeeds' ended 1
check 'gives no reason' says err \
  'i386: 32-bit x86 programs do not run on this machine (aarch64).'

printf '%d checks, %d failed\n' "$checks" "$failures"
[ "$failures" -eq 0 ]
