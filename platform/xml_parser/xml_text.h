// Text as an XML document can hold it.
#ifndef PLATFORM_XML_PARSER_XML_TEXT_H_
#define PLATFORM_XML_PARSER_XML_TEXT_H_

#include <cstdint>
#include <optional>
#include <string>

namespace driver_feature {

// `text` when it is UTF-8, or else taken as ISO-8859-1 and brought to UTF-8.
std::string toUtf8(const std::string& text);

// The first character of a text made by toUtf8() that XML cannot hold:
// controls other than tab and line ends, U+FFFE and U+FFFF.
std::optional<std::uint32_t> findForbiddenCharacter(const std::string& utf8);

}  // namespace driver_feature

#endif  // PLATFORM_XML_PARSER_XML_TEXT_H_
