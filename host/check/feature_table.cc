#include "host/check/feature_table.h"

#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

FeatureRow rowOf(const host::Element& feature) {
  FeatureRow row{&feature, {}, {}, boolOf(feature, "Visibility").value_or(true)};
  if (!feature.isKind(host::FeatureKind::kMultiSelect)) return row;
  for (const auto& option : feature.children) {
    row.options.push_back(option->name());
    row.optionSet.insert(option->name());
  }
  return row;
}

}  // namespace

FeatureTable::FeatureTable(const host::Element& description) {
  forEachElement(description, [this](const host::Element& element) {
    if (!element.has("Name")) return;
    if (element.role == host::Role::kFeature) features_[element.name()] = rowOf(element);
    const bool isGroup =
        element.role == host::Role::kStaticGroup || element.role == host::Role::kDynamicGroup;
    if (isGroup) groups_.insert(element.name());
  });
}

const FeatureRow* FeatureTable::find(const std::string& name) const {
  const auto found = features_.find(name);
  return found != features_.end() ? &found->second : nullptr;
}

std::vector<std::string> FeatureTable::names() const {
  std::vector<std::string> names;
  for (const auto& [name, row] : features_) names.push_back(name);
  return names;
}

}  // namespace driver_feature::check
