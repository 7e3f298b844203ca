#include "XMLParser.h"

#include <libxml/tree.h>

#include <memory>
#include <new>

#include "AttributeMap.h"
#include "byte_escapes.h"
#include "xml_reader.h"

namespace {

const char* textOf(const xmlChar* text) {
  return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

xmlNode* nodeOf(void* element) {
  return static_cast<xmlNode*>(element);
}

// `node`, or the next element after it.
xmlNode* elementFrom(xmlNode* node) {
  while (node != nullptr && node->type != XML_ELEMENT_NODE) node = node->next;
  return node;
}

using XmlText = std::unique_ptr<xmlChar, void (*)(void*)>;

// Without memory libxml2 returns null, which also means an empty text. The two
// must not be confused.
XmlText copiedValueOf(const xmlAttr& attribute) {
  XmlText value(xmlNodeListGetString(attribute.doc, attribute.children, 1), xmlFree);
  const xmlNode* text = attribute.children;
  if (!value && text != nullptr && text->content != nullptr) throw std::bad_alloc();
  return value;
}

// A value that is one text, as nearly all are, is read in place.
void readValue(const xmlAttr& attribute, std::string& value) {
  const xmlNode* text = attribute.children;
  if (text != nullptr && text->type == XML_TEXT_NODE && text->next == nullptr) {
    value = textOf(text->content);
  } else {
    value = textOf(copiedValueOf(attribute).get());
  }
}

class LibXml2Parser final : public XMLParser {
 public:
  void tagName(void* element, std::string& tag) override {
    tag = element != nullptr ? textOf(nodeOf(element)->name) : "";
  }

  void reserved1() override {}

  void* firstChild(void* element) override {
    return element != nullptr ? elementFrom(nodeOf(element)->children) : nullptr;
  }

  void* nextSibling(void* element) override {
    return element != nullptr ? elementFrom(nodeOf(element)->next) : nullptr;
  }

  void reserved4() override {}

  int childCount(void* element) override {
    int count = 0;
    for (void* child = firstChild(element); child != nullptr; child = nextSibling(child)) ++count;
    return count;
  }

  void attributes(void* element, AttributeMap& map) override {
    if (element == nullptr) return;
    const bool escaped = driver_feature::hasByteEscapes(*nodeOf(element));
    for (const xmlAttr* attribute = nodeOf(element)->properties; attribute != nullptr;
         attribute = attribute->next) {
      std::string name = textOf(attribute->name);
      if (attribute->ns != nullptr && attribute->ns->prefix != nullptr) {
        name.insert(0, std::string(textOf(attribute->ns->prefix)) + ':');
      }
      std::string& value = map[name];
      readValue(*attribute, value);
      if (escaped) value = driver_feature::unescapeBytes(value);
    }
  }
};

LibXml2Parser parser;

}  // namespace

XMLParser* pParserInstance = &parser;
