// Routines that a description names but that do not exist.

#include "Symbols.h"

#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

// The line that the library logs when it looks for the routine: at the load, or
// when it writes the element at top level or as a group's member.
struct RoutineRow {
  const char* attribute;
  Code code;
  const char* line;
  const char* lineOfGroup;
};

constexpr RoutineRow kRoutines[] = {
    {"AddCallbackRoutine", Code::kNoChangeRoutine,
     "DriverFeature::setFeatureProperty(string):  Failed to load custom feature callback:  ",
     nullptr},
    {"AddPJLCallbackRoutine", Code::kNoOutputRoutine,
     "serialize() - Cannot load PJL Command callback: ",
     "processPJLStaticGroup() - Cannot load PJL Command callback: "},
    {"AddPSCallbackRoutine", Code::kNoOutputRoutine,
     "serialize() - Cannot load PS Command callback: ",
     "processPSStaticGroup() - Cannot load PS Command callback: "},
    {"AddVORNCallbackRoutine", Code::kNoOutputRoutine,
     "serialize() - Cannot load VORN Command callback: ",
     "processVORNStaticGroup() - Cannot load VORN Command callback: "},
    {"SortFunctionName", Code::kNoSortRoutine,
     "addStaticGroupToDynamicGroupWithSort:  Failed to load custom sort callback:  ", nullptr},
};

// Whether a group's operation looks for the routine. A top-level group's
// ticket routine is looked for before any group is written.
bool isSoughtByGroup(const host::Element& element, const RoutineRow& row) {
  if (row.lineOfGroup == nullptr) return false;
  if (element.isMember()) return true;
  return element.role == host::Role::kStaticGroup &&
         row.attribute != std::string("AddVORNCallbackRoutine");
}

bool hasRoutines(const host::Element& element) {
  return element.role == host::Role::kFeature || element.role == host::Role::kStaticGroup ||
         element.role == host::Role::kDynamicGroup;
}

void checkRoutine(const host::Element& element, const RoutineRow& row, Findings& findings) {
  // The name of a change routine is looked for even when it is empty.
  const bool isSought = row.code == Code::kNoChangeRoutine ? element.find(row.attribute) != nullptr
                                                           : element.has(row.attribute);
  if (!isSought) return;
  // Elsewhere the attribute is not read.
  if ((row.attribute == std::string("SortFunctionName")) !=
      (element.role == host::Role::kDynamicGroup)) {
    return;
  }
  if (row.code == Code::kNoChangeRoutine && element.role != host::Role::kFeature) return;
  const std::string name = element.text(row.attribute);
  if (FetchSymbol(name.c_str()) != nullptr) return;
  const char* line = isSoughtByGroup(element, row) ? row.lineOfGroup : row.line;
  findings.push_back({row.code,
                      element.positionOf(row.attribute),
                      "there is no routine \"" + name + "\" for " + row.attribute + " of " +
                          describeElement(element),
                      missingRoutineRemedy(name),
                      {line + name}});
}

}  // namespace

void checkRoutines(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    if (!hasRoutines(element)) return;
    for (const RoutineRow& row : kRoutines) checkRoutine(element, row, findings);
    if (element.role != host::Role::kDynamicGroup || element.has("SortFunctionName")) return;
    findings.push_back({Code::kNeverSorted,
                        element.positionOf("SortFunctionName"),
                        describeElement(element) +
                            " does not name a sort routine; its records keep the "
                            "order in which they are added",
                        "name a comparing routine in SortFunctionName if their order matters",
                        {}});
  });
}

}  // namespace driver_feature::check
