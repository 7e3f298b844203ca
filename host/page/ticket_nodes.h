// The nodes of a job ticket's text, with their places.
#ifndef HOST_PAGE_TICKET_NODES_H_
#define HOST_PAGE_TICKET_NODES_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::page {

struct TicketNode {
  std::string_view name;  // As the ticket spells it.
  std::size_t begin = 0;  // Of its first line.
  std::size_t end = 0;    // After its last line.
  std::size_t headEnd = 0;
  std::vector<TicketNode> children;
};

// The nodes of a section, such as "OutputAttributes"; none without it. The text must
// outlive them.
std::vector<TicketNode> ticketNodes(std::string_view ticket, std::string_view section);

// A name as the ticket spells it.
std::string spelledInTicket(std::string_view text);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_TICKET_NODES_H_
