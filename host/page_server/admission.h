// Which requests a page accepts, and the fields that restrict what browsers do
// with it.
#ifndef HOST_PAGE_SERVER_ADMISSION_H_
#define HOST_PAGE_SERVER_ADMISSION_H_

#include <vector>

#include "host/server/exchange.h"

namespace driver_feature::page_server {

// Whether the request comes from the page itself, or from no page: a foreign page
// must neither read nor change anything. A request that changes something must
// say that it comes from the page itself.
bool isFromOwnPage(const host::Request& request);

// The same for what a person may open from anywhere, such as from a mail.
bool mayOpen(const host::Request& request);

// The fields of every response of a page: nothing is loaded from elsewhere,
// nothing is shown elsewhere, and nothing is cached.
std::vector<host::Field> safeFields();

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_ADMISSION_H_
