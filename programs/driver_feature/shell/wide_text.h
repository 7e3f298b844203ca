// Lines as the editor has them: one element for each character, in the encoding
// of the locale. A byte that is not a character there stays itself on the way back.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_WIDE_TEXT_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_WIDE_TEXT_H_

#include <optional>
#include <string>
#include <string_view>

namespace driver_feature::cli {

// Takes the first character off `bytes`, which is not empty. None, and nothing
// taken, when more bytes may complete it.
std::optional<wchar_t> takeCharacter(std::string& bytes);

std::wstring toWide(std::string_view bytes);
std::string toBytes(std::wstring_view text);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_WIDE_TEXT_H_
