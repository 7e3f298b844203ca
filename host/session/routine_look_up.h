// Which routines there are, and what a name in a description refers to.
#ifndef HOST_SESSION_ROUTINE_LOOK_UP_H_
#define HOST_SESSION_ROUTINE_LOOK_UP_H_

#include <optional>
#include <string>
#include <vector>

namespace driver_feature::host {

enum class RoutineKind : unsigned char {
  kMissing,  // Nothing has the name.
  kRoutine,  // A function of a library of routines or of the program.
  kForeign,  // A function of another library, such as printf().
  kData,     // A variable.
};

struct RoutineLookUp {
  RoutineKind kind = RoutineKind::kMissing;
  std::string library;  // The file name of the library that has it; empty for the program.
  bool isOfProgram = false;
};

// What the feature library would find and call.
RoutineLookUp lookUpRoutine(const std::string& name);

// What is wrong with a name that is not a routine's, as the rest of a sentence:
// "is a function of libc.so.6, not a routine". Empty for a routine and for a
// missing one.
std::string objectionTo(const RoutineLookUp& routine);

// Loads a library; from then on lookUpRoutine() counts it, and the libraries
// loaded with it, as libraries of routines. Null on failure, with dlerror() set.
void* openRoutines(const std::string& path);

// The names of the functions of all libraries of routines, sorted, with those of
// the program that a description may name.
std::vector<std::string> routineNames();

// The full name of a C++ function of that name in a library of routines, whose
// symbol is another one because extern "C" is missing; nothing without one.
std::optional<std::string> mangledRoutine(const std::string& name);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_ROUTINE_LOOK_UP_H_
