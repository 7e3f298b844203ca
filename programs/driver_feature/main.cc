// The program driver-feature: loads a feature description through the feature
// library, shows its features, and writes printer-ready output.

#include <exception>
#include <new>

#include "host/base/standard_streams.h"
#include "programs/common/console.h"
#include "programs/driver_feature/command_line.h"

namespace {

// Reports what has ended the program, in a shorter line if there is no memory
// left to compose it.
void report(const char* what) {
  try {
    driver_feature::cli::printError(what);
  } catch (const std::bad_alloc&) {
    driver_feature::cli::printLackOfMemory();
  }
}

}  // namespace

int main(int argc, char** argv) {
  driver_feature::host::prepareStandardStreams();
  try {
    return driver_feature::cli::runCommandLine(argc, argv);
  } catch (const std::bad_alloc&) {
    driver_feature::cli::printLackOfMemory();
  } catch (const std::exception& error) {
    report(error.what());
  } catch (...) {
    report(
        "a routine of the description threw an exception that is not derived from std::exception; "
        "fix the routine");
  }
  return driver_feature::cli::kFailure;
}
