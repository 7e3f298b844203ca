// What else must change for a choice, as a page has it.
#ifndef HOST_PAGE_PLAN_JSON_H_
#define HOST_PAGE_PLAN_JSON_H_

#include <nlohmann/json.hpp>

#include "host/rules/plan.h"
#include "host/settings/rule_keeping.h"

namespace driver_feature::page {

// {"kind", "changes", "reasons", "hardware", "withHardware"}.
nlohmann::json planJson(const rules::Plan& plan, host::RuleKeeper& keeper);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_PLAN_JSON_H_
