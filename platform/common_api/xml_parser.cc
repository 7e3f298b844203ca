#include "XMLParser.h"

#include <string_view>

#include "AttributeMap.h"
#include "byte_escapes.h"
#include "xml_element.h"

namespace {

using driver_feature::Element;

const Element& elementOf(void* handle) {
  return *static_cast<const Element*>(handle);
}

class DocumentParser final : public XMLParser {
 public:
  void tagName(void* element, std::string& tag) override {
    tag = element != nullptr ? driver_feature::nameAt(elementOf(element).tag) : std::string_view();
  }

  void reserved1() override {}

  void* firstChild(void* element) override {
    return element != nullptr ? elementOf(element).firstChild : nullptr;
  }

  void* nextSibling(void* element) override {
    return element != nullptr ? elementOf(element).nextSibling : nullptr;
  }

  void reserved4() override {}

  int childCount(void* element) override {
    int count = 0;
    for (void* child = firstChild(element); child != nullptr; child = nextSibling(child)) ++count;
    return count;
  }

  void attributes(void* element, AttributeMap& map) override {
    if (element == nullptr) return;
    driver_feature::AttributeReader attribute(elementOf(element));
    while (attribute.read()) {
      std::string& value = map[attribute.name()];
      if (elementOf(element).escaped) {
        value = driver_feature::unescapeBytes(attribute.value());
      } else {
        value = attribute.value();
      }
    }
  }
};

DocumentParser parser;

}  // namespace

XMLParser* pParserInstance = &parser;
