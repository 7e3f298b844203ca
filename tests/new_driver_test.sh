#!/usr/bin/env bash
# Follows the README.md that "driver-feature new" writes, with an installed tree: the
# routines build, the description checks clean, and the cases hold.
#
# usage: new_driver_test.sh BUILD_DIR CXX_COMPILER CXX_FLAGS LINKER_FLAGS
set -eu
export LC_ALL=C  # CMake cannot work in every locale.

build=$1
export CXX=$2
export CXXFLAGS="$3 -Wall -Wextra -Wconversion -Wshadow -Werror"
export LDFLAGS=$4
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
unset DESTDIR MAKEFLAGS
# What the library holds at the end of the process is never freed, by design.
export ASAN_OPTIONS=${ASAN_OPTIONS-detect_leaks=0}

cmake --install "$build" --prefix "$folder/prefix" >"$folder/install.log"
program=$folder/prefix/bin/driver-feature
cd "$folder"

fail() {
  printf '%s\n' "$*"
  exit 1
}

# quietly COMMAND...: shows what the command says when it fails.
quietly() {
  "$@" >"$folder/log" 2>&1 || fail "$* failed:" "$(<"$folder/log")"
}

quietly "$program" new desk_printer
cd desk_printer
if grep -E '^ *(class|extern|namespace)' routines.cc | grep '^ '; then fail "routines.cc is indented"; fi
quietly cmake -S . -B build -DCMAKE_PREFIX_PATH="$folder/prefix"
quietly cmake --build build
quietly ctest --test-dir build --output-on-failure

# The steps of the README.md that run the program, as they are written there. The
# last but one makes a fourth case.
PATH=$folder/prefix/bin:$PATH
quietly bash -euc "$(sed -n 's/^       \([^c].*\)/\1/p' README.md)"
expect() {
  [ "$(tail -n 1 "$folder/out")" = "$1" ] || fail "not \"$1\":" "$(<"$folder/out")"
}
driver-feature check --strict --callbacks build/libdesk_printer.so desk_printer.xml >"$folder/out"
expect "1 file checked: 0 errors, 0 warnings"
driver-feature test cases >"$folder/out"
expect "4 cases: as expected"
driver-feature --callbacks build/libdesk_printer.so emit desk_printer.xml --to ps \
  -o 'Stamp=a (b)' -o media=Letter >"$folder/out"
expect '<< /BeginPage { pop /Helvetica 24 selectfont 36 36 moveto (a \(b\)) show } >> setpagedevice'

# A change of the description is seen.
sed -i 's/NumCopies/Copies/' desk_printer.xml
if driver-feature test cases >"$folder/out"; then fail "the change is not seen"; fi
expect "4 cases: 1 as expected, 3 not; --update accepts what is written now"
