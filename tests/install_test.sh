#!/usr/bin/env bash
# Installs the build into an empty folder and runs the program there: it must
# find its libraries where it stands, and the headers must compile alone.
#
# usage: install_test.sh BUILD_DIR CXX_COMPILER
set -eu

build=$1
compiler=$2
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT

cmake --install "$build" --prefix "$folder" >"$folder/log"
cd "$folder"

description=share/driver-feature/label_printer.xml
library=$(find "$folder" -name libDriverFeature.so)
routines=$(find "$folder" -name liboffice_routines.so)
bin/driver-feature --version | grep -qxF "Driver Feature Library v1.0 ($library)"
bin/driver-feature --callbacks "$routines" emit "$description" --to ps >out.ps
grep -q setpagedevice out.ps

for header in include/driver_feature/*/*.h; do
  "$compiler" -std=c++20 -fsyntax-only -x c++ -Iinclude/driver_feature "$header"
done
# Five headers, or the loop has checked nothing.
test "$(find include -name '*.h' | wc -l)" -eq 5
