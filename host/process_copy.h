// Trying something out in a copy of the process.
#ifndef HOST_PROCESS_COPY_H_
#define HOST_PROCESS_COPY_H_

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace driver_feature {

enum class CopyStreams {
  kShared,  // The copy writes to the same standard streams.
  kMuted,   // What the copy writes to standard output and error is dropped.
};

// Runs `work` in a copy of this process and answers its texts. Whatever it
// does to the features, which the library keeps once per process, stays in the
// copy. Nothing when the copy cannot be made, throws, or ends before `work`
// has answered.
std::optional<std::vector<std::string>> runInCopy(
    CopyStreams streams, const std::function<std::vector<std::string>()>& work);

// Called in a copy of the process `parent`: ends the copy when that ends, so
// that what hangs in it does not stay behind.
void endWithParent(pid_t parent);

}  // namespace driver_feature

#endif  // HOST_PROCESS_COPY_H_
