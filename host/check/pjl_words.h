// What makes a line PJL.
#ifndef HOST_CHECK_PJL_WORDS_H_
#define HOST_CHECK_PJL_WORDS_H_

#include <string_view>

namespace driver_feature::check {

// A line or a part of one, without blanks around it.
std::string_view withoutBlanks(std::string_view text);

// Whether PJL can carry all of it.
bool isPlain(std::string_view text);

// Whether a line begins with @PJL as a word.
bool isPjlCommand(std::string_view command);

// Whether a line without the prefix is meant as PJL: another word with an at
// sign, a command of PJL, or an assignment. Other languages begin differently.
bool looksLikePjl(std::string_view command);

// Whether a command ends PJL.
bool entersLanguage(std::string_view command);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_PJL_WORDS_H_
