// The program driver-feature: loads a feature description through the feature
// library, shows its features, and writes printer-ready output.

#include <exception>

#include "host/command_line.h"
#include "host/console.h"

int main(int argc, char** argv) {
  driver_feature::prepareStandardStreams();
  try {
    return driver_feature::runCommandLine(argc, argv);
  } catch (const std::exception& error) {
    driver_feature::complain(error.what());
    return driver_feature::kFailure;
  }
}
