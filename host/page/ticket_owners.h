// Which feature or group has made which node of a job ticket, by the names of the
// nodes and by their order.
#ifndef HOST_PAGE_TICKET_OWNERS_H_
#define HOST_PAGE_TICKET_OWNERS_H_

#include <string>
#include <string_view>
#include <vector>

#include "host/page/catalog.h"
#include "host/page/shown_text.h"
#include "host/session/session.h"

namespace driver_feature::page {

// The parts of a ticket in their order. Nodes of which it is not certain who has
// made them, because several routines may have, have no owner. The names belong to
// the session.
std::vector<OwnedPart> ticketOwners(const host::Session& session, const Catalog& catalog,
                                    std::string_view ticket);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_TICKET_OWNERS_H_
