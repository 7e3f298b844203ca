#include "model/option_list.h"

#include <algorithm>
#include <string_view>

#include "model/driver_feature_option.h"
#include "model/own_objects.h"

namespace driver_feature {

int OptionList::findPosition(const std::string& attribute, const std::string& value) {
  if (const auto position = findAmongOwn(attribute, value)) return *position;
  std::string text;
  for (int i = 0; i < size(); ++i) {
    at(i)->getOptionProperty(attribute, text);
    if (text == value) return i;
  }
  return -1;
}

CoreOption* OptionList::findReadable(const std::string& attribute, const std::string& value) {
  if (const auto position = findAmongOwn(attribute, value)) return at(*position);
  std::string text;
  for (int i = 0; i < size(); ++i) {
    CoreOption* option = at(i);
    if (option->getOptionProperty(attribute, text) && text == value) return option;
  }
  return nullptr;
}

// The position of the first option whose text `attribute` is `value`, or -1.
// Nothing when the options have to be asked: one before it is not of the
// library's class, or they have no such text.
std::optional<int> OptionList::findAmongOwn(const std::string& attribute,
                                            const std::string& value) {
  if (options_.empty()) return -1;
  const auto property = DriverFeatureOption::findTextProperty(attribute);
  if (!property) return std::nullopt;
  const auto textAt = [&](int position) -> std::optional<std::string_view> {
    const auto* own = asOwn<DriverFeatureOption>(*at(position));
    return own != nullptr ? std::optional(own->text(*property)) : std::nullopt;
  };
  if (property == OptionProperty::kName) return names_.find(value, size(), textAt);
  for (int i = 0; i < size(); ++i) {
    const auto text = textAt(i);
    if (!text) return std::nullopt;
    if (*text == value) return i;
  }
  return -1;
}

std::optional<int> OptionList::findNextAvailable(int start) const {
  const int count = size();
  const bool isFlagKnown = findOptionProperty("Sensitivity") == OptionProperty::kSensitivity;
  // From the position after the last option, every option is tried; from
  // further on, only the second pass does anything.
  const int first = start >= count ? (start == count ? 0 : count) : std::max(start + 1, 0);
  for (int i = first; i < count; ++i) {
    if (isAvailable(i, isFlagKnown)) return i;
  }
  for (int i = 0; i < std::min(start, count); ++i) {
    if (isAvailable(i, isFlagKnown)) return i;
  }
  return std::nullopt;
}

bool OptionList::isAvailable(int position, bool isFlagKnown) const {
  const auto* own = isFlagKnown ? asOwn<DriverFeatureOption>(*at(position)) : nullptr;
  if (own != nullptr) return own->isSensitive();
  bool sensitive = false;
  return at(position)->getOptionProperty(std::string("Sensitivity"), &sensitive) && sensitive;
}

}  // namespace driver_feature
