#!/usr/bin/env bash
# Installs the build into an empty folder, moves that folder elsewhere and runs
# the program there: it must find its libraries there, and every
# header must compile alone, in C++11 too.
#
# usage: install_test.sh BUILD_DIR CXX_COMPILER
set -eu

build=$1
compiler=$2
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT

mkdir "$folder/first"
cmake --install "$build" --prefix "$folder/first" >"$folder/log"
mv "$folder/first" "$folder/second"
cd "$folder/second"

description=share/driver-feature/label_printer.xml
library=$(find "$PWD" -name libDriverFeature.so)
routines=$(find "$PWD" -name liboffice_routines.so)
bin/driver-feature --version | grep -qxF "Driver Feature Library v1.0 ($library)"
bin/driver-feature --callbacks "$routines" emit "$description" --to ps >../out.ps
grep -q setpagedevice ../out.ps
grep -qF 'driver\-feature emit' share/man/man1/driver-feature.1
test -s share/man/man5/driver-feature-description.5
test -s share/man/man5/driver-feature-settings.5
test -s share/bash-completion/completions/driver-feature.bash
test -s "$(echo share/zsh/*/_driver-feature)"

# The filter finds the feature library from its own folder.
printf '%%!\n' >../job.ps
DRIVER_FEATURE_DESCRIPTION=$description DRIVER_FEATURE_ROUTINES=$routines \
  lib/cups/filter/driver-feature-filter 1 user title 2 '' ../job.ps >../job.prn 2>../filter.log
grep -qxF '<< /NumCopies 2 >> setpagedevice' ../job.prn

# By its name it is the same program, which finds the library as well.
DRIVER_FEATURE_DESCRIPTION=$description DRIVER_FEATURE_ROUTINES=$routines PATH=$PWD/bin:$PATH \
  driver-feature-filter 1 user title 2 '' ../job.ps >../named.prn 2>../filter.log
cmp ../job.prn ../named.prn

# A description whose routines are missing: the program knows where they are.
if bin/driver-feature queue share/driver-feature/office_laser.xml >../queue.ppd 2>../complaints; then
  echo "a description without its routines was loaded"
  exit 1
fi
grep -qF "load the library that has it with --callbacks $routines" ../complaints

for header in include/driver_feature/*/*.h; do
  "$compiler" -std=c++11 -Wall -Wextra -Werror -fsyntax-only -x c++ \
    -Iinclude/driver_feature -Iinclude/driver_feature/platform - <<<"#include \"$PWD/$header\""
done
# Fourteen headers, or the loop has checked nothing.
test "$(find include -name '*.h' | wc -l)" -eq 14

# Nothing in the tree names the place where it was built or first installed.
# (Programs do where they hold what a debugger needs, but not as a path of the
# loader.)
for place in "$build" "$folder/first"; do
  if grep -rlIF -- "$place" .; then
    echo "these files name $place"
    exit 1
  fi
done
paths=$(readelf -d bin/driver-feature lib/cups/filter/driver-feature-filter "$(dirname -- "$library")"/*.so | grep -E 'R(UN)?PATH')
test "$(wc -l <<<"$paths")" -eq 6
# shellcheck disable=SC2016  # a word of the loader's, not of the shell's
if grep -vF '[$ORIGIN' <<<"$paths"; then
  echo "these loader paths would not move with the tree"
  exit 1
fi
