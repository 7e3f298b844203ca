// The part of an address after "?".
#ifndef HOST_PAGE_SERVER_QUERY_H_
#define HOST_PAGE_SERVER_QUERY_H_

#include <string>
#include <string_view>

namespace driver_feature::page_server {

// The decoded value of a name, as in "language=de&file=a%20b"; empty without it.
std::string queryValue(std::string_view query, std::string_view name);

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_QUERY_H_
