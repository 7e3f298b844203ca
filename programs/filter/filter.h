// The filter: from its arguments to its exit status.
#ifndef PROGRAMS_FILTER_FILTER_H_
#define PROGRAMS_FILTER_FILTER_H_

namespace driver_feature::filter {

// Reads a job from its file or from standard input and writes it, with the
// description's commands in their places, to standard output. Answers 0 when
// the job is written whole or was cancelled, otherwise 1 after an ERROR line.
int runFilter(int argc, const char* const* argv);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_FILTER_H_
