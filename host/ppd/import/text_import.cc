#include "host/ppd/import/text_import.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/base/text.h"
#include "host/ppd/import/option_import.h"
#include "host/ppd/import/translations.h"
#include "host/ppd/languages.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

// Whether the file gives the keyword a text. Some keywords get one of libcups.
bool hasText(std::string_view keyword, std::string_view text) {
  struct Row {
    std::string_view keyword;
    std::string_view text;
  };
  constexpr std::array<Row, 6> kOfLibcups = {{{"PageSize", "Media Size"},
                                              {"MediaType", "Media Type"},
                                              {"InputSlot", "Media Source"},
                                              {"ColorModel", "Output Mode"},
                                              {"True", "Yes"},
                                              {"False", "No"}}};
  for (const Row& row : kOfLibcups) {
    if (row.keyword == keyword) return text != row.text;
  }
  return text != keyword;
}

// The text as XML holds it. Files without an encoding mostly have that of Latin-1.
std::string cleanText(std::string_view bytes) {
  std::string text;
  for (const std::string_view character : host::splitCharacters(bytes)) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF" || first < ' ' ||
        first == 0x7F) {
      text += ' ';
    } else if (character.size() > 1 || first < 0x80) {
      text += character;
    } else {
      text += static_cast<char>(0xC0U | (first >> 6U));
      text += static_cast<char>(0x80U | (first & 0x3FU));
    }
  }
  return text;
}

// Where a text is in the file: a keyword and what follows it, in small letters.
std::string placeOf(const std::string& keyword, const std::string& spec) {
  return host::toLower(keyword + " " + spec);
}

class TextImport {
 public:
  TextImport(ppd_file_t& ppd, const ImportedNames& names, Losses& losses)
      : ppd_(ppd), names_(names), losses_(losses) {
    const char* version = ppd.lang_version;
    languageNamed(tagOfLanguageVersion(version != nullptr ? version : ""));
  }

  // First: of a language's texts for the same key, the first one counts.
  void add(const Translation& translation) {
    const auto [first, last] = keys_.equal_range(placeOf(translation.keyword, translation.spec));
    for (auto key = first; key != last; ++key) {
      languageNamed(translation.language).texts.push_back({key->second, translation.text});
    }
    if (first == last) noteUnused(translation);
  }

  void addOption(ppd_option_t& option) {
    const std::string keyword = option.keyword;
    const std::vector<ppd_choice_t*> choices = choicesOf(option);
    const bool isImported =
        option.ui == PPD_UI_PICKMANY
            ? std::any_of(choices.begin(), choices.end(),
                          [&](const ppd_choice_t* choice) {
                            return names_.hasFeature(choiceFeatureName(option, *choice));
                          })
            : names_.hasFeature(keyword);
    if (!isImported) return;
    addOwn(placeOf("Translation", keyword), keyword, keyword, option.text);
    for (ppd_choice_t* choice : choices) addChoice(option, *choice);
    addParameters(keyword);
  }

  void addPanel(const host::Panel& panel) {
    addOwn(placeOf("Translation", panel.name), host::panelKey(panel.name), panel.name,
           panel.text.c_str());
  }

  void addOwnTexts() {
    for (Own& own : own_) languages_.front().texts.push_back({own.key, std::move(own.text)});
  }

  std::vector<host::TextsOfLanguage> take() {
    std::vector<host::TextsOfLanguage> languages;
    for (Language& language : languages_) {
      if (!language.texts.empty()) languages.push_back(textsIn(language));
    }
    return languages;
  }

 private:
  // The printer's names have translations, too: they are lost with the names.
  void noteUnused(const Translation& translation) {
    const std::string what = "*" + translation.language + "." + translation.keyword;
    if (!equalKeywords(translation.keyword, "Translation")) {
      losses_.note(LossKind::kKeyword, what);
    } else if (ppdFindAttr(&ppd_, translation.spec.c_str(), nullptr) != nullptr) {
      losses_.note(LossKind::kKeyword, "translation of *" + translation.spec);
    } else {
      losses_.note(LossKind::kText, what);
    }
  }

  struct KeyedText {
    std::size_t key = 0;  // Its place among the names of the keys.
    std::string text;
  };
  struct Language {
    std::string tag;
    std::vector<KeyedText> texts;
  };
  using Own = KeyedText;

  Language& languageNamed(const std::string& tag) {
    const auto [place, isNew] = places_.try_emplace(tag, languages_.size());
    if (isNew) languages_.push_back({tag, {}});
    return languages_[place->second];
  }

  void addChoice(const ppd_option_t& option, const ppd_choice_t& choice) {
    const std::string keyword = option.keyword;
    const std::string name = choice.choice;
    const bool takesSeveral = option.ui == PPD_UI_PICKMANY;
    // Of an option, or of the feature that one of several choices has become.
    const std::string key = choiceFeatureName(option, choice);
    if (!(takesSeveral ? names_.hasFeature(key) : names_.hasOption(keyword, name))) return;
    const bool isCustom = name == "Custom" && ppdFindCustomOption(&ppd_, option.keyword) != nullptr;
    addOwn(isCustom ? placeOf("Custom" + keyword, "True") : placeOf(keyword, name), key, name,
           choice.text);
  }

  void addParameters(const std::string& keyword) {
    ppd_coption_t* custom = ppdFindCustomOption(&ppd_, keyword.c_str());
    if (custom == nullptr) return;
    for (ppd_cparam_t* parameter = ppdFirstCustomParam(custom); parameter != nullptr;
         parameter = ppdNextCustomParam(custom)) {
      const std::string key = keyword + "." + parameter->name;
      if (!names_.hasFeature(key)) continue;
      addOwn(placeOf("ParamCustom" + keyword, parameter->name), key, parameter->name,
             parameter->text);
    }
  }

  // A key, its place in the file, and its text there if it is not the name.
  void addOwn(const std::string& place, const std::string& key, const std::string& name,
              const char* text) {
    if (!known_.insert(key).second) return;
    keys_.emplace(place, keyNames_.size());
    if (text[0] != '\0' && hasText(name, text)) own_.push_back({keyNames_.size(), text});
    keyNames_.push_back(key);
  }

  host::TextsOfLanguage textsIn(Language& language) const {
    std::vector<KeyedText>& texts = language.texts;
    const auto isBefore = [](const KeyedText& one, const KeyedText& other) {
      return one.key < other.key;
    };
    std::stable_sort(texts.begin(), texts.end(), isBefore);
    host::TextsOfLanguage result{language.tag, {}};
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (i > 0 && texts[i].key == texts[i - 1].key) continue;
      result.texts.push_back({keyNames_[texts[i].key], cleanText(texts[i].text)});
    }
    return result;
  }

  ppd_file_t& ppd_;
  const ImportedNames& names_;
  Losses& losses_;
  std::vector<std::string> keyNames_;
  std::unordered_set<std::string> known_;
  // By their places in the file. An option and its group may have the same.
  std::unordered_multimap<std::string, std::size_t> keys_;
  std::vector<Own> own_;                                 // The texts in the file's own language.
  std::vector<Language> languages_;                      // The file's own first.
  std::unordered_map<std::string, std::size_t> places_;  // Of the languages, by their tags.
};

}  // namespace

std::vector<host::TextsOfLanguage> textsOf(ppd_file_t& ppd, std::string_view bytes,
                                           const ImportedNames& names,
                                           const std::vector<host::Panel>& panels, Losses& losses) {
  TextImport import(ppd, names, losses);
  for (ppd_option_t* option : optionsOf(ppd)) import.addOption(*option);
  for (const host::Panel& panel : panels) import.addPanel(panel);
  for (const Translation& translation : translationsOf(bytes)) import.add(translation);
  import.addOwnTexts();
  return import.take();
}

}  // namespace driver_feature::ppd
