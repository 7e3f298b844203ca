// The reference parts of the manual page, written from the model of the
// program's arguments.
#ifndef HOST_MANUAL_MANUAL_PAGE_H_
#define HOST_MANUAL_MANUAL_PAGE_H_

#include <map>
#include <string>

namespace CLI {  // NOLINT(readability-identifier-naming): the name is the library's.
class App;
}  // namespace CLI

namespace driver_feature {

// The text for each mark of the page's hand-written part that the arguments
// can fill: SYNOPSIS, GENERAL_OPTIONS, COMMANDS, EXIT_STATUS and EXAMPLES. In
// roff with the "man" macros, each text with its last line end.
std::map<std::string, std::string> manualParts(const CLI::App& program);

// Replaces each "@MARK@" of a text by what `parts` has for MARK; the line end
// of a part goes where the mark's own line ends. False when a mark has no part
// or a part no mark; `problem` then names it.
bool fillMarks(std::string& text, const std::map<std::string, std::string>& parts,
               std::string& problem);

}  // namespace driver_feature

#endif  // HOST_MANUAL_MANUAL_PAGE_H_
