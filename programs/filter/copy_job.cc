#include "programs/filter/copy_job.h"

#include <unistd.h>

#include <cstring>

#include "programs/filter/cancellation.h"
#include "programs/filter/device.h"
#include "programs/filter/eps_file.h"
#include "programs/filter/job_source.h"
#include "programs/filter/job_structure.h"
#include "programs/filter/libcups_frame.h"
#include "programs/filter/messages.h"

namespace driver_feature::filter {

namespace {

host::Result<> problemOf(const Device& device) {
  if (!device.hasFailed()) return {};
  return fail(
      host::Problem::Kind::kNotWritten,
      std::string("the job cannot be written to the device: ") + std::strerror(device.error()));
}

host::Result<> problemOf(const JobStructure& job) {
  switch (job.kind()) {
    case JobStructure::Kind::kPostScript:
      if (!job.hasSecondDocument()) return {};
      return host::refused(
          "only the first document has been printed, because another one follows it; send each as "
          "a job of its own");
    case JobStructure::Kind::kUnknown:
      return host::refused("the job is empty; send a PostScript document");
    case JobStructure::Kind::kNotPostScript:
      break;
  }
  return host::refused(
      "the job is not PostScript, because it does not begin with %!; let a filter convert it "
      "first");
}

// Of a document on whose pages the scheduler's filter has worked.
host::Result<> problemOf(const PageCount& count, const JobTexts& texts) {
  const bool isWhole = texts.end == DocumentEnd::kAny ||
                       (texts.end == DocumentEnd::kTrailer && count.hasTrailer()) ||
                       (texts.end == DocumentEnd::kPages && count.pages() == texts.pages);
  if (!isWhole) {
    return host::refused(
        "the document is incomplete, because the scheduler's filter for pages has ended early");
  }
  if (texts.end != DocumentEnd::kAny && count.pages() == 0) {
    writeMessage(Message::kWarning,
                 "no page is printed, because the job's options leave out all of them");
  }
  return {};
}

}  // namespace

host::Result<> copyJob(const FilterArguments& arguments, const JobTexts& texts) {
  host::Result<> result;
  JobSource source(arguments.file);
  Device device(STDOUT_FILENO);
  JobStructure job(texts.sections, device, [&](long page) {
    writePageMessage(page,
                     arguments.isConverted ? job.pageCount().copiesInside() : arguments.copies);
  });
  LibcupsFrameCutter document(texts.around, job, [&job] { job.noteTakenPjl(); });
  EpsFile file(document);
  for (std::string_view bytes = source.read(result); !bytes.empty(); bytes = source.read(result)) {
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
    writeMessage(Message::kDebug, "the job has been cancelled");
    return {};
  }
  if (result) result = problemOf(device);
  if (result) result = problemOf(job);
  if (result) result = problemOf(job.pageCount(), texts);
  if (result && file.isCut()) {
    result = host::refused("the EPS file ends before its PostScript does; send the whole file");
  }
  if (result && !job.isSetUp()) {
    writeMessage(Message::kWarning,
                 "no comment in the job shows where its pages begin; the settings of "
                 "its document set-up are not written");
  }
  return result;
}

}  // namespace driver_feature::filter
