// The program driver-feature: loads a feature description through the feature
// library, shows its features, and writes printer-ready output.

#include "host/base/standard_streams.h"
#include "programs/driver_feature/command_line.h"
#include "programs/driver_feature/run_caught.h"

int main(int argc, char** argv) {
  driver_feature::host::prepareStandardStreams();
  return driver_feature::cli::runCaught(
      [&] { return driver_feature::cli::runCommandLine(argc, argv); });
}
