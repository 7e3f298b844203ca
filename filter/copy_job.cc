#include "filter/copy_job.h"

#include <unistd.h>

#include <cstring>

#include "filter/cancellation.h"
#include "filter/device.h"
#include "filter/eps_file.h"
#include "filter/job_source.h"
#include "filter/job_structure.h"
#include "filter/libcups_frame.h"
#include "filter/messages.h"

namespace driver_feature {

namespace {

using Problem = std::optional<std::string>;

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

// Of a document on whose pages the scheduler's filter has worked.
Problem problemOf(const PageCount& count, const JobTexts& texts) {
  const bool isWhole = texts.end == DocumentEnd::kAny ||
                       (texts.end == DocumentEnd::kTrailer && count.hasTrailer()) ||
                       (texts.end == DocumentEnd::kPages && count.pages() == texts.pages);
  if (!isWhole) {
    return "the document is not whole, because the scheduler's filter for pages has ended early";
  }
  if (texts.end != DocumentEnd::kAny && count.pages() == 0) {
    tell(Message::kWarning, "no page is printed, because the job's options leave out all of them");
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> copyJob(const FilterArguments& arguments, const JobTexts& texts) {
  Problem problem;
  JobSource source(arguments.file);
  Device device(STDOUT_FILENO);
  JobStructure job(texts.sections, device, [&](long page) {
    tellPage(page, arguments.isConverted ? job.pageCount().copiesInside() : arguments.copies);
  });
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
  if (!problem) problem = problemOf(job.pageCount(), texts);
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
