// Small faulty descriptions, each with everything that the command "check" says
// about it.
#ifndef TESTS_HOST_CHECK_ROWS_H_
#define TESTS_HOST_CHECK_ROWS_H_

#include <string>
#include <vector>

// The elements are in a FeatureDescription, from line 3 on, below a
// BaseFeatureInfo in line 2; both lines are one further down when there are
// additions. In the expectation, "@" means the file's name.
struct CheckRow {
  std::string name;
  std::vector<std::string> elements;
  std::string expected;  // Without the line of totals.
  // What the root around the description then holds after it, on lines of its own.
  std::vector<std::string> additions = {};
};

const std::vector<CheckRow>& structureRows();
const std::vector<CheckRow>& valueRows();
const std::vector<CheckRow>& commandRows();
const std::vector<CheckRow>& postScriptRows();
const std::vector<CheckRow>& pjlRows();
const std::vector<CheckRow>& reachRows();
const std::vector<CheckRow>& routineRows();
const std::vector<CheckRow>& combinationRows();
const std::vector<CheckRow>& translationRows();

#endif  // TESTS_HOST_CHECK_ROWS_H_
