// The languages of a PPD file, and their tags.
#ifndef HOST_PPD_LANGUAGES_H_
#define HOST_PPD_LANGUAGES_H_

#include <string>
#include <string_view>

namespace driver_feature::ppd {

// The tag of what a PPD has as its LanguageVersion: "de" of "German". "en" when it
// is not known.
std::string tagOfLanguageVersion(std::string_view version);

// The LanguageVersion for a tag; empty when there is none.
std::string languageVersionOf(std::string_view tag);

// The prefix of a PPD's keywords for texts in a language: "zh_TW" of "zh-TW".
// Empty for a tag that is not two letters, or two and a region of two.
std::string localeOfTag(std::string_view tag);

// The tag of such a prefix, "zh-TW" of "zh_TW" and "zh_tw"; empty when it is none.
std::string tagOfLocale(std::string_view locale);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_LANGUAGES_H_
