// The reference parts of the manual page, written from the rows of the
// program's arguments.
#ifndef PROGRAMS_DRIVER_FEATURE_MANUAL_MANUAL_PAGE_H_
#define PROGRAMS_DRIVER_FEATURE_MANUAL_MANUAL_PAGE_H_

#include <map>
#include <string>

#include "host/base/result.h"
#include "programs/driver_feature/arguments.h"

namespace driver_feature::cli {

// The text for each mark of the page's hand-written part that the arguments
// can fill: SYNOPSIS, GENERAL_OPTIONS, COMMANDS, EXIT_STATUS and EXAMPLES. In
// roff with the "man" macros, each text with its last line end.
std::map<std::string, std::string> manualParts(const ProgramRows& program);

// Replaces each "@MARK@" of a text by what `parts` has for MARK; the line end
// of a part goes where the mark's own line ends. Refused when a mark has no part
// or a part no mark.
host::Result<std::string> fillMarks(const std::string& text,
                                    const std::map<std::string, std::string>& parts);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_MANUAL_MANUAL_PAGE_H_
