// The examination of one PPD.
#ifndef EQUIVALENCE_EXAMINATION_H_
#define EQUIVALENCE_EXAMINATION_H_

#include <nlohmann/json.hpp>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace driver_feature::equivalence {

struct ExaminationRequest {
  std::string file;         // The PPD.
  std::string description;  // Compared instead of an import of the PPD, when not empty.
  std::string importTo;     // Receives the imported description.
  std::string library;      // The feature library; empty to search it.
  std::vector<std::string> routines;
  std::uint64_t seed = 1;
  int vectors = 3;  // Random ones, after the defaults.
  // Whole jobs, with the defaults and this many random choices; none without
  // the folder of programs.
  std::string programs;
  std::string pstops = "/usr/lib/cups/filter/pstops";
  int wholeVectors = 1;
  std::string jobFile;  // Receives the output for the defaults as a job; empty for none.
};

// Opens the PPD in libcups, imports it, checks the description, loads it, and
// compares the outputs: for the defaults as they are loaded, for choices that
// touch libcups' rules of media, for random choices, and for the restored
// defaults; and whole jobs, if requested. `enter` is called with each phase
// before it begins. Returns the figures and
//   "causes": why this PPD fails, each a short text; empty when it passes
//   "detail": a text for the first cause
//   "differences": the first difference of each part of the output.
// One per process: the library keeps one set of features.
nlohmann::json examine(const ExaminationRequest& request,
                       const std::function<void(const std::string& phase)>& enter);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_EXAMINATION_H_
