// Copies a job to the device and puts the description's texts into it.
#ifndef PROGRAMS_FILTER_COPY_JOB_H_
#define PROGRAMS_FILTER_COPY_JOB_H_

#include <string>

#include "programs/filter/arguments.h"
#include "programs/filter/libcups_frame.h"
#include "programs/filter/sections.h"

namespace driver_feature::filter {

// What shows that a document has been read to its end.
enum class DocumentEnd {
  kAny,      // Nothing in it.
  kTrailer,  // The comment in front of its trailer.
  kPages,    // A number of pages.
};

struct JobTexts {
  Sections sections;
  std::string trailer;
  DocumentEnd end = DocumentEnd::kAny;
  long pages = 0;       // For DocumentEnd::kPages.
  LibcupsFrame around;  // What filters before this one may have put around the job.
};

// Copies the job from its file, or from standard input, to standard output.
// Returns why that failed; success also for a job that was cancelled. In every
// case the trailer follows what has been written, so that no device is left in
// the middle of a job.
host::Result<> copyJob(const FilterArguments& arguments, const JobTexts& texts);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_COPY_JOB_H_
