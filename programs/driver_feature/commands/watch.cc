#include "programs/driver_feature/commands/watch.h"

#include "host/base/child_process.h"
#include "host/base/file_watch.h"
#include "host/description/beside_files.h"
#include "programs/common/console.h"

namespace driver_feature::cli {

namespace {

host::Result<> runOnce(const std::function<host::Result<int>()>& work) {
  auto child = host::ChildProcess::start(host::ChildStreams::kShared, [&work](int) {
    const host::Result<int> status = work();
    return status ? *status : report(status.error());
  });
  if (!child) return failureOf(child);
  child->wait();
  return {};
}

}  // namespace

host::Result<int> watchDescriptions(const std::vector<std::string>& files,
                                    const std::function<host::Result<int>()>& work) {
  host::FileWatch watch;
  for (const std::string& file : files) {
    if (auto added = watch.addFile(file); !added) return failureOf(added, "--watch");
    if (auto added = watchBeside(file, watch); !added) return failureOf(added, "--watch");
  }
  while (true) {
    if (host::Result<> done = runOnce(work); !done) return failureOf(done);
    if (!watch.wait()) return host::refused("--watch: the files cannot be watched any more");
  }
}

}  // namespace driver_feature::cli
