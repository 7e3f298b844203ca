#include "host/description/element_places.h"

#include <algorithm>

#include "host/description/xml_element.h"
#include "host/description/text_encoding.h"

namespace driver_feature::host {

ElementPlaces::ElementPlaces(void* root, const std::string& text) {
  if (text.empty()) return;
  tags_ = findStartTags(decodeText(text, declaredEncoding(text)));
  numbers_.reserve(tags_.size());
  number(root);
}

void ElementPlaces::number(void* element) {
  numbers_.emplace(element, numbers_.size());
  forEachChild(element, [this](void* child) { number(child); });
}

const StartTag* ElementPlaces::tagOf(void* element) const {
  const auto found = numbers_.find(element);
  if (found == numbers_.end() || found->second >= tags_.size()) return nullptr;
  return &tags_[found->second];
}

Position ElementPlaces::of(void* element) const {
  const StartTag* tag = tagOf(element);
  return tag != nullptr ? tag->position : Position{XMLDocument::lineOf(element), 0};
}

Position ElementPlaces::of(void* element, const std::string& attribute) const {
  if (const StartTag* tag = tagOf(element)) {
    const auto found = tag->attributes.find(attribute);
    if (found != tag->attributes.end()) return found->second.name;
  }
  return of(element);
}

int ElementPlaces::lineOf(void* element, const XMLContent& content) const {
  const StartTag* tag = tagOf(element);
  if (tag == nullptr || tag->texts.empty()) return content.line;
  const std::string& text = content.text;
  const auto first = static_cast<long>(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  return tag->texts.front().position.line -
         static_cast<int>(std::count(text.begin(), text.begin() + first, '\n'));
}

}  // namespace driver_feature::host
