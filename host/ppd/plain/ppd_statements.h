// The statements of a PPD's text, cut as libcups cuts them.
#ifndef HOST_PPD_PLAIN_PPD_STATEMENTS_H_
#define HOST_PPD_PLAIN_PPD_STATEMENTS_H_

#include <string_view>

namespace driver_feature::ppd {

// Takes the next line from the text, with its line end (LF, CR LF or CR; none
// at the end of a text without one).
std::string_view takeLine(std::string_view& text);

// Takes the next statement from the text, with its line end: one line, or as
// many as a value in quotation marks reaches over. Comments have one line.
std::string_view takeStatement(std::string_view& text);

// The statement's keyword, without its asterisk; empty for a comment, an empty
// line and whatever else has none.
std::string_view statementKeyword(std::string_view statement);

// The line end of a line; empty without one.
std::string_view lineEndOf(std::string_view line);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PLAIN_PPD_STATEMENTS_H_
