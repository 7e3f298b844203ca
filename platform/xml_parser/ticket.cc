#include "ticket.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace driver_feature {

namespace {

void indent(std::size_t depth, std::string& output) {
  constexpr std::size_t kDeepest = 30;
  output.append(2 * std::min(depth, kDeepest), ' ');
}

}  // namespace

Ticket::Ticket(std::string arguments) {
  Element& root = add(nullptr, "JobTicket", std::move(arguments));
  add(&root, "JobTicketAttributes", {});
  add(&root, "OutputAttributes", {});
}

Ticket::Element& Ticket::add(Element* parent, const char* tag, std::string attributes) {
  Element& added = elements_.emplace_back(Element{*this, parent, tag, std::move(attributes)});
  if (parent == nullptr) return added;
  (parent->lastChild != nullptr ? parent->lastChild->nextSibling : parent->firstChild) = &added;
  parent->lastChild = &added;
  return added;
}

// Without recursion: how deep groups are nested is up to the description.
void Ticket::write(std::string& output) const {
  output = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  std::size_t depth = 0;
  const Element* element = &elements_.front();
  while (element != nullptr) {
    indent(depth, output);
    output.append(1, '<').append(element->tag).append(element->attributes);
    if (element->firstChild != nullptr) {
      output += ">\n";
      element = element->firstChild;
      ++depth;
      continue;
    }
    output += "/>\n";
    while (element->nextSibling == nullptr && element->parent != nullptr) {
      element = element->parent;
      indent(--depth, output);
      output.append("</").append(element->tag).append(">\n");
    }
    element = element->nextSibling;
  }
}

}  // namespace driver_feature
