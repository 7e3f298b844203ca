// Where the values go in the text of a choice "Custom". An import and the
// routine that writes the text at last agree on it here.
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

// When the text is written, and with which values.
struct CustomPlan {
  std::string feature;  // Is written while this feature ...
  std::string option;   // ... has this option.
  std::vector<CustomValue> values;
};

// "PageSize=Custom 1=PageSize.Width 2=#0": how a description holds a plan.
std::string planText(const CustomPlan& plan);

// The plan that a text tells; nothing when it tells none.
std::optional<CustomPlan> readPlan(const std::string& text);

// The PostScript of a choice: `command` with the values, one per line, behind
// its second line, which names the feature.
std::string postScriptWithValues(std::string_view command, const std::vector<std::string>& values);

// A value of a parameter, by its number.
struct NumberedValue {
  int order = 0;
  std::string text;
};

// The PJL of a choice: `command` with the value of the parameter NUMBER in the
// place of \NUMBER, and with nothing for a number without a value. Any other
// character behind a backslash stands for itself.
std::string pjlWithValues(std::string_view command, const std::vector<NumberedValue>& values);

// A number as libcups writes it: with at most twelve decimals and without
// zeros at their end, in any locale.
std::string customNumber(double value);

// A text as a PostScript string. Parentheses, backslashes and what is no
// printable ASCII character are written by their codes, so that no text ends
// the string. (libcups leaves a backslash as it is.)
std::string customString(std::string_view text);

// A text for PJL: quotation marks become apostrophes, control characters and
// what is no ASCII question marks, so that no text ends the command that it
// stands in.
std::string customPjlText(std::string_view text);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_CUSTOM_CUSTOM_TEXT_H_
