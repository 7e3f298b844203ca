#include "host/description/texts.h"

#include <algorithm>

#include "host/base/text.h"

namespace driver_feature::host {

namespace {

// "de_AT" of "de_AT.UTF-8", as locales are named.
std::string withoutEncoding(const std::string& language) {
  return language.substr(0, language.find_first_of(".@"));
}

}  // namespace

std::string optionKey(const std::string& feature, const std::string& option) {
  return feature + "." + option;
}

std::string ruleKey(const std::string& id) {
  return "rule:" + id;
}

std::string presetKey(const std::string& name) {
  return "preset:" + name;
}

std::string panelKey(const std::string& name) {
  return "panel:" + name;
}

// Tags differ in case, and in the character before the region.
std::string plainTag(const std::string& language) {
  std::string tag = toLower(withoutEncoding(language));
  std::replace(tag.begin(), tag.end(), '_', '-');
  return tag;
}

std::string withoutRegion(const std::string& language) {
  return language.substr(0, language.find_first_of("-_"));
}

TextLookUp::TextLookUp(const std::vector<TextsOfLanguage>& languages, const std::string& language) {
  if (languages.empty()) return;
  const auto add = [&](const std::string& wanted) {
    for (const TextsOfLanguage& texts : languages) {
      if (plainTag(texts.language) != plainTag(wanted)) continue;
      for (const Text& text : texts.texts) {
        if (!text.text.empty()) texts_.emplace(text.key, text.text);
      }
    }
  };
  // What an earlier language has, a later one does not replace.
  if (!language.empty()) {
    add(language);
    add(withoutRegion(plainTag(language)));
  }
  add(languages.front().language);
}

std::string TextLookUp::textOf(const std::string& key, const std::string& otherwise) const {
  const auto found = texts_.find(key);
  return found != texts_.end() ? found->second : otherwise;
}

}  // namespace driver_feature::host
