// Where a command template puts its value, and which bytes would not stay
// there: they end the string, token or line around the value, so that the
// printer reads what follows as something else.
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

// Where the value of the last template comes to stand. The ones before it are
// those of the groups around the feature, the outermost one first; each takes
// the text of the next in the place of its conversion. Nothing when one of
// them has no conversion, so that the value is not written.
//
// Other members of the groups are taken for texts that end what they begin.
std::optional<TemplateValue> findValue(CommandLanguage language,
                                       const std::vector<std::string>& templates);

// "in a PJL line" and so on.
const char* wordsOf(ValuePlace place);

// The first byte of the value that must not stand there; nothing when all may.
std::optional<unsigned char> findUnsafeByte(ValuePlace place, std::string_view value);

// The bytes below 0x20, and 0x7F.
bool isControlCharacter(char character);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_VALUE_PLACE_H_
