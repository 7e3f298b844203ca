// How far a long run has come.
#ifndef EQUIVALENCE_RUN_PROGRESS_H_
#define EQUIVALENCE_RUN_PROGRESS_H_

#include <cstddef>
#include <ostream>

namespace driver_feature::equivalence {

// On a terminal, one line with a bar that is rewritten; elsewhere a line for
// each twentieth of the work.
class RunProgress {
 public:
  RunProgress(std::ostream& output, bool isTerminal, std::size_t total)
      : output_(output), isTerminal_(isTerminal), total_(total) {}

  // One more is done; `seconds` have passed since the beginning.
  void step(bool failed, double seconds);

  // Leaves the line.
  void finish();

 private:
  void draw(double seconds);

  std::ostream& output_;
  bool isTerminal_;
  std::size_t total_;
  std::size_t done_ = 0;
  std::size_t failed_ = 0;
};

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_RUN_PROGRESS_H_
