// Feeds arbitrary documents to the parser, the loader, the three outputs and
// the dump.
//
// The loader ends the process at a description that it cannot build. Here the
// end is an exception instead (the program is linked with --wrap=exit), which
// the library's entry point swallows. What has been built so far is looked at
// all the same, as no real host could.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

#include "fuzz/model_release.h"
#include "model/core_feature_set.h"

#include "Log.h"
#include "XMLDocument.h"

namespace {

struct Ended {};
bool loading = false;

// Routines that descriptions of the corpus name. They are found by name.
extern "C" __attribute__((visibility("default"))) bool FuzzUpdate() {
  return true;
}
extern "C" __attribute__((visibility("default"))) int FuzzLoad(void*, int) {
  return 1;
}
extern "C" __attribute__((visibility("default"))) void FuzzChange() {}
extern "C" __attribute__((visibility("default"))) void FuzzText(DriverFeatureSet*,
                                                                std::string& text) {
  text += "routine";
}

void keepSilent(int, const char*, const char*, std::size_t, void*) {}

void use(CoreFeatureSet& features) {
  for (int form = -1; form <= 3; ++form) {
    std::string output;
    features.serialize(output, form, true, "1", "2");
  }
  std::ostringstream dump;
  std::streambuf* const before = std::cout.rdbuf(dump.rdbuf());
  features.dumpFeatureListValues();
  std::cout.rdbuf(before);
  features.restoreDefaultFeatureValues();
}

}  // namespace

extern "C" [[noreturn]] void __real_exit(int status);
extern "C" [[noreturn]] void __wrap_exit(int status) {
  if (!loading) __real_exit(status);
  if (status != 1) std::abort();
  throw Ended();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  SetLogHandler(keepSilent, nullptr);
  XMLProblem problem;
  const auto document = XMLDocument::parseText(
      std::string(reinterpret_cast<const char*>(data), size), "input", problem);
  if (!document) {
    if (problem.text.empty()) std::abort();
    return 0;
  }
  loading = true;
  FeatureXMLTagHandler(document->root());
  loading = false;
  SetFeatureCreationCompleteFlag();
  use(*static_cast<CoreFeatureSet*>(GetMasterFeatureList()));
  driver_feature::fuzz::releaseModel();
  return 0;
}
