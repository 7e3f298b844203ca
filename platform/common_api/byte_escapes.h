// Bytes that XML cannot hold. In a document whose root element says
// ByteEscapes="yes", the character U+F700+b stands in an attribute's value for
// the byte b, 0x01 to 0xFF.
#ifndef PLATFORM_COMMON_API_BYTE_ESCAPES_H_
#define PLATFORM_COMMON_API_BYTE_ESCAPES_H_

#include <string>
#include <string_view>

namespace driver_feature {

// The UTF-8 text with each escape turned into its byte. The result may be no
// valid UTF-8.
std::string unescapeBytes(std::string_view text);

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_BYTE_ESCAPES_H_
