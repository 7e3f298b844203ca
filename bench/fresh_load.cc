// A host that loads one description and ends: what a load costs in a process
// of its own, from its start to its end.
//
//   fresh_load [--peak] DESCRIPTION
//
// With --peak it prints the most memory that it had resident, in KiB.

#include <dlfcn.h>

#include <cstdio>
#include <cstring>

#include "XMLDocument.h"
#include "bench/peak_memory.h"
#include "frame/exports.h"

extern "C" {

DRIVER_FEATURE_EXPORT bool benchUpdate() {
  return true;
}

DRIVER_FEATURE_EXPORT int benchLoad(void* /*element*/, int /*mode*/) {
  return 0;
}

}  // extern "C"

namespace {

int fail(const char* reason) {
  std::fprintf(stderr, "fresh_load: %s\n", reason);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return fail("name a description");
  void* library = dlopen(FRESH_LOAD_LIBRARY, RTLD_NOW | RTLD_GLOBAL);
  if (library == nullptr) return fail(dlerror());
  const auto handler =
      reinterpret_cast<decltype(&FeatureXMLTagHandler)>(dlsym(library, "FeatureXMLTagHandler"));
  if (handler == nullptr) return fail(dlerror());
  XMLProblem problem;
  const auto document = XMLDocument::parseFile(argv[argc - 1], problem);
  if (!document) return fail(problem.text.c_str());
  if (handler(document->root()) != 1) return fail("the description cannot be built");
  if (std::strcmp(argv[1], "--peak") == 0) driver_feature::bench::printPeakMemory();
  return 0;
}
