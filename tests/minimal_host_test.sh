#!/usr/bin/env bash
# Builds the example host as a stranger would: against an installed tree that
# was moved since, with CMake and with pkg-config. Both programs must write the
# same three outputs and refuse the same things.
#
# usage: minimal_host_test.sh EXAMPLE_DIR BUILD_DIR CXX_COMPILER CXX_FLAGS LINKER_FLAGS
set -eu
export LC_ALL=C  # CMake cannot work in every locale.

example=$1
build=$2
export CXX=$3
export CXXFLAGS="$4 -Wall -Wextra -Wconversion -Wshadow -Werror"
export LDFLAGS=$5
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
unset DESTDIR PKG_CONFIG_LIBDIR MAKEFLAGS
# What the library holds at the end of the process is never freed, by design.
export ASAN_OPTIONS=${ASAN_OPTIONS-detect_leaks=0}

mkdir "$folder/first place"
for component in library development; do
  cmake --install "$build" --prefix "$folder/first place" --component "$component" \
    >>"$folder/install.log"
done
mkdir "$folder/elsewhere"
mv "$folder/first place" "$folder/elsewhere/moved"
prefix=$folder/elsewhere/moved
plugin=$(find "$prefix" -name libDriverFeature.so)
pc=$(find "$prefix" -name driver-feature.pc)
PKG_CONFIG_PATH=$(dirname -- "$pc")
export PKG_CONFIG_PATH

fail() {
  printf '%s\n' "$*"
  exit 1
}

# quietly COMMAND...: shows what the command says when it fails.
quietly() {
  "$@" >"$folder/log" 2>&1 || fail "$* failed:" "$(<"$folder/log")"
}

# Both ways to build.

cp -r "$example" "$folder/with_cmake"
cd "$folder/with_cmake"
quietly cmake -S . -B build -DCMAKE_PREFIX_PATH="$prefix"
quietly cmake --build build
quietly ctest --test-dir build --output-on-failure
cp build/minimal_host build/job.* .

cp -r "$example" "$folder/with_pkg_config"
cd "$folder/with_pkg_config"
quietly make run

# What the example's own run has written.

cd "$folder"
cat >job.ps <<'END'
<< /NumCopies 3 >> setpagedevice
<< /HWResolution [300 300] >> setpagedevice
<< /EconoMode true >> setpagedevice
END
sed 's/$/\r/' >job.pjl <<'END'
@PJL SET COPIES=3
@PJL SET RESOLUTION=300
@PJL SET ECONOMODE=ON
END
cat >job.xml <<'END'
<?xml version="1.0" encoding="UTF-8"?>
<JobTicket argument1="1.0" argument2="desk">
  <JobTicketAttributes>
    <Command name="copies" syntax="integer" value="3"/>
    <Command name="print-quality" syntax="enum" value="3"/>
  </JobTicketAttributes>
  <OutputAttributes>
    <Command name="toner-save" syntax="boolean" value="true"/>
  </OutputAttributes>
</JobTicket>
END
for way in with_cmake with_pkg_config; do
  for output in job.ps job.pjl job.xml; do
    cmp "$output" "$way/$output"
  done
done

# What it says, and what it refuses.

readonly kLoaded='loaded: Driver Feature Library v1.0
2 DriverFeature: FeatureXMLTagHandler() - No Custom Load VORN Callback Handler element'

# expect STATUS TEXT ARGUMENT...: the status and the whole of standard error.
# Only a run that succeeds may leave a file.
expect() {
  local status=$1 text=$2 got=0
  shift 2
  rm -f run.*
  "$way/minimal_host" "$@" >out 2>err || got=$?
  [ "$got" -eq "$status" ] || fail "$way: status $got, not $status, of: $*" "$(<err)"
  diff -u <(printf '%s\n' "$text") err || fail "$way: another text of: $*"
  [ ! -s out ] || fail "$way: output of: $*" "$(<out)"
  [ "$status" -eq 0 ] || ! compgen -G 'run.*' || fail "$way: a file of: $*"
}

# refuse SETTING TEXT [LOG-LINE]
refuse() {
  expect 1 "$kLoaded${3:+
$3}
minimal_host: $1: $2" "$plugin" "$example/desk_printer.xml" run Copies=2 "$1"
}

echo '<Driver><Window></Driver>' >broken.xml
echo '<Driver><Window/></Driver>' >other.xml
for way in with_cmake with_pkg_config; do
  expect 0 "$kLoaded
values changed: 0" "$plugin" "$example/desk_printer.xml" run
  # The change routine of Quality stores the toner saving, which counts too.
  expect 0 "$kLoaded
values changed: 4" "$plugin" "$example/desk_printer.xml" run Quality=Draft Quality=Best
  grep -qxF '<< /HWResolution [1200 1200] >> setpagedevice' run.ps
  grep -qxF '<< /EconoMode false >> setpagedevice' run.ps
  refuse Quality=Photo "there is no such option, or it is not available"
  refuse Quality=Poor "there is no such option, or it is not available"
  refuse Copies=100 "the limit is 99"
  refuse Copies=0 "the limit is 1"
  refuse Copies=3x "that is not a whole number"
  refuse Copies= "that is not a whole number"
  refuse Copies=99999999999 "that is not a whole number"
  refuse Copies "write NAME=VALUE"
  refuse Paper=A4 "there is no feature of that name" \
    '3 DriverFeature: FindFeatureInFeatureList() - Did not find feature "Paper".'
  expect 2 "usage: minimal_host PLUGIN DESCRIPTION STEM [NAME=VALUE]..." "$plugin"
  expect 1 "loaded: Driver Feature Library v1.0
minimal_host: other.xml: has no FeatureDescription" "$plugin" other.xml run
  expect 1 "loaded: Driver Feature Library v1.0
minimal_host: broken.xml:1: Opening and ending tag mismatch: Window line 1 and Driver" \
    "$plugin" broken.xml run
  expect 1 "loaded: Driver Feature Library v1.0
minimal_host: missing.xml:0: cannot be opened: No such file or directory" "$plugin" missing.xml run
  expect 1 "minimal_host: $folder/none.so: cannot open shared object file: No such file or directory" \
    "$folder/none.so" other.xml run
  expect 1 "$kLoaded
minimal_host: no/run.pjl: cannot be written: No such file or directory" \
    "$plugin" "$example/desk_printer.xml" no/run
done

# A host that takes the interfaces alone gets no library and no folder of
# libxml2's headers.

mkdir headers_alone
cat >headers_alone/CMakeLists.txt <<'END'
cmake_minimum_required(VERSION 3.16)
project(HeadersAlone LANGUAGES CXX)
find_package(DriverFeature 1.0 REQUIRED)
add_executable(headers_alone main.cc)
target_link_libraries(headers_alone PRIVATE DriverFeature::headers)
END
cat >headers_alone/main.cc <<'END'
#include "frame/exports.h"
#include "model/core_feature_group.h"
#include "model/core_feature_set.h"
#if __has_include(<libxml/tree.h>) || __has_include("AttributeMap.h")
#error "more than the interfaces"
#endif
int main() { return sizeof(CoreFeatureSet) == sizeof(void*) ? 0 : 1; }
END
cd headers_alone
quietly cmake -S . -B build -DCMAKE_PREFIX_PATH="$prefix"
quietly cmake --build build
build/headers_alone
if readelf -d build/headers_alone | grep -E 'NEEDED.*(xml2|CommonAPI|XMLParser|DriverFeature)'; then
  fail "DriverFeature::headers links to a library"
fi

# A newer version than the installed one is refused.
sed -i 's/DriverFeature 1.0/DriverFeature 2.0/' CMakeLists.txt
if cmake -S . -B build2 -DCMAKE_PREFIX_PATH="$prefix" >log 2>&1; then
  fail "version 2.0 was found"
fi
