// Fields of a request that libcups does not keep.
#ifndef HOST_SERVER_HEAD_FIELD_H_
#define HOST_SERVER_HEAD_FIELD_H_

#include <string>
#include <string_view>

namespace driver_feature::host {

// The value of a field of a request's head, whose name is given in small letters;
// empty without one. Several such fields give their values with ", " between them.
std::string headField(std::string_view head, std::string_view name);

}  // namespace driver_feature::host

#endif  // HOST_SERVER_HEAD_FIELD_H_
