#include "host/rules/domain.h"

#include <algorithm>
#include <limits>
#include <set>

#include "host/description/feature_kind.h"

namespace driver_feature::rules {

namespace {

std::set<std::string> namesIn(const host::Rules& rules) {
  std::set<std::string> names;
  for (const host::Rule& rule : rules.rules) {
    for (const host::Condition& condition : rule.conditions) names.insert(condition.feature);
  }
  for (const host::HardwareFeature& hardware : rules.hardware) names.insert(hardware.name);
  return names;
}

void addChoices(const host::FeatureView& view, Domain& domain) {
  for (const host::Choice& choice : view.choices()) {
    domain.choices.push_back({choice.name, choice.available});
  }
  domain.defaultChoice = view.defaultChoice().value_or("");
}

void addWholeNumbers(const host::FeatureView& view, const host::FeatureLimits& limits,
                     Domain& domain) {
  domain.kind = Domain::Kind::kWhole;
  domain.lowest = limits.intMin.value_or(std::numeric_limits<int>::min());
  domain.highest = limits.intMax.value_or(std::numeric_limits<int>::max());
  domain.defaultNumber = view.defaultInt();
}

void addDecimals(const host::FeatureView& view, const host::FeatureLimits& limits, Domain& domain) {
  domain.kind = Domain::Kind::kDecimal;
  domain.lowest = limits.floatMin.value_or(std::numeric_limits<float>::lowest());
  domain.highest = limits.floatMax.value_or(std::numeric_limits<float>::max());
  domain.defaultNumber = static_cast<double>(view.defaultFloat());
}

// False for a feature whose value no rule can speak of.
bool addValues(const host::FeatureView& view, const host::FeatureLimits& limits, Domain& domain) {
  switch (view.kind()) {
    case host::FeatureKind::kMultiSelect:
      addChoices(view, domain);
      return true;
    case host::FeatureKind::kIntEntry:
      addWholeNumbers(view, limits, domain);
      return true;
    case host::FeatureKind::kFloatEntry:
      addDecimals(view, limits, domain);
      return true;
    default:
      return false;
  }
}

}  // namespace

Domains domainsOf(const host::Model& model, const host::Rules& rules) {
  Domains domains;
  for (const std::string& name : namesIn(rules)) {
    const auto found = model.features.find(name);
    if (found == model.features.end()) continue;
    if (!model.index.recordsOf(name).empty()) continue;
    Domain domain{.feature = name, .isChangeable = found->second.isAvailable()};
    if (addValues(found->second, model.index.limitsOf(name), domain)) {
      domains.push_back(std::move(domain));
    }
  }
  const auto lineOf = [&](const Domain& domain) {
    return model.index.limitsOf(domain.feature).line;
  };
  std::stable_sort(domains.begin(), domains.end(),
                   [&](const Domain& a, const Domain& b) { return lineOf(a) < lineOf(b); });
  return domains;
}

}  // namespace driver_feature::rules
