// Places in UTF-8 texts counted in units of UTF-16, as JavaScript and editors count.
#ifndef HOST_BASE_UTF16_H_
#define HOST_BASE_UTF16_H_

#include <cstddef>
#include <string_view>

namespace driver_feature::host {

// Whether the byte is not the first one of its character.
bool continuesCharacter(char byte);

// The units that the text takes.
std::size_t utf16Units(std::string_view utf8);

// The bytes that come before this many units; all of them when there are fewer. A
// place between the two units of a character is its beginning.
std::size_t bytesBeforeUnits(std::string_view utf8, std::size_t units);

}  // namespace driver_feature::host

#endif  // HOST_BASE_UTF16_H_
