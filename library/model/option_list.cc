#include "model/option_list.h"

#include <algorithm>

namespace driver_feature {

int OptionList::findPosition(const std::string& attribute, const std::string& value) const {
  std::string text;
  for (int i = 0; i < size(); ++i) {
    at(i)->getOptionProperty(attribute, text);
    if (text == value) return i;
  }
  return -1;
}

CoreOption* OptionList::findReadable(const std::string& attribute, const std::string& value) const {
  std::string text;
  for (int i = 0; i < size(); ++i) {
    CoreOption* option = at(i);
    if (option->getOptionProperty(attribute, text) && text == value) return option;
  }
  return nullptr;
}

std::optional<int> OptionList::findNextAvailable(int start) const {
  const int count = size();
  // From the position after the last option, every option is tried; from
  // further on, only the second pass does anything.
  const int first = start >= count ? (start == count ? 0 : count) : std::max(start + 1, 0);
  for (int i = first; i < count; ++i) {
    if (isAvailable(i)) return i;
  }
  for (int i = 0; i < std::min(start, count); ++i) {
    if (isAvailable(i)) return i;
  }
  return std::nullopt;
}

bool OptionList::isAvailable(int position) const {
  bool sensitive = false;
  return at(position)->getOptionProperty(std::string("Sensitivity"), &sensitive) && sensitive;
}

}  // namespace driver_feature
