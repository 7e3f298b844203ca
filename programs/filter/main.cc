// The program driver-feature-filter: what a print scheduler runs for the jobs
// of a queue, to write them with the commands of a feature description.

#include <exception>
#include <new>

#include "host/base/standard_streams.h"
#include "programs/common/console.h"
#include "programs/filter/filter.h"
#include "programs/filter/messages.h"

int main(int argc, char** argv) {
  driver_feature::host::prepareStandardStreams();
  try {
    return driver_feature::filter::runFilter(argc, argv);
  } catch (const std::bad_alloc&) {
    driver_feature::cli::printLackOfMemory();
  } catch (const std::exception& error) {
    driver_feature::filter::tell(driver_feature::filter::Message::kError, error.what());
  } catch (...) {
    driver_feature::filter::tell(
        driver_feature::filter::Message::kError,
        "a routine of the description threw something that is no std::exception; "
        "correct it");
  }
  return driver_feature::cli::kFailure;
}
