// The results of a run, for people and for programs.
#ifndef EQUIVALENCE_REPORT_H_
#define EQUIVALENCE_REPORT_H_

#include <nlohmann/json.hpp>

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "equivalence/exceptions.h"

namespace driver_feature::equivalence {

class Report {
 public:
  explicit Report(Exceptions exceptions) : exceptions_(std::move(exceptions)) {}

  // Adds the record of one PPD. True when it has a cause that is not listed as
  // an exception.
  bool add(const nlohmann::json& record);

  // Closes the report: exceptions that have not occurred are failures, too;
  // all of them when the run was `complete`, else those of examined PPDs.
  void close(bool complete);

  bool hasFailures() const { return !failures_.empty() || !idleExceptions_.empty(); }

  // Figures, causes and exceptions. The failures are in the order of their
  // names.
  nlohmann::json toJson() const;
  std::string toText() const;

 private:
  // NOLINTNEXTLINE(bugprone-exception-escape): moving a JSON value throws nothing.
  struct Failure {
    std::vector<std::string> causes;  // Without the listed exceptions.
    nlohmann::json record;
  };

  std::string figuresText() const;

  Exceptions exceptions_;
  std::set<std::string> examined_;
  std::map<std::string, long> figures_;
  std::map<std::string, long> causes_;                // PPDs by cause, exceptions included.
  std::map<std::string, Failure> failures_;           // By PPD.
  std::vector<std::array<std::string, 3>> excepted_;  // Cause, PPD, reason.
  std::vector<std::string> idleExceptions_;
};

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_REPORT_H_
