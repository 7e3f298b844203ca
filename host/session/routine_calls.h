// Which routine of a description runs: when one crashes, ends the process or
// throws, the author needs its name.
#ifndef HOST_SESSION_ROUTINE_CALLS_H_
#define HOST_SESSION_ROUTINE_CALLS_H_

#include <array>
#include <string>

#include "host/base/result.h"

namespace driver_feature::host {

// Survives the end of the process that writes it when it is in memory that
// processes share. All texts end in NUL and may be cut.
struct RoutineRecord {
  std::array<char, 256> running{};  // The routine that runs; empty when none does.
  std::array<char, 256> thrower{};  // The one that has thrown; empty when none has.
  std::array<char, 512> thrown{};   // The text of the exception; empty without one.
};

// A record in memory that processes share, where this one and its copies keep
// theirs while it lives. One at a time.
class SharedRoutineRecord {
 public:
  SharedRoutineRecord();
  ~SharedRoutineRecord();
  SharedRoutineRecord(const SharedRoutineRecord&) = delete;
  SharedRoutineRecord& operator=(const SharedRoutineRecord&) = delete;

  const RoutineRecord& operator*() const { return *record_; }

 private:
  void* memory_;
  RoutineRecord* record_ = nullptr;
};

// The present record.
const RoutineRecord& routineRecord();

// Forgets what the present record holds, once it has been reported or when
// other work begins.
void clearRoutineRecord();

// From now on the routines that the feature-description element names are noted
// while they run. Those of the program itself are not, since they return. Returns
// a problem (kNotLoaded) for each name that is not a routine's, which would crash
// when it is called. `file` is for the places.
Problems noteRoutineCalls(void* description, const std::string& file);

// From now on, looking up a routine that writes PostScript or PJL gives what
// `exchange` returns for it; null ends that.
using TextRoutineExchange = void* (*)(const char* name, void* routine);
void exchangeTextRoutines(TextRoutineExchange exchange);

// What the record and the status of a process, as waitpid() gives it, say about
// a routine's fault: "the routine "x" ended the process with exit status 0; let
// it return". Empty when no routine was running.
std::string describeRoutineEnd(const RoutineRecord& record, int status);

// "the routine "x" threw an exception: TEXT; catch it in the routine". Empty when
// none has.
std::string describeThrow(const RoutineRecord& record);

// That as a problem (kNotWritten), for the present record. Call it after work in
// which routines may have run: the feature library catches some exceptions where
// it calls a routine.
Result<> successOfRoutines();

}  // namespace driver_feature::host

#endif  // HOST_SESSION_ROUTINE_CALLS_H_
