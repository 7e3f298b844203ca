// Numbers from and to text, the same in every locale of the host process.
#ifndef MODEL_TEXT_CONVERSION_H_
#define MODEL_TEXT_CONVERSION_H_

#include <string>

namespace driver_feature {

// The number at the start of `text`, after leading blanks and an optional
// sign; what follows it is ignored and a text without one counts as 0. An
// integer is decimal and is clamped to the range of int. A float may also be
// hexadecimal, infinite or not a number; what is too large becomes infinite.
int toInt(const std::string& text);
float toFloat(const std::string& text);

// The value with six decimals, as printf's "%f" has it in the C locale.
std::string toFixedText(double value);

// The value in decimal.
std::string toDecimalText(int value);

}  // namespace driver_feature

#endif  // MODEL_TEXT_CONVERSION_H_
