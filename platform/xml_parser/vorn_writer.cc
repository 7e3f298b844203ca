#include "VORNWriter.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "Log.h"
#include "ticket.h"
#include "xml_text.h"

namespace {

using driver_feature::Ticket;

// Hosts know tickets and their elements by the names of libxml2's types, and
// only ever hand them back.
Ticket* asTicket(_xmlDoc* document) {
  return reinterpret_cast<Ticket*>(document);
}
_xmlDoc* asDocument(Ticket* ticket) {
  return reinterpret_cast<_xmlDoc*>(ticket);
}
Ticket::Element* asElement(_xmlNode* node) {
  return reinterpret_cast<Ticket::Element*>(node);
}
_xmlNode* asNode(Ticket::Element* element) {
  return reinterpret_cast<_xmlNode*>(element);
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

// Appends the attribute as it is written. False, after a log line, when the text
// holds a character that XML cannot hold.
bool appendAttribute(const char* name, const std::string& text, std::string& attributes) {
  attributes.append(1, ' ').append(name).append("=\"");
  const auto forbidden = driver_feature::appendValue(text, attributes);
  attributes += '"';
  if (!forbidden) return true;
  logRefusal(std::string("The ") + name + " holds the character " + characterName(*forbidden) +
             ", which XML cannot hold.");
  return false;
}

// The section that takes a node; null, after a log line, without a ticket.
Ticket::Element* sectionOf(_xmlDoc* document, bool jobTicketAttribute) {
  if (document != nullptr) return &asTicket(document)->section(jobTicketAttribute);
  logRefusal("A node is made before the ticket is started.");
  return nullptr;
}

// A parent given by a caller; null is logged.
Ticket::Element* checkedParent(_xmlNode* parent) {
  if (parent == nullptr) logRefusal("A node is made without a parent.");
  return asElement(parent);
}

struct NamedText {
  const char* name;
  const std::string* text;
};

// Null for a null parent, for a text that is refused, and without memory; the
// parent is then as it was.
template <std::size_t kCount>
_xmlNode* addElement(Ticket::Element* parent, const char* tag, const NamedText (&texts)[kCount]) {
  if (parent == nullptr) return nullptr;
  try {
    constexpr std::size_t kUsual = 96;
    std::string attributes;
    attributes.reserve(kUsual);
    for (const NamedText& each : texts) {
      if (!appendAttribute(each.name, *each.text, attributes)) return nullptr;
    }
    return asNode(&parent->ticket.add(parent, tag, std::move(attributes)));
  } catch (const std::bad_alloc&) {
    logRefusal("Out of memory.");
    return nullptr;
  }
}

_xmlNode* addCommand(Ticket::Element* parent, const std::string& name, const std::string& syntax,
                     const std::string& value) {
  return addElement(parent, "Command", {{"name", &name}, {"syntax", &syntax}, {"value", &value}});
}

_xmlNode* addGroup(Ticket::Element* parent, const std::string& name, const std::string& syntax) {
  return addElement(parent, "Group", {{"name", &name}, {"syntax", &syntax}});
}

// An argument that XML cannot hold is logged and stays empty.
void appendArgument(const char* name, const char* text, std::string& attributes) {
  appendAttribute(name, text != nullptr ? text : "", attributes);
}

// A ticket without commands; null, after a log line, without memory.
Ticket* makeTicket(const char* argument1, const char* argument2) try {
  std::string arguments;
  appendArgument("argument1", argument1, arguments);
  appendArgument("argument2", argument2, arguments);
  return new Ticket(std::move(arguments));
} catch (const std::bad_alloc&) {
  logRefusal("Out of memory.");
  return nullptr;
}

}  // namespace

VORNWriter::VORNWriter() = default;

void VORNWriter::initializeJobTicketDOM(const char* argument1, const char* argument2) {
  delete asTicket(std::exchange(document_, nullptr));
  document_ = asDocument(makeTicket(argument1, argument2));
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
  const std::unique_ptr<Ticket> ticket(asTicket(std::exchange(document_, nullptr)));
  try {
    ticket->write(output);
  } catch (const std::bad_alloc&) {
    output.clear();
    logRefusal("Out of memory.");
  }
}
