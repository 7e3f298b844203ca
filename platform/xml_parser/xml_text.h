// Text as an attribute of an XML document holds it.
#ifndef PLATFORM_XML_PARSER_XML_TEXT_H_
#define PLATFORM_XML_PARSER_XML_TEXT_H_

#include <cstdint>
#include <optional>
#include <string>

namespace driver_feature {

// Appends `text` in UTF-8, with references for what a reader would change. Text
// that is not UTF-8 is taken as ISO-8859-1. Without memory, throws
// std::bad_alloc.
//
// Returns the first character that XML cannot hold: controls other than tab and
// line ends, U+FFFE and U+FFFF. Nothing is appended then.
std::optional<std::uint32_t> appendValue(const std::string& text, std::string& output);

}  // namespace driver_feature

#endif  // PLATFORM_XML_PARSER_XML_TEXT_H_
