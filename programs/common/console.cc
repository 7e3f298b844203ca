#include "programs/common/console.h"

#include <unistd.h>

#include <cstdio>
#include <string>

#include "host/base/descriptor.h"
#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

std::string_view messageStart = "driver-feature: ";

void writeToStandardError(std::string_view text) {
  std::fflush(stderr);
  host::writeAll(STDERR_FILENO, text);
}

}  // namespace

void printError(std::string_view text) {
  writeToStandardError(std::string(messageStart) + host::printable(text) + "\n");
}

void printProblem(const host::Problem& problem) {
  printError(describe(problem));
  for (const host::Problem& more : problem.more) printError(describe(more));
}

void startMessagesWith(std::string_view start) {
  messageStart = start;
}

void printLackOfMemory() {
  writeToStandardError(messageStart);
  writeToStandardError("out of memory; end other programs and try again\n");
}

int statusOf(const host::Problem& problem) {
  switch (problem.kind) {
    case host::Problem::Kind::kNotLoaded:
    case host::Problem::Kind::kNotWritten:
    case host::Problem::Kind::kDifferent:
      return kFailure;
    default:
      return kUnusable;
  }
}

int report(const host::Problem& problem) {
  printProblem(problem);
  return statusOf(problem);
}

}  // namespace driver_feature::cli
