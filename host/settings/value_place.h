// Where a command template puts its value, and which bytes are not safe there:
// they end the string, token or line around the value, so that the printer
// reads the rest as something else.
#ifndef HOST_SETTINGS_VALUE_PLACE_H_
#define HOST_SETTINGS_VALUE_PLACE_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::host {

enum class CommandLanguage : unsigned char { kPjl, kPostScript };

enum class ValuePlace : unsigned char {
  kPjlLineStart,
  kPjlLine,
  kPjlString,
  kPostScriptToken,  // Outside of all strings and comments; within procedures, too.
  kPostScriptString,
  kPostScriptHexString,
  kPostScriptBase85String,
  kPostScriptComment,
};

struct TemplateValue {
  ValuePlace place = ValuePlace::kPjlLine;
  char letter = 0;  // Of the conversion.
};

// The place of the last template's value. The templates before it are those of
// the groups around the feature, the outermost one first; each has the text of
// the next in place of its conversion. Nothing when one of them has no
// conversion, so that the value is not written.
//
// Other members of the groups are assumed to end what they begin.
std::optional<TemplateValue> findValue(CommandLanguage language,
                                       const std::vector<std::string>& templates);

// "in a PJL line" and so on.
const char* wordsOf(ValuePlace place);

// The first byte of the value that is not allowed there; nothing when all are.
std::optional<unsigned char> findUnsafeByte(ValuePlace place, std::string_view value);

// The bytes below 0x20, and 0x7F.
bool isControlCharacter(char character);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_VALUE_PLACE_H_
