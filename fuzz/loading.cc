#include "fuzz/loading.h"

#include <cstdlib>
#include <iostream>
#include <sstream>

#include "frame/exports.h"

namespace driver_feature::fuzz {

namespace {

// The end of the process, for as long as a description is being loaded. The
// library's entry point catches it on its way.
struct Ended {};

bool isLoading = false;
bool hasEnded = false;

}  // namespace

LoadResult loadDescription(void* element, std::string& written) {
  std::ostringstream messages;
  std::streambuf* const before = std::cerr.rdbuf(messages.rdbuf());
  hasEnded = false;
  isLoading = true;
  const int result = FeatureXMLTagHandler(element);
  isLoading = false;
  std::cerr.rdbuf(before);
  written = messages.str();
  // The handler returns 1, or does not return.
  if ((result == 1) == hasEnded) std::abort();
  return hasEnded ? LoadResult::kEnded : LoadResult::kLoaded;
}

void endLoading(int status) {
  if (!isLoading) return;
  if (status != 1) std::abort();
  hasEnded = true;
  throw Ended();
}

}  // namespace driver_feature::fuzz

extern "C" [[noreturn]] void __real_exit(int status);
extern "C" [[noreturn]] void __wrap_exit(int status) {
  driver_feature::fuzz::endLoading(status);
  __real_exit(status);
}
