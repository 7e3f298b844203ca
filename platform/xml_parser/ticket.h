// A job ticket while it is made: a tree of elements, each with the text of its
// start tag.
#ifndef PLATFORM_XML_PARSER_TICKET_H_
#define PLATFORM_XML_PARSER_TICKET_H_

#include <deque>
#include <string>

namespace driver_feature {

class Ticket {
 public:
  struct Element {
    Ticket& ticket;
    Element* parent;  // Null for the root.
    const char* tag;
    std::string attributes;  // As they are written, each with a blank before it.
    Element* firstChild = nullptr;
    Element* lastChild = nullptr;
    Element* nextSibling = nullptr;
  };

  // With two empty sections. `arguments` are the root's attributes.
  explicit Ticket(std::string arguments);
  Ticket(const Ticket&) = delete;
  Ticket& operator=(const Ticket&) = delete;

  // The first section takes job-ticket attributes, the second output attributes.
  Element& section(bool jobTicketAttribute) { return elements_[jobTicketAttribute ? 1 : 2]; }

  // Adds an element after the children of `parent`. It stays where it is as long
  // as the ticket lives.
  Element& add(Element* parent, const char* tag, std::string attributes);

  // Replaces `output` by the document.
  void write(std::string& output) const;

 private:
  std::deque<Element> elements_;
};

}  // namespace driver_feature

#endif  // PLATFORM_XML_PARSER_TICKET_H_
