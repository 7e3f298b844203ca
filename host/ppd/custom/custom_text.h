// Where the values go in the text of a choice "Custom". Used by the import and
// by the routine that finally writes the text.
#ifndef HOST_PPD_CUSTOM_CUSTOM_TEXT_H_
#define HOST_PPD_CUSTOM_CUSTOM_TEXT_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::ppd {

// A value of the text: a feature's, or a number that libcups always writes.
struct CustomValue {
  int order = 0;          // The number of the parameter in the PPD file.
  std::string text;       // The feature's name, or the number itself.
  bool isNumber = false;  // Whether `text` is the number.
};

// The condition under which the text is written, and its values.
struct CustomPlan {
  std::string feature;  // Is written while this feature ...
  std::string option;   // ... has this option.
  std::vector<CustomValue> values;
};

// "PageSize=Custom 1=PageSize.Width 2=#0": how a description holds a plan.
std::string planText(const CustomPlan& plan);

// Parses a plan; nothing when the text is not one.
std::optional<CustomPlan> readPlan(const std::string& text);

// The PostScript of a choice: `command` with the values, one per line, after
// its second line, which names the feature.
std::string postScriptWithValues(std::string_view command, const std::vector<std::string>& values);

// A value of a parameter, by its number.
struct NumberedValue {
  int order = 0;
  std::string text;
};

// The PJL of a choice: `command` with the value of the parameter NUMBER in
// place of \NUMBER, and with nothing for a number without a value. Any other
// character after a backslash means itself.
std::string pjlWithValues(std::string_view command, const std::vector<NumberedValue>& values);

// A number as libcups writes it: with at most twelve decimals and without
// zeros at their end, in any locale.
std::string customNumber(double value);

// A text as a PostScript string. Parentheses, backslashes and all but printable
// ASCII characters are written as their codes, so that no text ends the string.
// (libcups leaves a backslash as it is.)
std::string customString(std::string_view text);

// A text for PJL: quotation marks become apostrophes, control characters and
// all that is not ASCII become question marks, so that no text ends the command
// that contains it.
std::string customPjlText(std::string_view text);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_CUSTOM_CUSTOM_TEXT_H_
