#include "programs/common/guarded_run.h"

#include <exception>
#include <new>

#include "host/base/standard_streams.h"
#include "programs/common/console.h"

namespace driver_feature::cli {

int runGuarded(std::string_view start, const std::function<int()>& work) {
  host::prepareStandardStreams();
  startMessagesWith(start);
  try {
    return work();
  } catch (const std::bad_alloc&) {
    printLackOfMemory();
  } catch (const std::exception& error) {
    printError(error.what());
  }
  return kFailure;
}

}  // namespace driver_feature::cli
