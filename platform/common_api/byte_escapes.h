// Bytes that XML cannot hold. In an element with ByteEscapes="yes", and in the
// elements in it, the character U+F700+b in an attribute's value means the byte
// b, 0x01 to 0xFF.
#ifndef PLATFORM_COMMON_API_BYTE_ESCAPES_H_
#define PLATFORM_COMMON_API_BYTE_ESCAPES_H_

#include <string>
#include <string_view>

namespace driver_feature {

// The UTF-8 text with each escape turned into its byte. The result may not be
// valid UTF-8.
std::string unescapeBytes(std::string_view text);

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_BYTE_ESCAPES_H_
