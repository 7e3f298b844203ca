// Texts for people: what they are for, and which ones a language lacks.

#include <map>
#include <set>

#include "host/base/text.h"
#include "host/check/addition_rules.h"
#include "host/check/rules.h"
#include "host/description/switch_name.h"

namespace driver_feature::check {

namespace {

constexpr std::string_view kRulePrefix = "rule:";
constexpr std::string_view kPresetPrefix = "preset:";
constexpr std::string_view kPanelPrefix = "panel:";

std::vector<std::string> ruleKeys(const AdditionSubject& subject) {
  std::vector<std::string> keys;
  for (const host::Rule& rule : subject.additions.rules.rules) {
    keys.push_back(host::ruleKey(rule.id));
  }
  return keys;
}

std::vector<std::string> presetKeys(const AdditionSubject& subject) {
  std::vector<std::string> keys;
  for (const host::Preset& preset : subject.additions.presets) {
    keys.push_back(host::presetKey(preset.name));
  }
  return keys;
}

std::vector<std::string> panelKeys(const AdditionSubject& subject) {
  std::vector<std::string> keys;
  for (const host::Panel& panel : subject.additions.panels) {
    keys.push_back(host::panelKey(panel.name));
  }
  return keys;
}

std::vector<std::string> optionKeys(const std::string& feature, const FeatureRow& row) {
  std::vector<std::string> keys;
  for (const std::string& option : row.options) keys.push_back(host::optionKey(feature, option));
  return keys;
}

void add(std::set<std::string>& keys, const std::vector<std::string>& more) {
  keys.insert(more.begin(), more.end());
}

// What features are switches of has a text of its own.
std::vector<std::string> switchKeys(const AdditionSubject& subject) {
  std::vector<std::string> keys;
  for (const auto& [name, row] : subject.features.features()) {
    if (const auto parts = host::switchNameOf(name, row.options)) keys.push_back(parts->thing);
  }
  return keys;
}

// All that can have a text.
std::set<std::string> allKeys(const AdditionSubject& subject) {
  std::set<std::string> keys = subject.features.groups();
  for (const auto& [name, row] : subject.features.features()) {
    keys.insert(name);
    add(keys, optionKeys(name, row));
  }
  add(keys, ruleKeys(subject));
  add(keys, presetKeys(subject));
  add(keys, panelKeys(subject));
  add(keys, switchKeys(subject));
  return keys;
}

// What people see, in the order in which it is listed.
std::vector<std::string> wantedKeys(const AdditionSubject& subject) {
  std::vector<std::string> keys;
  for (const auto& [name, row] : subject.features.features()) {
    if (!row.isVisible) continue;
    keys.push_back(name);
    const std::vector<std::string> options = optionKeys(name, row);
    keys.insert(keys.end(), options.begin(), options.end());
  }
  for (const auto& more : {ruleKeys(subject), presetKeys(subject), panelKeys(subject)}) {
    keys.insert(keys.end(), more.begin(), more.end());
  }
  return keys;
}

// The keys among which a misspelt one is looked for: those of its kind.
std::vector<std::string> keysLike(const AdditionSubject& subject, const std::string& key) {
  if (key.starts_with(kRulePrefix)) return ruleKeys(subject);
  if (key.starts_with(kPresetPrefix)) return presetKeys(subject);
  if (key.starts_with(kPanelPrefix)) return panelKeys(subject);
  for (std::size_t dot = key.find('.'); dot != std::string::npos; dot = key.find('.', dot + 1)) {
    const std::string name = key.substr(0, dot);
    if (const FeatureRow* row = subject.features.find(name)) return optionKeys(name, *row);
  }
  std::vector<std::string> names = subject.features.names();
  names.insert(names.end(), subject.features.groups().begin(), subject.features.groups().end());
  const std::vector<std::string> switches = switchKeys(subject);
  names.insert(names.end(), switches.begin(), switches.end());
  return names;
}

void checkTexts(const AdditionSubject& subject, const host::TextsOfLanguage& language,
                const std::set<std::string>& keys, std::set<std::string>& known,
                Findings& findings) {
  for (const host::Text& text : language.texts) {
    const std::string key = host::inQuotes(text.key);
    if (!keys.contains(text.key)) {
      findings.push_back(findingAt(
          subject, Code::kTextForNothing, text.place, "there is nothing with the key " + key,
          didYouMean(
              text.key, keysLike(subject, text.key),
              "give a feature or group, FEATURE.OPTION, rule:ID, preset:NAME or panel:NAME")));
    } else if (!known.insert(text.key).second) {
      findings.push_back(findingAt(subject, Code::kRepeatedText, text.place,
                                   "this language already has a text for " + key,
                                   "remove one of the two"));
    } else if (text.text.empty()) {
      findings.push_back(findingAt(subject, Code::kEmptyText, text.place,
                                   "the text for " + key + " is empty",
                                   "give a text, or remove it"));
    }
  }
}

// The texts of one language, which may be in several places.
struct Language {
  host::SourcePlace place;
  std::set<std::string> keys;
};

// The attribute Text is in the description's own language, which is the first.
void addOwnTexts(const AdditionSubject& subject, std::map<std::string, Language>& languages) {
  auto& keys = languages[host::plainTag(subject.additions.texts.front().language)].keys;
  for (const host::Rule& rule : subject.additions.rules.rules) {
    if (!rule.text.empty()) keys.insert(host::ruleKey(rule.id));
  }
  for (const host::Preset& preset : subject.additions.presets) {
    if (!preset.text.empty()) keys.insert(host::presetKey(preset.name));
  }
  for (const host::Panel& panel : subject.additions.panels) {
    if (!panel.text.empty()) keys.insert(host::panelKey(panel.name));
  }
}

std::map<std::string, Language> languagesOf(const AdditionSubject& subject) {
  std::map<std::string, Language> languages;
  for (const host::TextsOfLanguage& texts : subject.additions.texts) {
    const auto [language, isNew] =
        languages.try_emplace(host::plainTag(texts.language), Language{texts.place, {}});
    for (const host::Text& text : texts.texts) {
      if (!text.text.empty()) language->second.keys.insert(text.key);
    }
  }
  if (!languages.empty()) addOwnTexts(subject, languages);
  return languages;
}

// "12 of 40 texts: A, B, ..."; empty when none is missing.
std::string missingTexts(const std::vector<std::string>& wanted,
                         const std::set<std::string>& there) {
  std::vector<std::string> missing;
  for (const std::string& key : wanted) {
    if (!there.contains(key)) missing.push_back(key);
  }
  if (missing.empty()) return "";
  return std::to_string(missing.size()) + " of " +
         host::counted(static_cast<long>(wanted.size()), "text") + ": " + host::listed(missing);
}

void checkAskedLanguage(const AdditionSubject& subject,
                        const std::map<std::string, Language>& languages, Findings& findings) {
  const std::string tag = host::plainTag(subject.language);
  const Language* own = nullptr;
  std::set<std::string> keys;
  // People of a region see the texts of the language, too.
  for (const std::string& name : {tag, host::withoutRegion(tag)}) {
    const auto found = languages.find(name);
    if (found == languages.end()) continue;
    if (own == nullptr) own = &found->second;
    keys.insert(found->second.keys.begin(), found->second.keys.end());
  }
  const std::string missing = missingTexts(wantedKeys(subject), keys);
  if (missing.empty()) return;
  findings.push_back(findingAt(
      subject, Code::kIncompleteLanguage,
      own != nullptr ? own->place : host::SourcePlace{subject.document.path(), {}},
      "language " + host::inQuotes(subject.language) + " lacks " + missing,
      own != nullptr ? "add them"
                     : "add <FeatureTexts Language=" + host::inQuotes(subject.language) + ">"));
}

// A region's texts are those that differ from the language's.
bool isRegion(const std::map<std::string, Language>& languages, const std::string& name) {
  const std::string whole = host::withoutRegion(name);
  return whole != name && languages.contains(whole);
}

}  // namespace

void checkTranslations(const AdditionSubject& subject, Findings& findings) {
  const std::map<std::string, Language> languages = languagesOf(subject);
  if (!subject.language.empty()) checkAskedLanguage(subject, languages, findings);
  if (languages.empty()) return;
  const std::set<std::string> keys = allKeys(subject);
  std::map<std::string, std::set<std::string>> known;
  for (const host::TextsOfLanguage& language : subject.additions.texts) {
    checkTexts(subject, language, keys, known[host::plainTag(language.language)], findings);
  }
  std::set<std::string> wanted;
  for (const auto& [name, language] : languages) {
    for (const std::string& key : language.keys) {
      if (keys.contains(key)) wanted.insert(key);
    }
  }
  for (const auto& [name, language] : languages) {
    const bool isAsked = name == host::plainTag(subject.language);
    if (isAsked || language.keys.empty() || isRegion(languages, name)) continue;
    const std::string missing = missingTexts({wanted.begin(), wanted.end()}, language.keys);
    if (missing.empty()) continue;
    findings.push_back(findingAt(subject, Code::kMissingTexts, language.place,
                                 "language " + host::inQuotes(name) + " lacks " + missing,
                                 "add them, or leave them to the first language"));
  }
}

}  // namespace driver_feature::check
