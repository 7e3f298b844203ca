// Examines many PPDs, each in a process of its own.
#ifndef EQUIVALENCE_RUNNER_H_
#define EQUIVALENCE_RUNNER_H_

#include <nlohmann/json.hpp>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "equivalence/examination.h"

namespace driver_feature::equivalence {

struct Task {
  std::string name;  // In reports and exceptions.
  std::string file;
};

struct RunRequest {
  ExaminationRequest examination;  // For all; the files are filled in.
  std::size_t processes = 2;
  std::chrono::seconds limit{60};  // For one PPD.
  std::string descriptionFolder;   // Imported descriptions, removed when they have no findings.
  std::string jobFolder;           // Receives jobs; empty for none.
  std::size_t jobs = 20;           // How many, spread over the tasks.
};

// Hands the record of each PPD, in the order in which they are finished, to
// `sink`: that of examine() with "ppd" (the name) and "seconds". A child that
// crashes, ends or hangs has one cause, such as "crash (signal 11) in load",
// and the beginning of what it printed as "detail".
void examineAll(const std::vector<Task>& tasks, const RunRequest& request,
                const std::function<void(const nlohmann::json& record)>& sink);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_RUNNER_H_
