#include "XMLParser.h"

#include <string_view>
#include <utility>

#include "AttributeMap.h"
#include "byte_escapes.h"
#include "few_entries.h"
#include "xml_element.h"

namespace driver_feature {

// Reads the attributes of elements into maps.
class AttributeFiller {
 public:
  static void fill(const Element& element, AttributeMap& map) {
    if (map.size() == 0 && fillRecalled(element, map)) return;
    for (AttributeReader attribute(element); attribute.read();) {
      setValue(element, attribute, map[std::string(attribute.name())]);
    }
  }

 private:
  // Most elements have attributes of the same names as the one before, which take
  // no new memory then. False if these names are others.
  static bool fillRecalled(const Element& element, AttributeMap& map) {
    AttributeMap recalled;
    recalled.recallNames();
    long count = 0;
    for (AttributeReader attribute(element); attribute.read(); ++count) {
      const auto entry = findAmongFew(recalled.entries_, attribute.name());
      if (entry == recalled.entries_.end()) return false;
      setValue(element, attribute, entry->second);
    }
    if (count != recalled.size()) return false;
    map = std::move(recalled);
    return true;
  }

  static void setValue(const Element& element, const AttributeReader& attribute,
                       std::string& value) {
    if (element.isEscaped()) {
      value = unescapeBytes(attribute.value());
    } else {
      value = attribute.value();
    }
  }
};

}  // namespace driver_feature

namespace {

using driver_feature::Element;

Element& elementOf(void* handle) {
  return *static_cast<Element*>(handle);
}

class DocumentParser final : public XMLParser {
 public:
  void tagName(void* element, std::string& tag) override {
    tag =
        element != nullptr ? driver_feature::nameAt(elementOf(element).tag()) : std::string_view();
  }

  void reserved1() override {}

  void* firstChild(void* element) override {
    return element != nullptr ? elementOf(element).firstChild() : nullptr;
  }

  void* nextSibling(void* element) override {
    return element != nullptr ? elementOf(element).nextSibling() : nullptr;
  }

  void reserved4() override {}

  int childCount(void* element) override {
    int count = 0;
    for (void* child = firstChild(element); child != nullptr; child = nextSibling(child)) ++count;
    return count;
  }

  void attributes(void* element, AttributeMap& map) override {
    if (element != nullptr) driver_feature::AttributeFiller::fill(elementOf(element), map);
  }
};

DocumentParser parser;

}  // namespace

XMLParser* pParserInstance = &parser;
