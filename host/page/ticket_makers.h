// Which of the features and groups that make nodes of a ticket has made which node.
#ifndef HOST_PAGE_TICKET_MAKERS_H_
#define HOST_PAGE_TICKET_MAKERS_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/page/ticket_nodes.h"

namespace driver_feature::page {

// What a feature or group is expected to have made, in the order of the ticket.
struct TicketMaker {
  std::string_view owner;
  std::string name;      // Of its node, as the ticket spells it.
  bool isFree = false;   // A routine makes any nodes, or none.
  bool isGroup = false;  // Its children are those of the group.
};

// By node, the number of its maker; nothing where that is not certain: only what
// reading forwards and reading backwards agree on is.
std::vector<std::optional<std::size_t>> makersOf(const std::vector<TicketNode>& nodes,
                                                 const std::vector<TicketMaker>& makers);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_TICKET_MAKERS_H_
