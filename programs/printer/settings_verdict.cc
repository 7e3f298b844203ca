#include "programs/printer/settings_verdict.h"

#include <algorithm>
#include <utility>

#include "host/base/text.h"
#include "host/settings/rule_keeping.h"
#include "host/base/frames.h"

namespace driver_feature::printer {

namespace {

// What the rules of a plan say, without the places in files that authors need. A rule
// without a text is named.
template <class Plan>
std::string reasonOf(host::RuleKeeper& keeper, const Plan& plan) {
  std::vector<std::string> reasons;
  for (const auto& broken : plan.rules) {
    const auto& rule = keeper.rules().rules[static_cast<std::size_t>(broken.rule)];
    std::vector<std::string> values;
    for (const auto& value : broken.values) values.push_back(value.feature + "=" + value.value);
    const std::string text = rule.text.empty() ? "rule " + rule.id : rule.text;
    reasons.push_back(values.empty() ? text : host::join(values, " and ") + ": " + text);
  }
  return host::join(reasons, " ");
}

// Asks for changes until no rule holds: routines may change features after a change.
void resolve(host::RuleKeeper& keeper, SettingsVerdict& verdict) {
  const int rounds = 3;
  for (int round = 0; round <= rounds; ++round) {
    if (keeper.keep(host::RuleConduct::kRefuse)) return;
    const auto plan = keeper.plan();
    if (round == 0) verdict.conflict = reasonOf(keeper, plan);
    for (const auto& broken : plan.rules) {
      for (const auto& value : broken.values) verdict.features.push_back(value.feature);
    }
    if (plan.changes.empty() || round == rounds || !keeper.carryOut(plan)) {
      verdict.problem = verdict.conflict.empty() ? "Rules forbid the settings." : verdict.conflict;
      return;
    }
    for (const auto& change : plan.changes) verdict.changes.push_back({change.feature, change.to});
  }
}

}  // namespace

SettingsVerdict judge(const host::Session& session, const std::vector<host::Setting>& settings) {
  SettingsVerdict verdict;
  host::RuleKeeper keeper(session);
  for (const host::Setting& setting : settings) {
    // Names that are not features are options of the pages.
    if (!session.model().features.contains(setting.name)) continue;
    const auto applied = applySetting(session.model(), setting);
    if (!applied && verdict.problem.empty()) verdict.problem = describe(applied.error());
    keeper.noteSet(setting.name);
  }
  if (verdict.problem.empty()) resolve(keeper, verdict);
  return verdict;
}

std::string packSettings(const std::vector<host::Setting>& settings) {
  std::string text;
  for (const host::Setting& setting : settings)
    text += host::frame(setting.name) + host::frame(setting.value);
  return text;
}

std::vector<host::Setting> unpackSettings(std::string text) {
  std::vector<host::Setting> settings;
  bool isMalformed = false;
  while (!text.empty()) {
    auto name = host::takeFrame(text, isMalformed);
    auto value = host::takeFrame(text, isMalformed);
    if (!name || !value) break;
    settings.push_back({std::move(*name), std::move(*value)});
  }
  return settings;
}

std::string pack(const SettingsVerdict& verdict) {
  std::string text = host::frame(verdict.problem) + host::frame(verdict.conflict) +
                     host::frame(packSettings(verdict.changes));
  for (const std::string& feature : verdict.features) text += host::frame(feature);
  return text;
}

SettingsVerdict unpackVerdict(std::string text) {
  SettingsVerdict verdict;
  bool isMalformed = false;
  verdict.problem = host::takeFrame(text, isMalformed).value_or("");
  verdict.conflict = host::takeFrame(text, isMalformed).value_or("");
  verdict.changes = unpackSettings(host::takeFrame(text, isMalformed).value_or(""));
  while (auto feature = host::takeFrame(text, isMalformed))
    verdict.features.push_back(std::move(*feature));
  return verdict;
}

}  // namespace driver_feature::printer
