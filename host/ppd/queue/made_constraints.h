// The rules of a description as constraints of a PPD that is made of it.
#ifndef HOST_PPD_QUEUE_MADE_CONSTRAINTS_H_
#define HOST_PPD_QUEUE_MADE_CONSTRAINTS_H_

#include <map>
#include <string>
#include <vector>

#include "host/description/rules.h"
#include "host/ppd/queue/choice_names.h"

namespace driver_feature::ppd {

// What the PPD has of a feature.
struct MadeOption {
  std::string keyword;  // The option.
  std::vector<NamedChoice> choices;
  bool isSwitch = false;  // The feature is one choice of an option that has several at once.
};

// The options that the PPD has, by the names of their features.
using MadeOptions = std::map<std::string, MadeOption>;

// The statements, with line ends. libcups finds a conflict between choices of the
// PPD exactly when a rule holds for them. A rule that a PPD cannot hold is added
// to the losses, as "rule ID" and the reason; one that cannot hold for any choices
// of the PPD has no statement.
std::string constraintLines(const host::Rules& rules, const MadeOptions& options,
                            std::vector<std::string>& losses);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_MADE_CONSTRAINTS_H_
