// Results of the host's operations, for comparison.
#ifndef TESTS_SUPPORT_PROBLEM_TEXT_H_
#define TESTS_SUPPORT_PROBLEM_TEXT_H_

#include <string>

#include "host/base/result.h"

namespace driver_feature::host {

// What a program would print of a result: its problems, each on a line of its
// own. Empty for success.
template <class Value>
std::string problemText(const Result<Value>& result) {
  if (result) return "";
  std::string text = describe(result.error());
  for (const Problem& problem : result.error().more) text += "\n" + describe(problem);
  return text;
}

}  // namespace driver_feature::host

#endif  // TESTS_SUPPORT_PROBLEM_TEXT_H_
