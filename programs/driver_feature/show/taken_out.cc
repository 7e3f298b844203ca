#include "programs/driver_feature/show/taken_out.h"

#include <nlohmann/json.hpp>

#include "host/base/text.h"

namespace driver_feature::cli {

std::string showTakenOut(host::RuleKeeper& rules, const std::string& feature) {
  std::string text;
  for (const rules::TakenOut& choice : rules.takeOut()) {
    if (!feature.empty() && choice.feature != feature) continue;
    text += "  " + host::printable(choice.feature + "=" + choice.choice) + "\n";
    for (const std::string& reason : rules.reasonsOf(choice)) {
      text += "    " + host::printable(reason) + "\n";
    }
  }
  return text.empty() ? "" : "\nTAKEN OUT BY RULES\n" + text;
}

nlohmann::ordered_json takenOutJson(host::RuleKeeper& rules) {
  auto list = nlohmann::ordered_json::array();
  for (const rules::TakenOut& choice : rules.takeOut()) {
    list.push_back({{"feature", choice.feature},
                    {"choice", choice.choice},
                    {"reasons", rules.reasonsOf(choice)}});
  }
  return list;
}

}  // namespace driver_feature::cli
