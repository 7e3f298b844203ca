// Which requests a page takes, and what browsers are told about it.
#ifndef HOST_PAGE_SERVER_ADMISSION_H_
#define HOST_PAGE_SERVER_ADMISSION_H_

#include <vector>

#include "host/server/exchange.h"

namespace driver_feature::page_server {

// Whether the request comes from the page itself, or from no page: a foreign page
// must neither read nor change anything. A request that changes something has to
// say that it comes from the page itself.
bool isFromOwnPage(const host::Request& request);

// The same for what a person may open from anywhere, such as from a mail.
bool mayOpen(const host::Request& request);

// What every response of a page has: nothing is loaded from elsewhere, nothing is
// shown elsewhere, and nothing is kept.
std::vector<host::Field> safeFields();

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_ADMISSION_H_
