// Work that runs routines of a description, in a copy of the process: whatever
// they do there, this process can name the one that did it.
#ifndef HOST_SESSION_ROUTINE_RUNS_H_
#define HOST_SESSION_ROUTINE_RUNS_H_

#include <functional>
#include <string>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::host {

// Runs `work` in a copy of this process, whose status it returns; with the end
// that a routine has brought about, kNotLoaded and its name. An end by exit()
// without a routine is the copy's status: whoever called it has said why. Signals
// that ask this process to end are passed on to the copy; when they end it, they
// end this process, too.
Result<int> runWithRoutines(const std::function<int()>& work);

// runInChild() for such work. The problem names the routine that has ended the
// copy or has thrown, also where the feature library lets the exception end; the
// record is clear afterwards. There must be a SharedRoutineRecord.
Result<std::vector<std::string>> takeFromRoutines(
    const std::function<std::vector<std::string>()>& work);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_ROUTINE_RUNS_H_
