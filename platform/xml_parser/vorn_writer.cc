#include "VORNWriter.h"

#include <libxml/tree.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

#include "Log.h"
#include "xml_text.h"

namespace {

const xmlChar* asXml(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);
}
const xmlChar* asXml(const std::string& text) {
  return asXml(text.c_str());
}

void logRefusal(const std::string& what) {
  UnicodeString line;
  line = "VORNWriter - " + what;
  LogStringMessage(1, "XMLParser", line);
}

// "U+0007" and the like.
std::string characterName(std::uint32_t character) {
  char name[16];
  std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(character));
  return name;
}

// The text as the document holds it; nothing, after a log line, when it holds
// a character that XML cannot hold. `role` names the text in that line.
std::optional<std::string> toAttributeText(const char* role, const std::string& text) {
  std::string utf8 = driver_feature::toUtf8(text);
  const auto forbidden = driver_feature::findForbiddenCharacter(utf8);
  if (!forbidden) return utf8;
  logRefusal(std::string("The ") + role + " holds the character " + characterName(*forbidden) +
             ", which XML cannot hold.");
  return std::nullopt;
}

// False without memory: libxml2 then makes an attribute that lacks its name or
// its text.
bool setAttribute(xmlNode* node, const char* name, const std::string& value) {
  const xmlAttr* attribute = xmlNewProp(node, asXml(name), asXml(value));
  if (attribute == nullptr || attribute->name == nullptr) return false;
  const xmlNode* text = attribute->children;
  return value.empty() || (text != nullptr && text->content != nullptr);
}

// False without memory: libxml2 then makes no element, or one without a name.
bool isNamed(const xmlNode* element) {
  return element != nullptr && element->name != nullptr;
}

// An argument that XML cannot hold is logged and stays empty.
bool setArgument(xmlNode* root, const char* name, const char* text) {
  const auto value = toAttributeText(name, text != nullptr ? text : "");
  return setAttribute(root, name, value.value_or(""));
}

// The section of job-ticket attributes is the root's first element, that of
// output attributes the second.
xmlNode* sectionOf(xmlDoc* document, bool jobTicketAttribute) {
  if (document == nullptr) {
    logRefusal("A node is made before the ticket is started.");
    return nullptr;
  }
  xmlNode* first = xmlDocGetRootElement(document)->children;
  return jobTicketAttribute ? first : first->next;
}

// A parent given by a caller; null is logged.
xmlNode* checkedParent(xmlNode* parent) {
  if (parent == nullptr) logRefusal("A node is made without a parent.");
  return parent;
}

struct NamedText {
  const char* attribute;
  const std::string* text;
};

// Null for a null parent, for a text that is refused, and without memory; the
// parent is then as it was.
template <std::size_t kCount>
xmlNode* addElement(xmlNode* parent, const char* tag, const NamedText (&texts)[kCount]) {
  if (parent == nullptr) return nullptr;
  std::optional<std::string> values[kCount];
  for (std::size_t i = 0; i < kCount; ++i) {
    values[i] = toAttributeText(texts[i].attribute, *texts[i].text);
    if (!values[i]) return nullptr;
  }
  xmlNode* node = xmlNewChild(parent, nullptr, asXml(tag), nullptr);
  bool isWhole = isNamed(node);
  for (std::size_t i = 0; isWhole && i < kCount; ++i) {
    isWhole = setAttribute(node, texts[i].attribute, *values[i]);
  }
  if (isWhole) return node;
  logRefusal("Out of memory.");
  xmlUnlinkNode(node);
  xmlFreeNode(node);
  return nullptr;
}

xmlNode* addCommand(xmlNode* parent, const std::string& name, const std::string& syntax,
                    const std::string& value) {
  return addElement(parent, "Command", {{"name", &name}, {"syntax", &syntax}, {"value", &value}});
}

xmlNode* addGroup(xmlNode* parent, const std::string& name, const std::string& syntax) {
  return addElement(parent, "Group", {{"name", &name}, {"syntax", &syntax}});
}

// Puts the root, its arguments and the sections into the document. False
// without memory.
bool addFrame(xmlDoc* document, const char* argument1, const char* argument2) {
  xmlNode* root = xmlNewDocNode(document, nullptr, asXml("JobTicket"), nullptr);
  if (root == nullptr) return false;
  xmlDocSetRootElement(document, root);
  return isNamed(root) && setArgument(root, "argument1", argument1) &&
         setArgument(root, "argument2", argument2) &&
         isNamed(xmlNewChild(root, nullptr, asXml("JobTicketAttributes"), nullptr)) &&
         isNamed(xmlNewChild(root, nullptr, asXml("OutputAttributes"), nullptr));
}

// A ticket without commands; null, after a log line, without memory.
xmlDoc* makeDocument(const char* argument1, const char* argument2) {
  xmlDoc* document = xmlNewDoc(asXml("1.0"));
  if (document != nullptr && addFrame(document, argument1, argument2)) return document;
  xmlFreeDoc(document);
  logRefusal("Out of memory.");
  return nullptr;
}

}  // namespace

VORNWriter::VORNWriter() = default;

void VORNWriter::initializeJobTicketDOM(const char* argument1, const char* argument2) {
  xmlFreeDoc(document_);
  document_ = makeDocument(argument1, argument2);
}

_xmlNode* VORNWriter::createCommandNode(std::string& name, std::string& syntax, std::string& value,
                                        bool jobTicketAttribute) {
  return addCommand(sectionOf(document_, jobTicketAttribute), name, syntax, value);
}

_xmlNode* VORNWriter::createGroupCommandNode(std::string& name, std::string& syntax,
                                             bool jobTicketAttribute) {
  return addGroup(sectionOf(document_, jobTicketAttribute), name, syntax);
}

_xmlNode* VORNWriter::createChildGroupCommandNode(_xmlNode* parent, std::string& name,
                                                  std::string& syntax) {
  return addGroup(checkedParent(parent), name, syntax);
}

_xmlNode* VORNWriter::createChildCommandNode(_xmlNode* parent, std::string& name,
                                             std::string& syntax, std::string& value) {
  return addCommand(checkedParent(parent), name, syntax, value);
}

void VORNWriter::serializeTicket(std::string& output) {
  output.clear();
  if (document_ == nullptr) initializeJobTicketDOM(nullptr, nullptr);
  if (document_ == nullptr) return;
  // Given back also when the output or the log has no memory.
  const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(std::exchange(document_, nullptr),
                                                            xmlFreeDoc);
  xmlChar* bytes = nullptr;
  int size = 0;
  xmlDocDumpFormatMemoryEnc(document.get(), &bytes, &size, "UTF-8", 1);
  const std::unique_ptr<xmlChar, void (*)(void*)> text(bytes, xmlFree);
  if (text) {
    output.assign(reinterpret_cast<const char*>(text.get()), static_cast<std::size_t>(size));
  } else {
    logRefusal("Out of memory.");
  }
}
