// A printer made of a description, as the server knows it.
#ifndef PROGRAMS_PRINTER_PRINTER_H_
#define PROGRAMS_PRINTER_PRINTER_H_

#include <cups/ipp.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/ipp/translation.h"
#include "programs/printer/job_run.h"
#include "programs/printer/device_state.h"
#include "programs/printer/model_worker.h"

namespace driver_feature::printer {

using IppPointer = std::unique_ptr<ipp_t, void (*)(ipp_t*)>;

inline IppPointer noIpp() {
  return {nullptr, &::ippDelete};
}

struct Printer {
  std::string name;
  std::string networkName;  // By DNS-SD.
  std::string description;  // The file.
  Hardware hardware;        // As it was given to the worker.
  std::unique_ptr<ModelWorker> worker;
  std::optional<ipp::Translation> translation;  // Nothing before the description is loaded.
  IppPointer attributes = noIpp();              // What does not change while it prints.
  std::set<std::string> jobAttributes;          // The names of those that jobs can have.
  std::string queueFile;
  std::unique_ptr<JobRun> run;       // Of the job that is being printed.
  int current = 0;                   // Its number; 0 for none.
  std::vector<std::string> reasons;  // Keywords of printer-state-reasons; none: all is well.
  std::string message;               // What the device shows, for people.
  std::vector<Supply> supplies;      // As the device reports them; empty: unknown.
  std::int64_t stateChanged = 0;
  std::int64_t configured = 0;

  // It waits for a person.
  bool isStopped() const {
    return std::any_of(reasons.begin(), reasons.end(),
                       [](const std::string& reason) { return reason.ends_with("-error"); });
  }

  bool isReady() const { return translation.has_value(); }
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_PRINTER_H_
