// The program driver-feature: loads a feature description through the feature
// library, shows its features, and writes printer-ready output.

#include <exception>
#include <new>

#include "host/base/standard_streams.h"
#include "programs/common/console.h"
#include "programs/driver_feature/command_line.h"

namespace {

// Tells what has ended the program. Where there is no memory left to compose
// the line, a shorter one has to do.
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
    report("a routine of the description threw something that is no std::exception; correct it");
  }
  return driver_feature::cli::kFailure;
}
