#include "xml_plain_text.h"

#include <memory>
#include <new>
#include <string_view>

#include "xml_reader.h"

namespace driver_feature {

namespace {

const char* textOf(const xmlChar* text) {
  return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

using XmlText = std::unique_ptr<xmlChar, void (*)(void*)>;

// Without memory libxml2 returns null, which also means an empty text. The two
// must not be confused.
XmlText valueOf(const xmlAttr& attribute) {
  XmlText value(xmlNodeListGetString(attribute.doc, attribute.children, 1), xmlFree);
  const xmlNode* text = attribute.children;
  if (!value && text != nullptr && text->content != nullptr) throw std::bad_alloc();
  return value;
}

void appendEscaped(std::string_view value, std::string& text) {
  constexpr std::string_view kEscaped = "&<>\"\t\n\r";
  for (const char c : value) {
    if (kEscaped.find(c) == std::string_view::npos) {
      text += c;
    } else {
      text += "&#" + std::to_string(static_cast<int>(c)) + ';';
    }
  }
}

void appendAttribute(const xmlAttr& attribute, std::string& text) {
  text += ' ';
  if (attribute.ns != nullptr && attribute.ns->prefix != nullptr) {
    text += std::string(textOf(attribute.ns->prefix)) + ':';
  }
  text += std::string(textOf(attribute.name)) + "=\"";
  appendEscaped(textOf(valueOf(attribute).get()), text);
  text += '"';
}

// The text before the first child.
void appendContent(const xmlNode& element, std::string& text) {
  for (const xmlNode* child = element.children; child != nullptr; child = child->next) {
    if (child->type == XML_ELEMENT_NODE) return;
    appendEscaped(textOf(child->content), text);
  }
}

// The reader limits how deep elements are nested.
void appendElement(const xmlNode& element, PlainText& plain) {
  plain.lines.push_back(notedLine(element));
  plain.text += '<';
  plain.text += textOf(element.name);
  for (const xmlAttr* attribute = element.properties; attribute != nullptr;
       attribute = attribute->next) {
    appendAttribute(*attribute, plain.text);
  }
  plain.text += '>';
  appendContent(element, plain.text);
  for (const xmlNode* child = element.children; child != nullptr; child = child->next) {
    if (child->type == XML_ELEMENT_NODE) appendElement(*child, plain);
  }
  plain.text += "</";
  plain.text += textOf(element.name);
  plain.text += '>';
}

}  // namespace

PlainText plainTextOf(const xmlDoc& tree) {
  PlainText plain;
  appendElement(*xmlDocGetRootElement(&tree), plain);
  return plain;
}

}  // namespace driver_feature
