#include "model/own_names.h"

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_static_group.h"
#include "model/own_objects.h"

namespace driver_feature {

namespace {

constinit unsigned long changes = 0;

}  // namespace

void noteNameChange() {
  ++changes;
}

unsigned long nameChanges() {
  return changes;
}

std::optional<std::string_view> nameOfOwn(const CoreFeature* object) {
  if (object == nullptr) return std::nullopt;
  if (const auto* feature = asOwn<DriverFeature>(*object)) return feature->text(Property::kName);
  if (const auto* group = asOwn<DriverFeatureStaticGroup>(*object)) {
    return group->text(Property::kName);
  }
  if (const auto* group = asOwn<DriverFeatureDynamicGroup>(*object)) {
    return group->text(Property::kName);
  }
  return std::nullopt;
}

}  // namespace driver_feature
