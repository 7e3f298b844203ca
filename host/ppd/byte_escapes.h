// Texts of any bytes as texts that XML can hold. A description whose root
// element says ByteEscapes="yes" has in its attributes a character U+F700+b for
// a byte b that XML could not hold; the parser of the development edition turns
// it back.
#ifndef HOST_PPD_BYTE_ESCAPES_H_
#define HOST_PPD_BYTE_ESCAPES_H_

#include <string>
#include <string_view>

namespace driver_feature::ppd {

// `bytes` as UTF-8 without a character that XML forbids. Escaped are control
// bytes except tab, line feed and carriage return, bytes that are not valid
// UTF-8, the bytes of U+FFFE and U+FFFF, and those of U+F700 to U+F7FF, which
// would otherwise be read as escapes. NUL bytes cannot be expressed and are
// dropped.
std::string escapeBytes(std::string_view bytes);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_BYTE_ESCAPES_H_
