#include "programs/filter/feature_key.h"

#include "model/core_feature.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

namespace driver_feature::filter {

namespace {

std::string propertyOf(CoreFeature& feature, const std::string& name) {
  std::string text;
  return feature.getFeatureProperty(name, text) ? text : "";
}

}  // namespace

std::optional<std::string> pjlOfTrue(const host::Model& model, const std::string& feature) {
  CoreFeature* found = model.set->FindFeatureInFeatureList(feature);
  CoreOption* option = found != nullptr ? found->fetchOptionByName("Name", "True") : nullptr;
  if (option == nullptr) return std::nullopt;
  std::string text;
  option->getOptionProperty(std::string("PJLCommand"), text);
  return text;
}

std::optional<host::Setting> settingWithoutCommands(const host::Model& model,
                                                    const host::Setting& setting) {
  CoreFeature* feature = model.set->FindFeatureInFeatureList(setting.name);
  if (feature == nullptr) return std::nullopt;
  for (const char* name :
       {"PSCommand", "PJLCommand", "AddPSCallbackRoutine", "AddPJLCallbackRoutine"}) {
    if (!propertyOf(*feature, name).empty()) return std::nullopt;
  }
  const std::string key = propertyOf(*feature, "CLOKey");
  if (key.empty()) return std::nullopt;
  CoreOption* option = feature->fetchOptionByName("Name", setting.value);
  std::string value;
  if (option != nullptr) option->getOptionProperty(std::string("CLOKey"), value);
  return host::Setting{key, value.empty() ? setting.value : value};
}

}  // namespace driver_feature::filter
