#include "host/settings/command_line_key.h"

#include "model/core_feature.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

namespace driver_feature::host {

namespace {

constexpr const char* kKey = "CLOKey";

// The name of the first option whose text property holds the value. The library
// would log a look-up that finds none.
std::optional<std::string> optionWith(CoreFeature& feature, const std::string& property,
                                      const std::string& value) {
  for (int i = 0; i < feature.fetchNumberOfOptions(); ++i) {
    CoreOption* option = feature.fetchOptionByIndex(i);
    std::string text;
    std::string name;
    if (option == nullptr || !option->getOptionProperty(property, text) || text != value) continue;
    if (option->getOptionProperty(std::string("Name"), name)) return name;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> featureWithKey(const Model& model, const std::string& key) {
  for (const auto& [name, view] : model.features) {
    CoreFeature* feature = model.set->FindFeatureInFeatureList(name);
    std::string found;
    if (feature == nullptr || !feature->getFeatureProperty(std::string(kKey), found)) continue;
    if (found == key) return name;
  }
  return std::nullopt;
}

std::optional<std::string> valueWithKey(const Model& model, const std::string& feature,
                                        const std::string& text) {
  CoreFeature* found = model.set->FindFeatureInFeatureList(feature);
  if (found == nullptr || model.features.at(feature).kind() != FeatureKind::kMultiSelect) {
    return text;
  }
  const auto named = optionWith(*found, "Name", text);
  return named || text.empty() ? named : optionWith(*found, kKey, text);
}

Setting withoutKeys(const Model& model, const Setting& setting) {
  Setting named = setting;
  if (!model.features.contains(setting.name) && !setting.name.empty()) {
    named.name = featureWithKey(model, setting.name).value_or(setting.name);
  }
  if (!model.features.contains(named.name)) return named;
  named.value = valueWithKey(model, named.name, setting.value).value_or(setting.value);
  return named;
}

}  // namespace driver_feature::host
