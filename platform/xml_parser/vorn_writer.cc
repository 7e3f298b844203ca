#include "VORNWriter.h"

#include <libxml/encoding.h>
#include <libxml/tree.h>

#include <cstdint>
#include <optional>

#include "Log.h"

namespace {

const xmlChar* asXml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }
const xmlChar* asXml(const std::string& text) { return asXml(text.c_str()); }

void logRefusal(const std::string& what) {
  UnicodeString line;
  line = "VORNWriter - " + what;
  LogStringMessage(1, "XMLParser", line);
}

bool isXmlCharacter(std::uint32_t character) {
  if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
  return character <= 0xD7FF || (character >= 0xE000 && character <= 0xFFFD) ||
         character >= 0x10000;
}

// The character at `position` of a valid UTF-8 text, and the position after it.
std::uint32_t nextCharacter(const std::string& text, std::size_t& position) {
  const auto lead = static_cast<unsigned char>(text[position++]);
  const int more = lead < 0x80 ? 0 : (lead < 0xE0 ? 1 : (lead < 0xF0 ? 2 : 3));
  std::uint32_t character = more == 0 ? lead : lead & (0x3FU >> more);
  for (int i = 0; i < more; ++i) {
    character = character << 6 | (static_cast<unsigned char>(text[position++]) & 0x3FU);
  }
  return character;
}

std::string fromLatin1(const std::string& text) {
  std::string converted;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      converted += c;
    } else {
      converted += static_cast<char>(0xC0U | (byte >> 6));
      converted += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return converted;
}

// The text as an XML document holds it; nothing, after a log line, when it
// holds a character that XML cannot hold. `role` names the text in that line.
std::optional<std::string> toXmlText(const char* role, const std::string& text) {
  const bool hasNul = text.find('\0') != std::string::npos;
  const std::string utf8 = hasNul || xmlCheckUTF8(asXml(text)) != 0 ? text : fromLatin1(text);
  for (std::size_t position = 0; !hasNul && position < utf8.size();) {
    if (isXmlCharacter(nextCharacter(utf8, position))) continue;
    logRefusal(std::string("The ") + role + " holds a character that XML cannot hold.");
    return std::nullopt;
  }
  if (!hasNul) return utf8;
  logRefusal(std::string("The ") + role + " holds a character that XML cannot hold.");
  return std::nullopt;
}

void setArgument(xmlNode* root, const char* name, const char* text) {
  const auto value = toXmlText(name, text != nullptr ? text : "");
  xmlNewProp(root, asXml(name), asXml(value.value_or("")));
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

struct NamedText {
  const char* attribute;
  const std::string* text;
};

template <std::size_t kCount>
xmlNode* addElement(xmlNode* parent, const char* tag, const NamedText (&texts)[kCount]) {
  if (parent == nullptr) return nullptr;
  std::optional<std::string> values[kCount];
  for (std::size_t i = 0; i < kCount; ++i) {
    values[i] = toXmlText(texts[i].attribute, *texts[i].text);
    if (!values[i]) return nullptr;
  }
  xmlNode* node = xmlNewChild(parent, nullptr, asXml(tag), nullptr);
  for (std::size_t i = 0; node != nullptr && i < kCount; ++i) {
    xmlNewProp(node, asXml(texts[i].attribute), asXml(*values[i]));
  }
  return node;
}

xmlNode* addCommand(xmlNode* parent, const std::string& name, const std::string& syntax,
                    const std::string& value) {
  return addElement(parent, "Command", {{"name", &name}, {"syntax", &syntax}, {"value", &value}});
}

xmlNode* addGroup(xmlNode* parent, const std::string& name, const std::string& syntax) {
  return addElement(parent, "Group", {{"name", &name}, {"syntax", &syntax}});
}

}  // namespace

VORNWriter::VORNWriter() = default;

void VORNWriter::initializeJobTicketDOM(const char* argument1, const char* argument2) {
  xmlFreeDoc(document_);
  document_ = xmlNewDoc(asXml("1.0"));
  xmlNode* root = xmlNewNode(nullptr, asXml("JobTicket"));
  xmlDocSetRootElement(document_, root);
  setArgument(root, "argument1", argument1);
  setArgument(root, "argument2", argument2);
  xmlNewChild(root, nullptr, asXml("JobTicketAttributes"), nullptr);
  xmlNewChild(root, nullptr, asXml("OutputAttributes"), nullptr);
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
  return addGroup(parent, name, syntax);
}

_xmlNode* VORNWriter::createChildCommandNode(_xmlNode* parent, std::string& name,
                                             std::string& syntax, std::string& value) {
  return addCommand(parent, name, syntax, value);
}

void VORNWriter::serializeTicket(std::string& output) {
  if (document_ == nullptr) initializeJobTicketDOM(nullptr, nullptr);
  xmlChar* text = nullptr;
  int size = 0;
  xmlDocDumpFormatMemoryEnc(document_, &text, &size, "UTF-8", 1);
  output.assign(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
  xmlFree(text);
  xmlFreeDoc(document_);
  document_ = nullptr;
}
