// What stands in front of a job and behind it: PJL.
#ifndef FILTER_JOB_FRAME_H_
#define FILTER_JOB_FRAME_H_

#include <string>

#include "filter/arguments.h"
#include "filter/queue_ppd.h"
#include "host/settings.h"

namespace driver_feature {

struct JobFrame {
  std::string header;
  std::string trailer;
};

// The frame around a job. `pjl` is the description's PJL output; `ppd` may be
// null.
//
// The trailer is the PJL of the description's feature "JCLEnd". A description
// without that feature has the universal exit sequence if it has PJL at all.
//
// Where the description's PJL begins as the PPD's does, the job's name and
// user are added to it when libcups would add them, and as libcups writes
// them.
JobFrame frameOf(const Model& model, const QueuePpd* ppd, const FilterArguments& arguments,
                 const std::string& pjl);

// PostScript that prints each page several times, with its line end; empty for
// one copy.
std::string copiesText(int copies);

}  // namespace driver_feature

#endif  // FILTER_JOB_FRAME_H_
