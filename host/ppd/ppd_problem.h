// Why a PPD file cannot be read.
#ifndef HOST_PPD_PPD_PROBLEM_H_
#define HOST_PPD_PPD_PROBLEM_H_

#include <string>

namespace driver_feature {

struct PpdProblem {
  std::string text;   // With the file's name, the line if there is one, and a remedy.
  std::string cause;  // The same for all files of which the same is wrong.
};

}  // namespace driver_feature

#endif  // HOST_PPD_PPD_PROBLEM_H_
