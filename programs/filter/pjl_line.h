// Reads lines of PJL that a job brings along.
#ifndef PROGRAMS_FILTER_PJL_LINE_H_
#define PROGRAMS_FILTER_PJL_LINE_H_

#include <string>
#include <string_view>

namespace driver_feature::filter {

// The line without the universal exit sequences and ends of file (Ctrl-D) that
// it begins with.
std::string_view withoutExits(std::string_view line);

// Whether the line begins with a universal exit sequence, or with one after an
// end of file.
bool beginsWithExit(std::string_view line);

// The language that a line of PJL enters, in capital letters; empty for any
// other line, a remark among them. PJL takes capital and small letters for the
// same.
std::string enteredLanguage(std::string_view line);

// Whether the line enters another language than PostScript.
bool entersOtherLanguage(std::string_view line);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_PJL_LINE_H_
