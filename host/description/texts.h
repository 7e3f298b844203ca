// Names and sentences for people, by language.
#ifndef HOST_DESCRIPTION_TEXTS_H_
#define HOST_DESCRIPTION_TEXTS_H_

#include <map>
#include <string>
#include <vector>

#include "host/description/rules.h"

namespace driver_feature::host {

// A text, and the thing that it is for: "Duplex" for a feature, a group or what
// features are switches of, "Duplex.None" for an option, "rule:ID", "preset:NAME" and
// "panel:NAME".
struct Text {
  std::string key;
  std::string text;
  SourcePlace place = {};
};

struct TextsOfLanguage {
  std::string language;     // A tag such as "de" or "zh-TW".
  std::vector<Text> texts;  // In the order of the description.
  SourcePlace place = {};
};

// The key of an option's text, of a rule's, of a preset's and of a panel's. Those of features
// and groups are their names.
std::string optionKey(const std::string& feature, const std::string& option);
std::string ruleKey(const std::string& id);
std::string presetKey(const std::string& name);
std::string panelKey(const std::string& name);

// Tags as they are compared: "de-at" of "de-AT", "de_AT" and "de_AT.UTF-8".
std::string plainTag(const std::string& language);

// "de" of "de-AT" and "de_AT".
std::string withoutRegion(const std::string& language);

// The texts of one language, and of those that stand in for it: first the
// language without its region, then the first language of the description.
class TextLookUp {
 public:
  // An empty language means the first one of the description.
  TextLookUp(const std::vector<TextsOfLanguage>& languages, const std::string& language);

  // The text for a key; `otherwise` when no language has one.
  std::string textOf(const std::string& key, const std::string& otherwise) const;

 private:
  std::map<std::string, std::string> texts_;
};

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_TEXTS_H_
