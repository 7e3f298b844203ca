#include "programs/filter/feature_key.h"

#include "model/core_feature.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

namespace driver_feature::filter {

namespace {

constexpr const char* kKey = "CLOKey";

// The option whose text property holds the value; null without one.
CoreOption* optionOf(CoreFeature& feature, const std::string& property, const std::string& value) {
  return feature.fetchOptionByName(property, value);
}

}  // namespace

std::optional<std::string> featureWithKey(const host::Model& model, const std::string& key) {
  for (const auto& [name, view] : model.features) {
    CoreFeature* feature = model.set->FindFeatureInFeatureList(name);
    std::string found;
    if (feature == nullptr || !feature->getFeatureProperty(std::string(kKey), found)) continue;
    if (found == key) return name;
  }
  return std::nullopt;
}

std::optional<std::string> valueWithKey(const host::Model& model, const std::string& feature,
                                        const std::string& text) {
  CoreFeature* found = model.set->FindFeatureInFeatureList(feature);
  if (found == nullptr || model.features.at(feature).kind() != host::FeatureKind::kMultiSelect) {
    return text;
  }
  CoreOption* option = optionOf(*found, "Name", text);
  if (option == nullptr && !text.empty()) option = optionOf(*found, kKey, text);
  if (option == nullptr) return std::nullopt;
  std::string name;
  option->getOptionProperty(std::string("Name"), name);
  return name;
}

std::optional<std::string> pjlOfTrue(const host::Model& model, const std::string& feature) {
  CoreFeature* found = model.set->FindFeatureInFeatureList(feature);
  CoreOption* option = found != nullptr ? optionOf(*found, "Name", "True") : nullptr;
  if (option == nullptr) return std::nullopt;
  std::string text;
  option->getOptionProperty(std::string("PJLCommand"), text);
  return text;
}

}  // namespace driver_feature::filter
