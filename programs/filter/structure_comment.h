// Reads the structure comments of PostScript jobs ("%%Page: 1 1").
#ifndef PROGRAMS_FILTER_STRUCTURE_COMMENT_H_
#define PROGRAMS_FILTER_STRUCTURE_COMMENT_H_

#include <cstdint>
#include <string_view>

namespace driver_feature::filter {

// The keyword of a structure comment ("Page"); empty for any other line.
std::string_view keywordOf(std::string_view line);

// Whether the line belongs to the header comments of a job: % and a character
// that shows, and no comment that begins or ends another part.
bool isHeaderComment(std::string_view line, std::string_view keyword);

// Whether the line is a comment, or blank.
bool isCommentOrBlank(std::string_view line);

// What follows %%BeginBinary or %%BeginData and is not structure.
struct DataExtent {
  std::uint64_t count = 0;  // 0 when the comment gives none that can be read.
  bool isLines = false;     // The count is one of lines, not of bytes.
};
DataExtent dataExtent(std::string_view line);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_STRUCTURE_COMMENT_H_
