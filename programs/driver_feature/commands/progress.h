// The progress of a long run, on one line of a terminal.
#ifndef PROGRAMS_DRIVER_FEATURE_COMMANDS_PROGRESS_H_
#define PROGRAMS_DRIVER_FEATURE_COMMANDS_PROGRESS_H_

#include <cstddef>
#include <string>

namespace driver_feature::cli {

// Writes to standard error when that is a terminal, else nothing.
class Progress {
 public:
  explicit Progress(std::size_t total);

  // Shows the number and the name of the next of `total` things.
  void next(const std::string& name);

  // Clears the line, before something else is written there or when the run has
  // ended.
  void clear();

 private:
  std::size_t total_;
  std::size_t number_ = 0;
  bool isTerminal_;
  bool isShown_ = false;
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMMANDS_PROGRESS_H_
