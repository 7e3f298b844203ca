// What the filter does: from a job's arguments and its queue's PPD to the exit
// status.
#ifndef PROGRAMS_FILTER_FILTER_H_
#define PROGRAMS_FILTER_FILTER_H_

#include <functional>

#include "host/base/result.h"
#include "host/ppd/plain/queue_ppd.h"
#include "programs/filter/arguments.h"

namespace driver_feature::filter {

// Runs the function, prepared for messages to the scheduler, and returns its
// status; 1 after an ERROR line when it throws.
int runGuarded(const std::function<int()>& run);

// From now on SIGTERM cancels the job. False after an ERROR line.
bool prepareCancellation();

// Reads a job from its file or from standard input and writes it, with the
// description's commands in their places, to standard output. Returns 0 when
// the job is written whole or was cancelled, otherwise 1 after an ERROR line.
// `ppd` is null for a trial without one.
int runJob(FilterArguments arguments, ppd::QueuePpd* ppd);

// Reports the problem with an ERROR line. Returns 1.
int failWith(const host::Problem& problem);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_FILTER_H_
