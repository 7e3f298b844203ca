// Catches what the library prints on standard output.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_CAPTURED_OUTPUT_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_CAPTURED_OUTPUT_H_

#include <cstdio>
#include <string>

namespace driver_feature::cli {

// While it lives, everything written to standard output goes to a temporary file
// without a name.
class CapturedOutput {
 public:
  CapturedOutput();
  ~CapturedOutput();
  CapturedOutput(const CapturedOutput&) = delete;
  CapturedOutput& operator=(const CapturedOutput&) = delete;

  // Ends the catching and stores in `text` what was caught. Returns false when
  // that is not whole: no temporary file, or no space for it.
  bool end(std::string& text);

 private:
  void restore();

  std::FILE* file_;
  int saved_ = -1;  // A duplicate of standard output while it is replaced.
  bool whole_ = false;
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_CAPTURED_OUTPUT_H_
