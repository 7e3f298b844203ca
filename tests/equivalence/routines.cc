// Routines that misbehave, for descriptions of the tests.

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

class DriverFeatureSet;

#define EXPORTED __attribute__((visibility("default")))

namespace {

// Writes the number of the process down, so that a test can look for it.
[[noreturn]] void hang() {
  std::ofstream("hanging_process") << ::getpid() << std::endl;
  for (;;) ::pause();
}

}  // namespace

extern "C" {

EXPORTED void crashInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  std::abort();
}

EXPORTED void hangInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  hang();
}

EXPORTED void endInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  if (::write(STDERR_FILENO, "going\n", 6) != 6) ::_exit(2);
  ::_exit(3);
}

EXPORTED void leaveInOutput(DriverFeatureSet* /*set*/, std::string& /*output*/) {
  ::_exit(0);
}

EXPORTED void countInOutput(DriverFeatureSet* /*set*/, std::string& output) {
  static int calls = 0;
  output += "% call " + std::to_string(++calls) + "\n";
}

EXPORTED bool hangInUpdate() {
  hang();
}

}  // extern "C"
