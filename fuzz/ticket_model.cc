#include "fuzz/ticket_model.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <cstdio>
#include <cstdlib>

namespace driver_feature::fuzz {

namespace {

[[noreturn]] void fail(const std::string& what) {
  std::fprintf(stderr, "ticket: %s\n", what.c_str());
  std::abort();
}

bool isBetween(unsigned char byte, unsigned lowest, unsigned highest) {
  return byte >= lowest && byte <= highest;
}

// The number of bytes of the character in front, by the table of well-formed
// byte sequences, which leaves out surrogates. 0 when there is none.
std::size_t characterLength(const unsigned char* bytes, std::size_t size) {
  struct Row {
    unsigned firstLow, firstHigh, secondLow, secondHigh;
    std::size_t length;
  };
  constexpr Row kRows[] = {
      {0x00, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
      {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
      {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
  };
  for (const Row& row : kRows) {
    if (!isBetween(bytes[0], row.firstLow, row.firstHigh)) continue;
    if (size < row.length) return 0;
    if (row.length > 1 && !isBetween(bytes[1], row.secondLow, row.secondHigh)) return 0;
    for (std::size_t i = 2; i < row.length; ++i) {
      if (!isBetween(bytes[i], 0x80, 0xBF)) return 0;
    }
    return row.length;
  }
  return 0;
}

const unsigned char* bytesOf(const std::string& text) {
  return reinterpret_cast<const unsigned char*>(text.data());
}

bool isUtf8(const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = characterLength(bytesOf(text) + at, text.size() - at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

std::string latin1ToUtf8(const std::string& text) {
  std::string converted;
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (code >= 0x80) converted += code < 0xC0 ? '\xC2' : '\xC3';
    converted += code < 0x80 ? character : static_cast<char>(0x80 | (code & 0x3F));
  }
  return converted;
}

// XML 1.0 has no other control characters and neither of EF BF BE and EF BF BF.
bool isCarried(const std::string& utf8) {
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    const auto code = static_cast<unsigned char>(utf8[at]);
    if (code < 0x20 && code != '\t' && code != '\n' && code != '\r') return false;
    const std::string three = utf8.substr(at, 3);
    if (three == "\xEF\xBF\xBE" || three == "\xEF\xBF\xBF") return false;
  }
  return true;
}

std::string textOf(const xmlChar* text) {
  return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

// The elements and nothing else: between them is only indentation.
std::vector<const xmlNode*> childElements(const xmlNode& element) {
  std::vector<const xmlNode*> children;
  for (const xmlNode* child = element.children; child != nullptr; child = child->next) {
    if (child->type == XML_ELEMENT_NODE) {
      children.push_back(child);
    } else if (textOf(child->content).find_first_not_of(" \n") != std::string::npos) {
      fail("there is text between the elements");
    }
  }
  return children;
}

void requireAttributes(const xmlNode& element, const TicketElement& expected) {
  const xmlAttr* attribute = element.properties;
  for (const auto& [name, value] : expected.attributes) {
    if (attribute == nullptr || textOf(attribute->name) != name) fail("no attribute " + name);
    xmlChar* const content = xmlNodeGetContent(reinterpret_cast<const xmlNode*>(attribute));
    const std::string text = textOf(content);
    xmlFree(content);
    if (text != value) fail(name + " is \"" + text + "\", expected \"" + value + "\"");
    attribute = attribute->next;
  }
  if (attribute != nullptr) fail("there is an attribute too many");
}

void requireElement(const xmlNode& element, const TicketElement& expected) {
  if (textOf(element.name) != expected.tag) fail("no element " + expected.tag);
  requireAttributes(element, expected);
  const std::vector<const xmlNode*> children = childElements(element);
  if (children.size() != expected.children.size()) fail("another number of elements");
  for (std::size_t i = 0; i < children.size(); ++i) {
    requireElement(*children[i], *expected.children[i]);
  }
}

}  // namespace

std::optional<std::string> carriedText(const std::string& text) {
  const std::string utf8 = isUtf8(text) ? text : latin1ToUtf8(text);
  if (!isCarried(utf8)) return std::nullopt;
  return utf8;
}

std::unique_ptr<TicketElement> makeTicket(const std::string& argument1,
                                          const std::string& argument2) {
  auto root = std::make_unique<TicketElement>();
  root->tag = "JobTicket";
  root->attributes = {{"argument1", carriedText(argument1).value_or("")},
                      {"argument2", carriedText(argument2).value_or("")}};
  for (const char* section : {"JobTicketAttributes", "OutputAttributes"}) {
    root->children.push_back(std::make_unique<TicketElement>());
    root->children.back()->tag = section;
  }
  return root;
}

TicketElement* addNode(TicketElement& parent, const std::string& name, const std::string& syntax,
                       const std::string* value) {
  const auto carriedName = carriedText(name);
  const auto carriedSyntax = carriedText(syntax);
  const auto carriedValue = carriedText(value != nullptr ? *value : "");
  if (!carriedName || !carriedSyntax || !carriedValue) return nullptr;
  auto node = std::make_unique<TicketElement>();
  node->tag = value != nullptr ? "Command" : "Group";
  node->attributes = {{"name", *carriedName}, {"syntax", *carriedSyntax}};
  if (value != nullptr) node->attributes.emplace_back("value", *carriedValue);
  parent.children.push_back(std::move(node));
  return parent.children.back().get();
}

void requireTicket(const std::string& document, const TicketElement& expected) {
  xmlDoc* const parsed =
      xmlReadMemory(document.data(), static_cast<int>(document.size()), nullptr, nullptr,
                    XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE);
  if (parsed == nullptr) fail("it is not XML:\n" + document);
  requireElement(*xmlDocGetRootElement(parsed), expected);
  xmlFreeDoc(parsed);
}

}  // namespace driver_feature::fuzz
