// Tells a section that holds other text from one that only has options with
// the same order dependency in another order.
//
// libcups sorts the marked choices by their order dependency with a sort that
// does not keep the order of equals: which of two comes first depends on which
// other options are marked. A description writes its features in one order.
#ifndef CORPUS_EQUAL_ORDERS_H_
#define CORPUS_EQUAL_ORDERS_H_

#include <cups/ppd.h>

#include <string_view>

namespace driver_feature {

// True when both texts consist of the same framed codes, and ours has them by
// ascending order dependency as the PPD gives it.
bool differsInEqualsOnly(ppd_file_t& file, std::string_view peer, std::string_view ours);

}  // namespace driver_feature

#endif  // CORPUS_EQUAL_ORDERS_H_
