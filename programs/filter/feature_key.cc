#include "programs/filter/feature_key.h"

#include "model/core_feature.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

namespace driver_feature::filter {

std::optional<std::string> pjlOfTrue(const host::Model& model, const std::string& feature) {
  CoreFeature* found = model.set->FindFeatureInFeatureList(feature);
  CoreOption* option = found != nullptr ? found->fetchOptionByName("Name", "True") : nullptr;
  if (option == nullptr) return std::nullopt;
  std::string text;
  option->getOptionProperty(std::string("PJLCommand"), text);
  return text;
}

}  // namespace driver_feature::filter
