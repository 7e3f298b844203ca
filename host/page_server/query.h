// The part of an address after "?".
#ifndef HOST_PAGE_SERVER_QUERY_H_
#define HOST_PAGE_SERVER_QUERY_H_

#include <string>
#include <string_view>

namespace driver_feature::page_server {

// The text with the bytes that "%NN" and "+" stand for.
std::string decoded(std::string_view text);

// The decoded value of a name, as in "language=de&file=a%20b"; empty without it.
std::string queryValue(std::string_view query, std::string_view name);

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_QUERY_H_
