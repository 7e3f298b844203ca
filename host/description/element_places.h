// The places of a tree's elements and their attributes.
#ifndef HOST_DESCRIPTION_ELEMENT_PLACES_H_
#define HOST_DESCRIPTION_ELEMENT_PLACES_H_

#include <string>
#include <unordered_map>
#include <vector>

#include "XMLDocument.h"

#include "host/base/position.h"
#include "host/description/start_tags.h"

namespace driver_feature::host {

class ElementPlaces {
 public:
  // `text` is what the tree of `root` was made of. Without it, places are lines.
  ElementPlaces(void* root, const std::string& text);

  Position of(void* element) const;

  // Of the attribute's name; of the element without such an attribute.
  Position of(void* element, const std::string& attribute) const;

  // The line on which the element's content begins.
  int lineOf(void* element, const XMLContent& content) const;

 private:
  void number(void* element);
  const StartTag* tagOf(void* element) const;

  std::vector<StartTag> tags_;
  std::unordered_map<void*, std::size_t> numbers_;  // In the order of the start tags.
};

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_ELEMENT_PLACES_H_
