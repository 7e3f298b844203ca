// Processes of which each reads what the one before it writes.
#ifndef PROGRAMS_PRINTER_STAGES_H_
#define PROGRAMS_PRINTER_STAGES_H_

#include <functional>
#include <string>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::printer {

struct Stage {
  std::string name;           // For messages.
  std::function<int()> run;   // In its process, with its input and output in their places.
  bool isCancellable = true;  // Gets the signal that cancels the job.
};

// Runs the stages and waits for all of them. `input` and `output` are files for the
// first and the last one; -1 for none. Problem: kNotLoaded when a process cannot be
// made; kDifferent when one fails: "NAME ends with exit status 1".
//
// SIGTERM to this process is passed on to those stages that can be cancelled.
host::Result<> runStages(const std::vector<Stage>& stages, int input, int output);

// Whether this process has got SIGTERM since the first stages have run.
bool isCancelled();

// Whether a stage was ended by a signal from elsewhere: nothing is known to be wrong
// with the job.
bool wasKilled();

// Becomes the program, found like a command of a shell. Returns only when that
// fails, with the status for it.
int runProgram(const std::vector<std::string>& arguments);

bool isProgram(const std::string& name);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_STAGES_H_
