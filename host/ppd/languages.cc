#include "host/ppd/languages.h"

#include <algorithm>
#include <array>

#include "host/ppd/plain/keywords.h"

namespace driver_feature::ppd {

namespace {

struct LanguageRow {
  std::string_view version;
  std::string_view tag;
};

// The first one for a tag is written.
constexpr std::array<LanguageRow, 27> kLanguages = {
    {{"English", "en"},    {"Arabic", "ar"},
     {"Bulgarian", "bg"},  {"Chinese", "zh-TW"},
     {"Croatian", "hr"},   {"Czech", "cs"},
     {"Danish", "da"},     {"Dutch", "nl"},
     {"Finnish", "fi"},    {"French", "fr"},
     {"German", "de"},     {"Greek", "el"},
     {"Hungarian", "hu"},  {"Italian", "it"},
     {"Japanese", "ja"},   {"Korean", "ko"},
     {"Norwegian", "no"},  {"Polish", "pl"},
     {"Portuguese", "pt"}, {"Romanian", "ro"},
     {"Russian", "ru"},    {"Simplified Chinese", "zh-CN"},
     {"Slovak", "sk"},     {"Spanish", "es"},
     {"Swedish", "sv"},    {"Traditional Chinese", "zh-TW"},
     {"Turkish", "tr"}}};

bool isSmallLetter(char character) {
  return character >= 'a' && character <= 'z';
}

char small(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                              : character;
}

char capital(char character) {
  return isSmallLetter(character) ? static_cast<char>(character - 'a' + 'A') : character;
}

// Two letters of the language; with a region, the separator and two more.
std::string localized(std::string_view name, char from, char to) {
  const bool hasLanguage = name.size() >= 2 && isSmallLetter(name[0]) && isSmallLetter(name[1]);
  if (!hasLanguage) return "";
  std::string result(name.substr(0, 2));
  if (name.size() == 2) return result;
  const bool hasRegion = name.size() == 5 && name[2] == from && isSmallLetter(small(name[3])) &&
                         isSmallLetter(small(name[4]));
  if (!hasRegion) return "";
  return result + to + capital(name[3]) + capital(name[4]);
}

}  // namespace

std::string tagOfLanguageVersion(std::string_view version) {
  for (const LanguageRow& row : kLanguages) {
    if (equalKeywords(row.version, version)) return std::string(row.tag);
  }
  return "en";
}

std::string languageVersionOf(std::string_view tag) {
  for (const LanguageRow& row : kLanguages) {
    if (equalKeywords(row.tag, tag)) return std::string(row.version);
  }
  return "";
}

std::string localeOfTag(std::string_view tag) {
  return localized(tag, '-', '_');
}

std::string tagOfLocale(std::string_view locale) {
  return localized(locale, '_', '-');
}

}  // namespace driver_feature::ppd
