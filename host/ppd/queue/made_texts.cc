#include "host/ppd/queue/made_texts.h"

#include <algorithm>
#include <string_view>

#include "host/base/text.h"
#include "host/ppd/languages.h"

namespace driver_feature::ppd {

namespace {

constexpr std::size_t kLongestText = 80;  // Bytes; libcups shows no more of one.

bool isAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// As a PPD holds it between a name and a colon.
std::string written(const std::string& text) {
  std::string result;
  std::size_t size = 0;
  for (const std::string_view character : host::splitCharacters(text)) {
    size += character.size();
    if (size > kLongestText) break;
    switch (character.front()) {
      case ':':
        result += "<3A>";
        break;
      case '<':
        result += "<3C>";
        break;
      case '>':
        result += "<3E>";
        break;
      case '"':
        result += "<22>";
        break;
      case '\n':
      case '\r':
      case '\t':
        result += ' ';
        break;
      default:
        result += character;
    }
  }
  return result;
}

}  // namespace

MadeTexts::MadeTexts(const std::vector<host::TextsOfLanguage>& texts,
                     std::vector<std::string>& losses) {
  const std::string first = texts.empty() ? "en" : texts.front().language;
  languageNamed(first, localeOfTag(first));
  for (const host::TextsOfLanguage& language : texts) {
    const std::string locale = localeOfTag(language.language);
    if (locale.empty() && language.language != first) {
      losses.push_back("the texts in " + language.language +
                       ": a PPD has no keywords for the language");
      continue;
    }
    ByKey& known = languageNamed(language.language, locale).texts;
    for (const host::Text& text : language.texts) {
      if (!text.text.empty()) known.emplace(text.key, text.text);
    }
  }
}

MadeTexts::Language& MadeTexts::languageNamed(const std::string& tag, const std::string& locale) {
  for (Language& language : languages_) {
    if (language.tag == tag) return language;
  }
  languages_.push_back({tag, locale, {}});
  return languages_.back();
}

std::string MadeTexts::textFor(const std::string& place, const std::string& key) {
  return textFor(place, key, "");
}

std::string MadeTexts::textFor(const std::string& place, const std::string& key,
                               const std::string& otherwise) {
  if (knownPlaces_.insert(place).second) places_.push_back({place, key});
  const ByKey& own = languages_.front().texts;
  const auto found = own.find(key);
  const std::string& text = found != own.end() ? found->second : otherwise;
  if (text.empty()) return "";
  isPlain_ = isPlain_ && isAscii(text);
  return "/" + written(text);
}

bool MadeTexts::isComplete(const Language& language) const {
  return std::all_of(places_.begin(), places_.end(), [&language](const Place& place) {
    return language.texts.contains(place.key);
  });
}

// Where a PPD names its translations, its own language must be English in ASCII,
// and each of them complete. libcups finds translations without that, too.
std::string MadeTexts::languageLines() const {
  const Language& own = languages_.front();
  std::string version = languageVersionOf(own.tag);
  if (version.empty()) version = languageVersionOf(own.tag.substr(0, own.tag.find('-')));
  if (version.empty()) version = "English";
  std::string lines = "*LanguageVersion: " + version +
                      "\n*LanguageEncoding: " + (isPlain_ ? "ISOLatin1" : "UTF-8") + "\n";
  std::vector<std::string> named;
  for (const Language& language : languages_) {
    if (&language != &own && isComplete(language)) named.push_back(language.locale);
  }
  if (!isPlain_ || version != "English" || named.empty()) return lines;
  return lines + "*cupsLanguages: \"" + host::join(named, " ") + "\"\n";
}

std::string MadeTexts::translationLines() const {
  std::string lines;
  for (std::size_t i = 1; i < languages_.size(); ++i) {
    const Language& language = languages_[i];
    for (const Place& place : places_) {
      const auto text = language.texts.find(place.key);
      if (text == language.texts.end()) continue;
      lines += "*" + language.locale + "." + place.place + "/" + written(text->second) + ": \"\"\n";
    }
  }
  return lines;
}

}  // namespace driver_feature::ppd
