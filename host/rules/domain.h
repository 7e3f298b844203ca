// The values that the features in rules can be set to.
#ifndef HOST_RULES_DOMAIN_H_
#define HOST_RULES_DOMAIN_H_

#include <string>
#include <vector>

#include "host/description/rules.h"
#include "host/session/model.h"

namespace driver_feature::rules {

// A feature, and the values that it can have.
struct Domain {
  enum class Kind : unsigned char {
    kChoices,
    kWhole,    // Whole numbers.
    kDecimal,  // Numbers that the library keeps as floats.
  };
  struct Choice {
    std::string name;
    bool isTarget = true;  // Whether the feature may be moved to it.
  };

  std::string feature;
  Kind kind = Kind::kChoices;
  std::vector<Choice> choices = {};
  std::string defaultChoice = {};
  double lowest = 0;  // The least and the greatest number, both allowed.
  double highest = 0;
  double defaultNumber = 0;
  bool isChangeable = true;  // False: nothing but a person changes it.
};

// In the order in which they are preferred for a change.
using Domains = std::vector<Domain>;

// The domains of the features that the rules name and that can be in rules, in
// the order of the description: those with choices and with numbers, outside
// the templates of dynamic groups. An option is a target, and a feature can be
// changed, if it is available at the time of the call.
Domains domainsOf(const host::Model& model, const host::Rules& rules);

}  // namespace driver_feature::rules

#endif  // HOST_RULES_DOMAIN_H_
