// Choices as the options of a print job.
#ifndef EQUIVALENCE_JOB_OPTIONS_H_
#define EQUIVALENCE_JOB_OPTIONS_H_

#include <string>

#include "equivalence/peer.h"
#include "equivalence/ppd_text.h"

namespace driver_feature::equivalence {

// The marks in the form of lp's -o: "Option=Choice Other=Custom.3". Left out
// are options that take several choices, PageRegion (a job asks for a page
// size), and options with names that the scheduler's filters use for something
// else: both would take effect.
std::string jobOptions(const Peer& peer, const Marks& marks);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_JOB_OPTIONS_H_
