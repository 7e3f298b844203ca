// A plan in words, the same in every program.
#ifndef HOST_RULES_EXPLAIN_H_
#define HOST_RULES_EXPLAIN_H_

#include <string>
#include <vector>

#include "host/description/rules.h"
#include "host/description/texts.h"
#include "host/rules/plan.h"

namespace driver_feature::rules {

// A line for each rule, and one for each thing that would change:
//
//   Duplex=TwoSided cannot be combined with MediaType=Transparency: TEXT
//   also changes Duplex: TwoSided -> None
//   possible with DuplexUnit=Installed
//
// The newest wish comes first in a line. TEXT is the rule's text in the
// language of `texts`; without texts, the one of the rule itself. A rule
// without a text is named: "(rule ID)". No line for a plan that fits.
std::vector<std::string> explain(const Plan& plan, const host::Rules& rules,
                                 const host::TextLookUp* texts = nullptr);

// What came of a plan, for machines: "fits", "mended", "impossible" or "not found".
const char* wordOf(Plan::Kind kind);

// The line of one rule for a choice that is taken out, or a value of a check.
std::string explainRule(const host::Rule& rule, const std::vector<Assignment>& values,
                        const std::vector<Assignment>& wishes,
                        const host::TextLookUp* texts = nullptr);

}  // namespace driver_feature::rules

#endif  // HOST_RULES_EXPLAIN_H_
