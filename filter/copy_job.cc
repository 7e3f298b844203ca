#include "filter/copy_job.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "filter/cancellation.h"
#include "filter/device.h"
#include "filter/eps_file.h"
#include "filter/job_structure.h"
#include "filter/libcups_frame.h"
#include "filter/messages.h"

namespace driver_feature {

namespace {

using Problem = std::optional<std::string>;

// The job's bytes.
class Source {
 public:
  explicit Source(const std::string& file)
      : name_(file.empty() ? "standard input" : file),
        descriptor_(file.empty() ? STDIN_FILENO : ::open(file.c_str(), O_RDONLY | O_CLOEXEC)),
        error_(descriptor_ == -1 ? errno : 0) {}
  ~Source() {
    if (descriptor_ > STDIN_FILENO) ::close(descriptor_);
  }
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

  // The next bytes; none at the end, after a failure and when the job is
  // cancelled.
  std::string_view read(Problem& problem) {
    // Nobody waits for a file that could not be opened.
    while (descriptor_ != -1 && waitToRead(descriptor_)) {
      const ssize_t count = ::read(descriptor_, buffer_.data(), buffer_.size());
      if (count >= 0) return {buffer_.data(), static_cast<std::size_t>(count)};
      if (errno == EINTR || errno == EAGAIN) continue;
      error_ = errno;
      break;
    }
    if (error_ != 0) {
      problem = "the job cannot be read from " + name_ + ": " + std::strerror(error_);
    }
    return {};
  }

 private:
  std::string name_;
  int descriptor_;
  int error_;  // The error number of a failure.
  std::array<char, 65536> buffer_;
};

Problem problemOf(const Device& device) {
  if (!device.hasFailed()) return std::nullopt;
  return std::string("the job cannot be written to the device: ") + std::strerror(device.error());
}

Problem problemOf(const JobStructure& job) {
  switch (job.kind()) {
    case JobStructure::Kind::kPostScript:
      if (!job.hasSecondDocument()) return std::nullopt;
      return "only the first document has been printed, because another one stands behind its "
             "end; send each as a job of its own";
    case JobStructure::Kind::kUnknown:
      return "the job is empty; send a PostScript document";
    case JobStructure::Kind::kNotPostScript:
      break;
  }
  return "the job is no PostScript, because it does not begin with %!; let a filter convert it "
         "first";
}

}  // namespace

std::optional<std::string> copyJob(const FilterArguments& arguments, const JobTexts& texts) {
  Problem problem;
  Source source(arguments.file);
  Device device(STDOUT_FILENO);
  JobStructure job(texts.sections, device,
                   [&arguments](long page) { tellPage(page, arguments.copies); });
  LibcupsFrameCutter document(texts.around, job, [&job] { job.noteTakenPjl(); });
  EpsFile file(document);
  for (std::string_view bytes = source.read(problem); !bytes.empty();
       bytes = source.read(problem)) {
    file.put(bytes);
    device.flush();
    if (device.hasFailed() || job.kind() == JobStructure::Kind::kNotPostScript) break;
  }
  file.finish();
  document.finish();
  job.finish();
  device.flush();
  if (device.hasBegun()) device.putLast(texts.trailer);
  if (isCancelled()) {
    tell(Message::kDebug, "the job has been cancelled");
    return std::nullopt;
  }
  if (!problem) problem = problemOf(device);
  if (!problem) problem = problemOf(job);
  if (!problem && file.isCut()) {
    problem = "the EPS file ends before its PostScript does; send the whole file";
  }
  if (!problem && !job.isSetUp()) {
    tell(Message::kWarning,
         "no comment in the job shows where its pages begin; the settings of "
         "its document set-up are not written");
  }
  return problem;
}

}  // namespace driver_feature
