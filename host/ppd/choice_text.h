// The text that libcups writes for one marked choice.
#ifndef HOST_PPD_CHOICE_TEXT_H_
#define HOST_PPD_CHOICE_TEXT_H_

#include <cups/ppd.h>

#include <string>
#include <string_view>

namespace driver_feature::ppd {

// Why something is lost that libcups itself leaves out.
inline constexpr const char* kNeverWritten =
    "libcups never writes it, because its order dependency is below 0";

// The text of a choice in a section: its code, in PostScript within the lines
// that keep a failure away from the rest of the job. `title` is what the
// comment on the feature says, such as "*PageSize A4".
std::string sectionText(ppd_section_t section, const std::string& title, const std::string& code);

// Empty for a null pointer.
std::string_view textOf(const char* text);

// Whether it is the custom choice.
bool isCustom(const ppd_choice_t& choice);

// The code of a choice; empty when it has none.
std::string codeOf(const ppd_choice_t& choice);

// "*PageSize A4".
std::string titleOf(const ppd_option_t& option, const ppd_choice_t& choice);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_CHOICE_TEXT_H_
