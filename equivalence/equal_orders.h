// Distinguishes a section with different text from one that only has options
// with the same order dependency in a different order.
//
// libcups sorts the marked choices by their order dependency with a sort that
// does not keep the order of equals: which of two comes first depends on which
// other options are marked. A description writes its features in one order.
#ifndef EQUIVALENCE_EQUAL_ORDERS_H_
#define EQUIVALENCE_EQUAL_ORDERS_H_

#include <cups/ppd.h>

#include <optional>
#include <string>
#include <string_view>

namespace driver_feature::equivalence {

// True when both texts consist of the same framed codes, and ours has them in
// ascending order of the PPD's order dependencies.
bool differsInEqualsOnly(ppd_file_t& file, std::string_view peer, std::string_view ours);

// The same for whole jobs, where there is other text between runs of framed
// codes: all of it must be the same, and each run must have the same codes with
// the same order dependencies one after another. The name of the section of the
// first code that is in another place; nothing when more differs, or nothing
// does.
std::optional<std::string> sectionOfEquals(ppd_file_t& file, std::string_view peer,
                                           std::string_view ours);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_EQUAL_ORDERS_H_
