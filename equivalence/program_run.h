// Runs a program and captures what it writes.
#ifndef EQUIVALENCE_PROGRAM_RUN_H_
#define EQUIVALENCE_PROGRAM_RUN_H_

#include <string>
#include <utility>
#include <vector>

namespace driver_feature::equivalence {

struct ProgramOutput {
  int status = 0;  // The exit status; 1000 and the signal when one has ended the program.
  std::string output;
  std::string errors;
};

// Runs the program with the arguments and waits for its end. Standard input is
// the file, or empty without one. The variables are set; one with an empty
// value is removed. Throws std::system_error when it cannot be started.
ProgramOutput runProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::pair<std::string, std::string>>& variables,
                         const std::string& input = "");

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_PROGRAM_RUN_H_
