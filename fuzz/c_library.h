// The C library's own reading and writing of numbers, with which the library's
// is compared. Always in the locale C, whatever the process's is.
#ifndef FUZZ_C_LIBRARY_H_
#define FUZZ_C_LIBRARY_H_

#include <string>

namespace driver_feature::fuzz {

// What printf makes of a template and its value. A template that the C library
// refuses ends the process.
std::string printed(const std::string& commandTemplate, int value);
std::string printed(const std::string& commandTemplate, double value);
std::string printed(const std::string& commandTemplate, const char* value);

// The number at the beginning of the text; 0 when there is none.
float toFloat(const std::string& text);

}  // namespace driver_feature::fuzz

#endif  // FUZZ_C_LIBRARY_H_
