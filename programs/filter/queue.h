// What the queue says about its jobs: which description they use, and how.
//
// The queue's PPD says it, with lines such as
//
//   *DriverFeatureDescription: "/usr/share/driver-feature/office_laser.xml"
//   *DriverFeatureRefusedValue: "default"
//   *DriverFeatureRules: "resolve"
//
// For trials by hand, environment variables say it instead and have the last
// word: DRIVER_FEATURE_DESCRIPTION and so on.
#ifndef PROGRAMS_FILTER_QUEUE_H_
#define PROGRAMS_FILTER_QUEUE_H_

#include <functional>
#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/ppd/plain/queue_ppd.h"
#include "host/settings/rule_keeping.h"

namespace driver_feature::filter {

// What to do about a job with a value that must be refused.
enum class RefusedValue {
  kFail,     // It fails.
  kDefault,  // It is printed with the queue's default.
};

struct Queue {
  std::string description;            // The file.
  std::string library;                // The feature library; empty to search it.
  std::vector<std::string> routines;  // Libraries of routines that the description names.
  RefusedValue refusedValue = RefusedValue::kFail;
  host::RuleConduct rules = host::RuleConduct::kRefuse;
};

// The value of an environment variable; null without one.
using Environment = std::function<const char*(const char* name)>;

// The settings of the PPD and the environment. `ppd` may be null. Relative names
// of files in a PPD are those of files beside it. Refused when there is no
// description or something else cannot be understood.
host::Result<Queue> readQueue(const ppd::QueuePpd* ppd, const Environment& environment);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_QUEUE_H_
