#include "host/base/result.h"

namespace driver_feature::host {

Failure failureOfAll(Problems problems) {
  Problem first = std::move(problems.front());
  problems.erase(problems.begin());
  first.more = std::move(problems);
  return Failure(std::move(first));
}

std::string describe(const Problem& problem) {
  std::string text = problem.file;
  const auto [line, column] = problem.position;
  if (line > 0) text += ":" + std::to_string(line);
  if (line > 0 && column > 0) text += ":" + std::to_string(column);
  if (!text.empty()) text += ": ";
  text += problem.text;
  if (!problem.remedy.empty()) text += "; " + problem.remedy;
  return text;
}

}  // namespace driver_feature::host
