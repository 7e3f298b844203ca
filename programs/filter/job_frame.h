// What comes before and after a job: PJL.
#ifndef PROGRAMS_FILTER_JOB_FRAME_H_
#define PROGRAMS_FILTER_JOB_FRAME_H_

#include <string>

#include "host/ppd/plain/queue_ppd.h"
#include "host/settings/setting.h"
#include "programs/filter/arguments.h"
#include "programs/filter/libcups_frame.h"

namespace driver_feature::filter {

struct JobFrame {
  std::string header;
  std::string trailer;
};

// The frame around a job. `pjl` is the description's PJL output; `ppd` may be
// null.
//
// The trailer is the PJL of the description's feature "JCLEnd". A description
// without that feature has the universal exit sequence if it has PJL, and
// otherwise what libcups writes at the end of a job of the PPD.
//
// An imported description without "JCLBegin" or "JCLToPSInterpreter" has no
// header: without those, the printer would not know that its commands are PJL.
//
// Where the description's PJL begins as the PPD's does, the job's name and
// user are added to it when libcups would add them, and as libcups writes
// them.
JobFrame frameOf(const host::Model& model, const ppd::QueuePpd* ppd,
                 const FilterArguments& arguments, const std::string& pjl);

// What libcups writes around a job of the PPD; `frame` is what is written around
// it here.
LibcupsFrame libcupsFrameOf(const ppd::QueuePpd& ppd, const FilterArguments& arguments,
                            const JobFrame& frame);

// PostScript that prints each page several times, with its line end; empty for
// one copy.
std::string copiesText(int copies);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_JOB_FRAME_H_
