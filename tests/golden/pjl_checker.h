// Whether bytes are a PJL header that a printer takes.
#ifndef TESTS_GOLDEN_PJL_CHECKER_H_
#define TESTS_GOLDEN_PJL_CHECKER_H_

#include <string>

// Empty for a good header; else what is wrong first, and in which line. A good
// header is made of lines ended by CR LF, of printable ASCII but for the escape
// character that begins it:
//
//   ESC%-12345X@PJL JOB NAME = "text"
//   @PJL SET VARIABLE = VALUE             any number, each variable once
//   @PJL ENTER LANGUAGE = LANGUAGE        as the last line
//
// A variable is a word of capital letters and digits. A value is such a word,
// a number, or a text in quotation marks that holds none itself.
std::string findPjlFault(const std::string& bytes);

#endif  // TESTS_GOLDEN_PJL_CHECKER_H_
