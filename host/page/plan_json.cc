#include "host/page/plan_json.h"

#include "host/page/shown_text.h"
#include "host/rules/explain.h"

namespace driver_feature::page {

using Json = nlohmann::json;

namespace {

Json changesJson(const std::vector<rules::Change>& changes) {
  Json list = Json::array();
  for (const auto& [feature, from, to] : changes) {
    list.push_back({{"feature", shown(feature)}, {"from", shown(from)}, {"to", shown(to)}});
  }
  return list;
}

}  // namespace

Json planJson(const rules::Plan& plan, host::RuleKeeper& keeper) {
  Json reasons = Json::array();
  for (const std::string& reason : keeper.reasonsOf(plan)) reasons.push_back(shown(reason));
  return {{"kind", rules::wordOf(plan.kind)},
          {"changes", changesJson(plan.changes)},
          {"reasons", std::move(reasons)},
          {"hardware", changesJson(plan.hardware)},
          {"withHardware", changesJson(plan.withHardware)}};
}

}  // namespace driver_feature::page
