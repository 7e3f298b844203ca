#include "host/ipp/strings.h"

#include <set>
#include <utility>

#include "host/ipp/finishings.h"

namespace driver_feature::ipp {

namespace {

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') result += '\\';
    if (letter == '\n') {
      result += "\\n";
    } else {
      result += letter;
    }
  }
  return result + "\"";
}

// The texts of a language and of those that stand in for it.
class LookUp {
 public:
  LookUp(const Capabilities& all, const std::string& language) {
    take(all, language);
    take(all, language.substr(0, language.find('-')));
    for (const LanguageCapability& each : all.languages) {
      if (each.language.empty()) continue;
      sources_.push_back(&each);
      break;
    }
    for (const LanguageCapability& each : all.languages) {
      if (each.language.empty()) sources_.push_back(&each);
    }
  }

  std::string textOf(const std::string& key, const std::string& otherwise) const {
    for (const LanguageCapability* source : sources_) {
      const auto text = source->texts.find(key);
      if (text != source->texts.end()) return text->second;
    }
    return otherwise;
  }

 private:
  void take(const Capabilities& all, const std::string& language) {
    for (const LanguageCapability& each : all.languages) {
      if (!language.empty() && each.language == language) sources_.push_back(&each);
    }
  }

  std::vector<const LanguageCapability*> sources_;
};

class StringsWriter {
 public:
  StringsWriter(const LookUp& texts, const AttributeTable& table) : texts_(texts), table_(table) {}

  std::string run() {
    for (const JobAttribute& attribute : table_.attributes) addAttribute(attribute);
    for (const JobAttribute& attribute : table_.hardware) addAttribute(attribute);
    for (const MediaEntry& entry : table_.media) {
      if (entry.choice == nullptr || table_.size == nullptr) continue;
      addText("media." + entry.keyword, table_.size->name + "." + entry.choice->name,
              entry.isSecond ? entry.choice->name : "");
    }
    for (const FinishingEntry& entry : table_.finishings) {
      const std::string key = entry.feature->name + "." + entry.choice;
      addText("finishings." + std::to_string(entry.number), key, "");
      addText("finishing-template." + finishingKeyword(entry.number), key, "");
    }
    for (const PresetEntry& entry : table_.presets) {
      const std::string& name = entry.preset->name;
      addText("preset-name." + entry.keyword, "preset:" + name, name);
      addText("finishing-template." + entry.keyword, "preset:" + name, name);
    }
    return std::move(lines_);
  }

 private:
  void addAttribute(const JobAttribute& attribute) {
    if (attribute.feature == nullptr) return;
    const FeatureCapability& feature = *attribute.feature;
    const bool isOwn = attribute.name.starts_with("x-");
    addText(attribute.name, feature.name, isOwn ? feature.name : "");
    for (const WordValue& value : attribute.values) {
      if (value.choice.empty()) continue;
      addText(attribute.name + "." + value.word, feature.name + "." + value.choice,
              isOwn ? value.choice : "");
    }
  }

  // Nothing without a text.
  void addText(const std::string& name, const std::string& key, const std::string& otherwise) {
    const std::string text = texts_.textOf(key, otherwise);
    if (text.empty() || !names_.insert(name).second) return;
    lines_ += quoted(name) + " = " + quoted(text) + ";\n";
  }

  const LookUp& texts_;
  const AttributeTable& table_;
  std::set<std::string> names_;
  std::string lines_;
};

}  // namespace

std::vector<std::string> languagesOf(const Capabilities& all) {
  std::vector<std::string> languages;
  for (const LanguageCapability& each : all.languages) {
    if (!each.language.empty()) languages.push_back(each.language);
  }
  if (languages.empty()) languages.emplace_back("en");
  return languages;
}

std::string stringsOf(const Capabilities& all, const AttributeTable& table,
                      const std::string& language) {
  return StringsWriter(LookUp(all, language), table).run();
}

}  // namespace driver_feature::ipp
