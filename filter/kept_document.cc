#include "filter/kept_document.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "filter/cancellation.h"
#include "filter/device.h"
#include "filter/eps_file.h"
#include "filter/job_source.h"
#include "filter/job_structure.h"
#include "filter/kept_file.h"

namespace driver_feature {

namespace {

using Problem = std::optional<std::string>;

std::string failure(int error) {
  return "the job cannot be kept in " + temporaryFolder() + ": " + std::strerror(error);
}

// Puts a file with the same bytes in the place of standard input, if that
// cannot be read twice.
Problem makeInputRepeatable() {
  if (::lseek(STDIN_FILENO, 0, SEEK_CUR) != -1) return std::nullopt;
  const int copy = makeNamelessFile();
  if (copy == -1) return failure(errno);
  Problem problem;
  JobSource source("");
  Device device(copy);
  for (auto bytes = source.read(problem); !bytes.empty(); bytes = source.read(problem)) {
    device.put(bytes);
    device.flush();
    if (device.hasFailed()) break;
  }
  if (!problem && device.hasFailed()) problem = failure(device.error());
  const bool isInPlace = ::lseek(copy, 0, SEEK_SET) != -1 && ::dup2(copy, STDIN_FILENO) != -1;
  if (!problem && !isInPlace) problem = failure(errno);
  ::close(copy);
  return problem;
}

}  // namespace

KeptDocument::~KeptDocument() {
  if (descriptor_ != -1) ::close(descriptor_);
}

std::optional<std::string> KeptDocument::read(const std::string& file) {
  Problem problem = file.empty() ? makeInputRepeatable() : std::nullopt;
  if (problem || isCancelled()) return problem;
  const off_t start = file.empty() ? ::lseek(STDIN_FILENO, 0, SEEK_CUR) : 0;
  descriptor_ = makeNamelessFile();
  if (descriptor_ == -1) return failure(errno);
  JobSource source(file);
  Device kept(descriptor_);
  JobStructure job({}, kept, [](long) {});
  EpsFile whole(job);
  for (auto bytes = source.read(problem); !bytes.empty(); bytes = source.read(problem)) {
    whole.put(bytes);
    kept.flush();
    if (kept.hasFailed() || job.kind() == JobStructure::Kind::kNotPostScript) break;
  }
  whole.finish();
  job.finish();
  kept.flush();
  if (!problem && kept.hasFailed()) problem = failure(kept.error());
  if (file.empty()) ::lseek(STDIN_FILENO, start, SEEK_SET);
  ::lseek(descriptor_, 0, SEEK_SET);
  isDocument_ = job.kind() == JobStructure::Kind::kPostScript && !job.hasSecondDocument();
  isStructured_ = isDocument_ && job.pageCount().isStructured();
  hasPages_ = isStructured_ && job.pageCount().pages() > 0;
  return problem;
}

std::uint64_t KeptDocument::size() const {
  struct stat status {};
  return ::fstat(descriptor_, &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

}  // namespace driver_feature
