// A shipped description, run through the built program.
#ifndef TESTS_GOLDEN_DESCRIBED_PRINTER_H_
#define TESTS_GOLDEN_DESCRIBED_PRINTER_H_

#include <cstdlib>
#include <string>
#include <vector>

#include "golden/ghostscript.h"

// Settings that give one feature one of its values.
struct Variation {
  std::string feature;
  std::vector<std::string> settings;  // NAME=VALUE; the last one is the feature's.

  std::string label() const { return settings.empty() ? "defaults" : settings.back(); }
};

// The parameter is the name of a description without its ending.
class DescribedPrinterTest : public GhostscriptTest,
                             public testing::WithParamInterface<std::string> {
 protected:
  // These are hundreds of runs, and looking for leaks would take most of their
  // time. The runs of the golden files look for them.
  DescribedPrinterTest() { ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1); }

  // What the program writes. Anything but status 0 and an empty standard error
  // is a failure of the test.
  std::string emit(const std::string& form, const std::vector<std::string>& settings) const;

  // The defaults; then every option of every "MultiSelect" feature, both
  // limits of every number, and texts that hold between them every character
  // that is allowed, as long as is allowed.
  std::vector<Variation> variations() const;

 private:
  std::vector<std::string> arguments(const std::string& command) const;
};

#endif  // TESTS_GOLDEN_DESCRIBED_PRINTER_H_
