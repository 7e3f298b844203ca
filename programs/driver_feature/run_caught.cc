#include "programs/driver_feature/run_caught.h"

#include <exception>
#include <new>
#include <string>

#include "host/session/routine_calls.h"
#include "programs/common/console.h"

namespace driver_feature::cli {

namespace {

void reportThrown(const char* what) {
  try {
    const std::string thrown = describeThrow(host::routineRecord());
    printError(thrown.empty() ? what : thrown);
  } catch (const std::bad_alloc&) {
    printLackOfMemory();
  }
}

}  // namespace

int runCaught(const std::function<int()>& work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    printLackOfMemory();
  } catch (const std::exception& error) {
    reportThrown(error.what());
  } catch (...) {
    reportThrown("an exception that is not derived from std::exception has ended the work");
  }
  return kFailure;
}

}  // namespace driver_feature::cli
