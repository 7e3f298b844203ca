// The expected contents of a ticket, independent of its writer.
#ifndef FUZZ_TICKET_MODEL_H_
#define FUZZ_TICKET_MODEL_H_

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace driver_feature::fuzz {

// An element with its attributes in their order.
struct TicketElement {
  std::string tag;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<std::unique_ptr<TicketElement>> children;
};

// The UTF-8 text that a ticket holds for a given text: the text itself, or its
// ISO-8859-1 reading when it is not UTF-8. Nothing when it holds a character
// that XML cannot hold.
std::optional<std::string> carriedText(const std::string& text);

// The ticket without its commands.
std::unique_ptr<TicketElement> makeTicket(const std::string& argument1,
                                          const std::string& argument2);

// Adds the element that a command (with a value) or a group (without one)
// makes, and returns it. Null when one of the texts cannot be carried.
TicketElement* addNode(TicketElement& parent, const std::string& name, const std::string& syntax,
                       const std::string* value);

// Ends the program unless the document parses and holds exactly this.
void requireTicket(const std::string& document, const TicketElement& expected);

}  // namespace driver_feature::fuzz

#endif  // FUZZ_TICKET_MODEL_H_
