#include "programs/driver_feature/work.h"

#include "host/base/standard_streams.h"
#include "host/session/routine_calls.h"
#include "programs/common/console.h"

namespace driver_feature::cli {

host::Result<int> workOnDescription(const host::SessionRequest& request,
                                    const host::Changes& changes, const Work& work) {
  std::vector<host::OutputText> outputs;
  {
    const host::StandardOutputDiversion diversion;
    auto session = openChanged(request, changes);
    if (!session) return failureOf(session);
    outputs = outputsToSave(**session, changes);
    if (host::Result<> done = work(**session, outputs); !done) return failureOf(done);
    if (host::Result<> ran = host::successOfRoutines(); !ran) return failureOf(ran);
  }
  return writeAllOutputs(outputs).map([] { return kSuccess; });
}

}  // namespace driver_feature::cli
