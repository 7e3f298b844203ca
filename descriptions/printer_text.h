// Values as PJL and PostScript hold them.
#ifndef DESCRIPTIONS_PRINTER_TEXT_H_
#define DESCRIPTIONS_PRINTER_TEXT_H_

#include <string>
#include <string_view>

namespace driver_feature {

// A PJL string with its quotation marks. PJL knows no way to write a quotation
// mark in a string; it becomes an apostrophe. What is not a printable
// ASCII character becomes a question mark.
std::string pjlString(std::string_view text);

// A PostScript string with its parentheses. Parentheses and backslashes of
// the text are escaped; what is not a printable ASCII character is written as an
// octal number.
std::string postScriptString(std::string_view text);

// A PJL assignment with its line end.
std::string pjlSet(std::string_view variable, std::string_view value);

// The number with two decimals, in every locale of the process.
std::string decimalText(float number);

// A length in millimetres as whole PostScript units of 1/72 inch.
int pointsOf(float millimetres);

}  // namespace driver_feature

#endif  // DESCRIPTIONS_PRINTER_TEXT_H_
