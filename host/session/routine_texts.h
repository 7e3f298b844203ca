// What the routines of a description write into an output, call by call.
#ifndef HOST_SESSION_ROUTINE_TEXTS_H_
#define HOST_SESSION_ROUTINE_TEXTS_H_

#include <cstddef>
#include <string>
#include <vector>

namespace driver_feature::host {

// One call of a routine that writes PostScript or PJL.
struct RoutineText {
  std::string routine;
  std::size_t before = 0;  // How long the text was when the routine was called.
  std::string added;       // What came after that when it returned.
};

// Notes the calls while it lives, in their order. One at a time. A routine that
// the description also names for other purposes is noted in those calls, too.
class RoutineTexts {
 public:
  RoutineTexts();
  ~RoutineTexts();
  RoutineTexts(const RoutineTexts&) = delete;
  RoutineTexts& operator=(const RoutineTexts&) = delete;

  const std::vector<RoutineText>& calls() const { return calls_; }

 private:
  static void* exchange(const char* name, void* routine);
  static void call(void* set, void* text);

  std::vector<RoutineText> calls_;
  std::string name_;  // Of the routine that was looked up last.
  void* routine_ = nullptr;
};

}  // namespace driver_feature::host

#endif  // HOST_SESSION_ROUTINE_TEXTS_H_
