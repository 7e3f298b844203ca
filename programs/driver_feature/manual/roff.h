// Text in the roff language with the "man" macros.
#ifndef PROGRAMS_DRIVER_FEATURE_MANUAL_ROFF_H_
#define PROGRAMS_DRIVER_FEATURE_MANUAL_ROFF_H_

#include <string>

namespace driver_feature::cli {

// A text that prints as it is: its backslashes, hyphens and quotes are
// escaped, and lines do not begin with what roff takes for a request.
std::string roffText(const std::string& text);

// The text as an argument of a macro, quoted.
std::string roffArgument(const std::string& text);

// The text after the arguments of a help text, as paragraphs. Lines that are
// indented by two blanks stay as they are; a line "Examples:" before them
// becomes the name of the paragraph.
std::string roffParagraphs(const std::string& text);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_MANUAL_ROFF_H_
