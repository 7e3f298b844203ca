#include "programs/filter/kept_document.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "programs/filter/cancellation.h"
#include "programs/filter/device.h"
#include "programs/filter/eps_file.h"
#include "programs/filter/job_source.h"
#include "programs/filter/job_structure.h"
#include "programs/filter/kept_file.h"

namespace driver_feature::filter {

namespace {

host::Failure failure(int error) {
  return fail(host::Problem::Kind::kNotWritten,
              "the job cannot be kept in " + temporaryFolder() + ": " + std::strerror(error));
}

// Puts a file with the same bytes in the place of standard input, if that
// cannot be read twice.
host::Result<> makeInputRepeatable() {
  if (::lseek(STDIN_FILENO, 0, SEEK_CUR) != -1) return {};
  const int copy = makeNamelessFile();
  if (copy == -1) return failure(errno);
  host::Result<> result;
  JobSource source("");
  Device device(copy);
  for (auto bytes = source.read(result); !bytes.empty(); bytes = source.read(result)) {
    device.put(bytes);
    device.flush();
    if (device.hasFailed()) break;
  }
  if (result && device.hasFailed()) result = failure(device.error());
  const bool isInPlace = ::lseek(copy, 0, SEEK_SET) != -1 && ::dup2(copy, STDIN_FILENO) != -1;
  if (result && !isInPlace) result = failure(errno);
  ::close(copy);
  return result;
}

}  // namespace

KeptDocument::~KeptDocument() {
  if (descriptor_ != -1) ::close(descriptor_);
}

host::Result<> KeptDocument::read(const std::string& file) {
  host::Result<> result = file.empty() ? makeInputRepeatable() : host::Result<>();
  if (!result || isCancelled()) return result;
  const off_t start = file.empty() ? ::lseek(STDIN_FILENO, 0, SEEK_CUR) : 0;
  descriptor_ = makeNamelessFile();
  if (descriptor_ == -1) return failure(errno);
  JobSource source(file);
  Device kept(descriptor_);
  JobStructure job({}, kept, [](long) {});
  EpsFile whole(job);
  for (auto bytes = source.read(result); !bytes.empty(); bytes = source.read(result)) {
    whole.put(bytes);
    kept.flush();
    if (kept.hasFailed() || job.kind() == JobStructure::Kind::kNotPostScript) break;
  }
  whole.finish();
  job.finish();
  kept.flush();
  if (result && kept.hasFailed()) result = failure(kept.error());
  if (file.empty()) ::lseek(STDIN_FILENO, start, SEEK_SET);
  ::lseek(descriptor_, 0, SEEK_SET);
  isDocument_ = job.kind() == JobStructure::Kind::kPostScript && !job.hasSecondDocument();
  isStructured_ = isDocument_ && job.pageCount().isStructured();
  hasPages_ = isStructured_ && job.pageCount().pages() > 0;
  return result;
}

std::uint64_t KeptDocument::size() const {
  struct stat status {};
  return ::fstat(descriptor_, &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

}  // namespace driver_feature::filter
