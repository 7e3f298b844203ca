// Characters that were meant as something else: byte escapes that nothing
// resolves, and references that are text.

#include <algorithm>
#include <cctype>

#include "host/base/text.h"
#include "host/check/attribute_table.h"
#include "host/check/rules.h"
#include "host/description/value_source.h"

namespace driver_feature::check {

namespace {

// The byte as two capital digits.
std::string digitsOf(char byte) {
  std::string digits = host::escapedByte(byte).substr(2);
  for (char& digit : digits)
    digit = static_cast<char>(std::toupper(static_cast<unsigned char>(digit)));
  return digits;
}

void checkEscapes(const host::Element& element, const char* command, Findings& findings) {
  const host::Attribute* attribute = element.find(command);
  if (attribute == nullptr) return;
  for (const std::string_view character : host::splitCharacters(attribute->value)) {
    const auto byte = unreadByteEscape(character);
    if (!byte) continue;
    const auto offset = static_cast<std::size_t>(character.data() - attribute->value.data());
    findings.push_back({Code::kUnreadByteEscape,
                        placeIn(*attribute, offset),
                        std::string(command) + " of " + describeElement(element) + " holds " +
                            std::string(character) + ", which means the byte " + digitsOf(*byte) +
                            " only with ByteEscapes=\"yes\"",
                        "write ByteEscapes=\"yes\" on <FeatureDescription>",
                        {}});
    return;
  }
}

// The length of a character reference at the beginning of a text; 0 without one.
std::size_t referenceLength(std::string_view text) {
  for (const std::string_view name : {"&lt;", "&gt;", "&amp;", "&quot;", "&apos;"}) {
    if (text.starts_with(name)) return name.size();
  }
  if (!text.starts_with("&#")) return 0;
  const bool isHex = text.substr(2).starts_with('x');
  const std::size_t begin = isHex ? 3 : 2;
  const std::size_t end =
      text.find_first_not_of(isHex ? "0123456789abcdefABCDEF" : "0123456789", begin);
  const bool ends = end != std::string_view::npos && end > begin && text[end] == ';';
  return ends ? end + 1 : 0;
}

void checkReferences(const host::Element& element, const host::Attribute& attribute,
                     Findings& findings) {
  const std::string_view value = attribute.value;
  for (std::size_t at = value.find('&'); at != std::string_view::npos;
       at = value.find('&', at + 1)) {
    const std::string reference(value.substr(at, referenceLength(value.substr(at))));
    if (reference.empty()) continue;
    findings.push_back({Code::kDoubledReference,
                        placeIn(attribute, at),
                        attribute.name + " of " + describeElement(element) + " holds the text \"" +
                            reference + "\" instead of the character",
                        "write " + reference + " in place of &amp;" + reference.substr(1),
                        {}});
    return;
  }
}

}  // namespace

void checkCharacters(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    if (element.role == host::Role::kOther) return;
    for (const char* command : {"PJLCommand", "PSCommand"})
      checkEscapes(element, command, findings);
    for (const host::Attribute& attribute : element.attributes) {
      if (findRule(element, attribute.name) == nullptr) continue;
      checkReferences(element, attribute, findings);
    }
  });
}

std::optional<char> unreadByteEscape(std::string_view character) {
  // U+F701 to U+F7FF are EF 9C 81 to EF 9F BF.
  if (character.size() != 3 || character[0] != '\xEF') return std::nullopt;
  const auto second = static_cast<unsigned char>(character[1]);
  if (second < 0x9C || second > 0x9F) return std::nullopt;
  const unsigned byte =
      ((second - 0x9CU) << 6U) | (static_cast<unsigned char>(character[2]) & 0x3FU);
  if (byte == 0) return std::nullopt;
  return static_cast<char>(byte);
}

}  // namespace driver_feature::check
