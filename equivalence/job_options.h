// Choices as the options of a print job.
#ifndef EQUIVALENCE_JOB_OPTIONS_H_
#define EQUIVALENCE_JOB_OPTIONS_H_

#include <string>

#include "equivalence/peer.h"
#include "equivalence/ppd_text.h"

namespace driver_feature::equivalence {

// The marks as lp's -o gives them: "Option=Choice Other=Custom.3". Left out are
// options that take several choices, PageRegion (a job asks for a page size),
// and options whose names the scheduler's filters have for something of their
// own: they would do both.
std::string jobOptions(const Peer& peer, const Marks& marks);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_JOB_OPTIONS_H_
