#include "model/dynamic_record.h"

#include <algorithm>
#include <new>
#include <utility>

#include "model/driver_feature_option.h"
#include "model/own_names.h"

namespace driver_feature {

namespace {

// What delete would do: the classes have no virtual destructors, and the objects
// were made as these very classes.
template <class Object>
void destroy(Object* object) {
  object->Object::~Object();
  ::operator delete(object);
}

}  // namespace

void FreeCopy::operator()(DriverFeature* copy) const {
  const int options = copy->getFeatureType() == kMultiSelect ? copy->fetchNumberOfOptions() : 0;
  for (int i = 0; i < options; ++i) {
    destroy(static_cast<DriverFeatureOption*>(copy->fetchOptionByIndex(i)));
  }
  destroy(copy);
}

bool DynamicRecordMember::read(std::string& text) const {
  if (copy != nullptr) return copy->getFeatureProperty(std::string("ValueString"), text);
  text = value;
  return true;
}

void DynamicRecord::add(FeatureCopy copy) {
  DynamicRecordMember member{std::string(copy->text(Property::kName)), {}, nullptr};
  if (auto value = copy->findQuietValueString()) {
    member.value = std::move(*value);
  } else {
    member.copy = std::move(copy);
  }
  members_.push_back(std::move(member));
}

const DynamicRecordMember* DynamicRecord::find(const std::string& name) {
  if (members_.size() >= kLongList) {
    const auto nameAt = [this](std::size_t i) -> std::string_view { return members_[i].name; };
    while (names_.count() < members_.size()) names_.add(nameAt);
    const int position = names_.find(name, nameAt);
    return position >= 0 ? &members_[static_cast<std::size_t>(position)] : nullptr;
  }
  const auto found = std::find_if(members_.begin(), members_.end(),
                                  [&name](const auto& each) { return each.name == name; });
  return found != members_.end() ? &*found : nullptr;
}

}  // namespace driver_feature
