// Comments of PostScript that describe the structure of a document.
#ifndef HOST_CHECK_STRUCTURE_COMMENT_H_
#define HOST_CHECK_STRUCTURE_COMMENT_H_

#include <string_view>

namespace driver_feature::check {

// Whether a comment, from its per cent sign on, would be one of the structure with
// a second sign.
bool isStructureComment(std::string_view comment);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_STRUCTURE_COMMENT_H_
