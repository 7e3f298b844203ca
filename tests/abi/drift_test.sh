#!/usr/bin/env bash
# Changes the interface in a copy, in one way after another, and expects the
# comparison to see each of them.
#
# usage: drift_test.sh BUILD_DIR BASELINE_DIR CXX_COMPILER [COMPILER_FLAG]...
set -uo pipefail

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
project=$(cd -- "$here/../.." && pwd)
build=$1
baseline=$2
compiler=$3
flags=("${@:4}")

work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT
failures=0

fail() {
  failures=$((failures + 1))
  printf 'FAILED %s: %s\n' "$current" "$1"
  cat "$work/log"
}

# begin NAME: a copy of the headers and the library as it was built.
begin() {
  current=$1
  rm -rf "${work:?}"/*
  mkdir -p "$work/build/lib" "$work/headers"
  (cd "$project/library" && cp --parents model/core_*.h frame/exports.h "$work/headers")
  cp -r "$project/platform" "$work/headers"
  cp "$build/lib/libDriverFeature.so" "$work/build/lib"
}

# replace FILE OLD NEW: the only occurrence of a text.
replace() {
  local text
  text=$(<"$1")
  case ${text#*"$2"} in
    "$text" | *"$2"*) : >"$work/log"; fail "\"$2\" is not in $1 exactly once" ;;
  esac
  printf '%s\n' "${text/"$2"/"$3"}" >"$1"
}

compileView() {
  "$compiler" "${flags[@]}" -std=c++20 -O2 -g -femit-class-debug-always -fPIC -shared \
    -Wl,-soname,libhost_view.so -I"$work/headers" -I"$work/headers/platform/common_api" -I"$work/headers/platform/xml_parser" \
    "$here/host_view.cc" -o "$work/build/lib/libhost_view.so" >"$work/log" 2>&1 ||
    fail "does not compile"
}

# linkLibrary MAP [SOURCE]: links the library's objects with a list of exports.
linkLibrary() {
  local objects
  mapfile -t objects < <(find "$build/library" -name '*.o')
  "$compiler" "${flags[@]}" -shared -fPIC -g "${objects[@]}" "${@:2}" \
    -Wl,--version-script="$1" -Wl,-soname,libDriverFeature.so -L"$build/lib" -lCommonAPI -lXMLParser -o "$work/build/lib/libDriverFeature.so" \
    >"$work/log" 2>&1 || fail "does not link"
}

# expectReport [TEXT]: the comparison fails, and its report holds the text;
# without a text it finds nothing.
expectReport() {
  local status=0
  "$here/compare.sh" "$work/build" "$baseline" >"$work/log" 2>&1 || status=$?
  if [ $# -eq 0 ]; then
    [ "$status" -eq 0 ] || fail "a difference where nothing was changed (status $status)"
  elif [ "$status" -ne 1 ]; then
    fail "status $status"
  else
    grep -qF -- "$1" "$work/log" || fail "no \"$1\" in the report"
  fi
}

begin Interface_Unchanged_IsTheCommittedOne
compileView
linkLibrary "$project/library/driver_feature.map"
expectReport

begin TwoOperations_Swapped_AreSeen
replace "$work/headers/model/core_feature.h" \
  'virtual int fetchNumberOfOptions() { return 0; }' '@'
replace "$work/headers/model/core_feature.h" \
  'virtual CoreOption* fetchCurrentOption() { return nullptr; }' \
  'virtual int fetchNumberOfOptions() { return 0; }'
replace "$work/headers/model/core_feature.h" '@' \
  'virtual CoreOption* fetchCurrentOption() { return nullptr; }'
compileView
expectReport 'the vtable offset of method virtual int CoreFeature::fetchNumberOfOptions() changed from 9 to 11'

begin Overloads_Swapped_AreSeen
replace "$work/headers/model/core_option.h" \
  'virtual bool setOptionProperty(const std::string& name, bool value) = 0;' '@'
replace "$work/headers/model/core_option.h" \
  'virtual bool setOptionProperty(const std::string& name, const std::string& value) = 0;' \
  'virtual bool setOptionProperty(const std::string& name, bool value) = 0;'
replace "$work/headers/model/core_option.h" '@' \
  'virtual bool setOptionProperty(const std::string& name, const std::string& value) = 0;'
compileView
expectReport 'the vtable offset of method virtual bool CoreOption::setOptionProperty(const std::string&, bool) changed from 3 to 2'

begin Signature_Changed_IsSeen
replace "$work/headers/model/core_feature_set.h" \
  'virtual DriverFeature* fetchFeatureByIndex(int index) = 0;' \
  'virtual DriverFeature* fetchFeatureByIndex(unsigned index) = 0;'
compileView
expectReport 'fetchFeatureByIndex(unsigned int)'

begin Signature_LongBecomesInt_IsSeen
replace "$work/headers/model/core_option.h" \
  'virtual bool addConstraint(const long& id) = 0;' \
  'virtual bool addConstraint(const int& id) = 0;'
compileView
expectReport 'addConstraint'

begin Operation_Added_IsSeen
replace "$work/headers/model/core_feature_set.h" \
  'virtual void restoreDefaultFeatureValues() = 0;' \
  'virtual void restoreDefaultFeatureValues() = 0; virtual void more() = 0;'
compileView
expectReport 'CoreFeatureSet::more()'

begin Destructor_Virtual_IsSeen
replace "$work/headers/model/core_option.h" '  ~CoreOption() = default;' \
  '  virtual ~CoreOption() = default;'
compileView
expectReport 'method virtual IntermediateCoreOption::~IntermediateCoreOption(int)'

begin Field_Added_IsSeen
replace "$work/headers/model/core_feature.h" 'bool sensitive_ = true;' \
  'int number_ = 0; bool sensitive_ = true;'
compileView
expectReport 'number_'

begin ParserOperations_Swapped_AreSeen
replace "$work/headers/platform/common_api/XMLParser.h" \
  'virtual void* firstChild(void* element) = 0;' '@'
replace "$work/headers/platform/common_api/XMLParser.h" \
  'virtual void* nextSibling(void* element) = 0;' 'virtual void* firstChild(void* element) = 0;'
replace "$work/headers/platform/common_api/XMLParser.h" '@' \
  'virtual void* nextSibling(void* element) = 0;'
compileView
expectReport 'the vtable offset of method virtual void* XMLParser::firstChild(void*) changed from 2 to 3'

begin Export_Dropped_IsSeen
compileView
grep -v 'GetFeatureTextValue;' "$project/library/driver_feature.map" >"$work/map"
linkLibrary "$work/map"
expectReport 'function int GetFeatureTextValue'

begin Export_Added_IsSeen
compileView
sed 's/^  local:/    another;\n  local:/' "$project/library/driver_feature.map" >"$work/map"
echo 'extern "C" __attribute__((visibility("default"))) void another() {}' >"$work/another.cc"
linkLibrary "$work/map" "$work/another.cc"
expectReport "function void another()"

printf '%d failed\n' "$failures"
[ "$failures" -eq 0 ]
