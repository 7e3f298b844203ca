#include "programs/driver_feature/work.h"

#include "host/base/standard_streams.h"
#include "programs/common/console.h"

namespace driver_feature {

Result<int> workOnDescription(const SessionRequest& request, const Changes& changes,
                              const Work& work) {
  std::vector<OutputText> outputs;
  {
    const StandardOutputDiversion diversion;
    auto session = openChanged(request, changes);
    if (!session) return failureOf(session);
    outputs = outputsToSave(**session, changes);
    if (Result<> done = work(**session, outputs); !done) return failureOf(done);
  }
  return writeAllOutputs(outputs).map([] { return kSuccess; });
}

}  // namespace driver_feature
