#include "host/ipp/attribute_table.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "host/ipp/finishings.h"
#include "host/ipp/media_table.h"
#include "host/ipp/preset_names.h"
#include "host/ipp/standard_rows.h"
#include "host/ipp/taken_names.h"
#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

class TableWriter {
 public:
  explicit TableWriter(const Capabilities& all) : all_(all) {}

  AttributeTable run() {
    addMedia(table_, all_);
    for (const StandardRow& row : standardRows()) addStandard(row);
    addCopies();
    addPassword();
    addFinishings(table_, all_);
    for (const FeatureCapability& feature : all_.features) {
      if (feature.isHardware) {
        addHardware(feature);
      } else if (!isCarried(feature)) {
        table_.attributes.push_back(ownAttribute(feature));
      }
    }
    addPresetEntries(table_, all_);
    return std::move(table_);
  }

 private:
  // The feature that the description calls so in tickets, or else the first that has
  // one of the names.
  const FeatureCapability* featureFor(const StandardRow& row) const {
    for (const FeatureCapability& feature : all_.features) {
      if (feature.ticketName == row.name && !feature.isHardware) return &feature;
    }
    for (std::string_view names = row.features; !names.empty();) {
      const std::string_view name = names.substr(0, names.find(' '));
      names.remove_prefix(std::min(name.size() + 1, names.size()));
      for (const FeatureCapability& feature : all_.features) {
        const bool isFree = feature.ticketName.empty() && !feature.isHardware;
        if (isFree && bareName(feature.name) == name) return &feature;
      }
    }
    return nullptr;
  }

  void addStandard(const StandardRow& row) {
    const FeatureCapability* feature = featureFor(row);
    if (feature != nullptr && !fits(row, *feature)) feature = nullptr;
    if (feature == nullptr && row.usual.empty()) return;
    JobAttribute attribute{std::string(row.name), row.syntax, row.isMediaMember, feature, {}, ""};
    if (feature != nullptr && feature->isList()) addWords(attribute, row);
    if (feature != nullptr && feature->isList() && attribute.values.empty()) {
      attribute.feature = nullptr;
    }
    if (attribute.feature == nullptr && row.usual.empty()) return;
    addUsual(attribute, row);
    table_.attributes.push_back(std::move(attribute));
  }

  // The default: the current value; what IPP asks for when there is none, which then
  // changes nothing.
  static void addUsual(JobAttribute& attribute, const StandardRow& row) {
    if (attribute.feature != nullptr && !attribute.feature->isList()) {
      attribute.usual = attribute.feature->value;
      return;
    }
    if (!attribute.usual.empty()) return;
    // Members of collections need no default, and a printer has no other resolutions.
    if (attribute.feature != nullptr && row.isMediaMember) return;
    const bool isResolution = row.syntax == Syntax::kResolution && !attribute.values.empty();
    attribute.usual = isResolution ? attribute.values.front().word : std::string(row.usual);
    if (attribute.usual.empty() || attribute.valueNamed(attribute.usual) != nullptr) return;
    attribute.values.insert(attribute.values.begin(), {attribute.usual, ""});
  }

  static bool fits(const StandardRow& row, const FeatureCapability& feature) {
    if (feature.isList()) return true;
    return feature.kind == host::FeatureKind::kIntEntry && row.syntax == Syntax::kInteger;
  }

  // Of choices with the same closed word the current one has it, or else the first.
  static void addWords(JobAttribute& attribute, const StandardRow& row) {
    DistinctWords words;
    for (const ChoiceCapability& choice : attribute.feature->choices) {
      if (choice.name == kNotSet) continue;
      std::optional<std::string> word = wordFor(row, choice);
      if (!word) continue;
      const bool isCurrent = choice.name == attribute.feature->value;
      const bool isOpen = !row.isClosed && row.syntax == Syntax::kKeyword;
      if (isOpen) word = words.add(*word);
      if (isCurrent) {
        std::erase_if(attribute.values, [&](const WordValue& v) { return v.word == *word; });
        attribute.usual = *word;
      }
      if (attribute.valueNamed(*word) == nullptr) attribute.values.push_back({*word, choice.name});
    }
  }

  void addCopies() {
    for (const FeatureCapability& feature : all_.features) {
      const bool isNamed =
          feature.name == "Copies" || feature.key == "copies" || feature.ticketName == "copies";
      if (isNamed && feature.kind == host::FeatureKind::kIntEntry && !feature.isHardware) {
        table_.copies = &feature;
        if (feature.name == "Copies") return;
      }
    }
  }

  // A secret text of digits.
  void addPassword() {
    for (const FeatureCapability& feature : all_.features) {
      const bool isText = feature.kind == host::FeatureKind::kTextEntry;
      const std::string& characters = feature.allowedCharacters;
      const bool isOfDigits =
          !characters.empty() && characters.find_first_not_of("0123456789") == std::string::npos;
      if (!isText || !feature.isEncrypted || !isOfDigits || feature.isHardware) continue;
      table_.password = &feature;
      return;
    }
  }

  bool isCarried(const FeatureCapability& feature) const {
    if (&feature == table_.copies || &feature == table_.password) return true;
    if (table_.custom && (&feature == table_.custom->width || &feature == table_.custom->height)) {
      return true;
    }
    if (feature.isList() && !feature.choices.empty() && !table_.finishings.empty() &&
        table_.noFinishing.contains(feature.name) && carriesAll(table_, feature)) {
      return true;
    }
    if (&feature == table_.size || &feature == table_.region) return isCarriedByMedia(feature);
    for (const JobAttribute& attribute : table_.attributes) {
      if (attribute.feature == &feature) return isCarriedBy(attribute);
    }
    return false;
  }

  static bool isCarriedBy(const JobAttribute& attribute) {
    const auto& choices = attribute.feature->choices;
    return std::all_of(choices.begin(), choices.end(), [&](const ChoiceCapability& choice) {
      return choice.name == kNotSet || attribute.valueOfChoice(choice.name) != nullptr;
    });
  }

  bool isCarriedByMedia(const FeatureCapability& feature) const {
    const auto isSize = [&](const ChoiceCapability& choice) {
      if (choice.name == kNotSet) return true;
      if (table_.custom && table_.custom->choice == choice.name) return true;
      return std::any_of(table_.media.begin(), table_.media.end(), [&](const MediaEntry& entry) {
        return entry.choice != nullptr && entry.choice->name == choice.name;
      });
    };
    return std::all_of(feature.choices.begin(), feature.choices.end(), isSize);
  }

  // An attribute of the description's own. Its values are those of tickets where these
  // fit the syntax, else keywords.
  JobAttribute ownAttribute(const FeatureCapability& feature) {
    JobAttribute attribute;
    attribute.feature = &feature;
    attribute.syntax = ownSyntax(feature);
    attribute.name = ownName(feature, attribute.syntax);
    attribute.usual = feature.value;
    if (feature.isList()) {
      attribute.usual.clear();
      addOwnWords(attribute);
    }
    return attribute;
  }

  // Jobs cannot set what the printer has.
  void addHardware(const FeatureCapability& feature) {
    JobAttribute attribute = ownAttribute(feature);
    attribute.name += "-configured";
    table_.hardware.push_back(std::move(attribute));
  }

  static Syntax ownSyntax(const FeatureCapability& feature) {
    if (feature.kind == host::FeatureKind::kIntEntry) return Syntax::kInteger;
    if (!feature.isList()) return Syntax::kName;
    std::set<std::string> words;
    bool areTruths = true;
    bool areNumbers = true;
    for (const ChoiceCapability& choice : feature.choices) {
      const std::string& word = choice.ticketName;
      if (!words.insert(word).second) return Syntax::kKeyword;
      areTruths = areTruths && (word == "true" || word == "false");
      areNumbers = areNumbers && integerIn(word).has_value();
    }
    if (areTruths && feature.syntax == "boolean") return Syntax::kBoolean;
    if (areNumbers && feature.syntax == "integer") return Syntax::kInteger;
    return Syntax::kKeyword;
  }

  std::string ownName(const FeatureCapability& feature, Syntax syntax) {
    const std::string& ticket = feature.ticketName;
    const bool isFree = isFreeAttributeName(ticket, syntax) && !names_.has(ticket);
    return names_.add(isFree ? ticket : "x-" + keywordFor(feature.name));
  }

  static void addOwnWords(JobAttribute& attribute) {
    DistinctWords words;
    for (const ChoiceCapability& choice : attribute.feature->choices) {
      const bool isCurrent = choice.name == attribute.feature->value;
      if (choice.name == kNotSet && !isCurrent) continue;
      std::string word = choice.ticketName;
      if (attribute.syntax == Syntax::kKeyword) {
        word = words.add(isKeyword(word) && !words.has(word) ? word : keywordFor(choice.name));
      }
      if (isCurrent) attribute.usual = word;
      attribute.values.push_back({word, choice.name});
    }
  }

  const Capabilities& all_;
  AttributeTable table_;
  DistinctWords names_;
};

}  // namespace

const WordValue* JobAttribute::valueNamed(const std::string& word) const {
  for (const WordValue& value : values) {
    if (value.word == word) return &value;
  }
  return nullptr;
}

const WordValue* JobAttribute::valueOfChoice(const std::string& choice) const {
  for (const WordValue& value : values) {
    if (value.choice == choice) return &value;
  }
  return nullptr;
}

const JobAttribute* AttributeTable::find(const std::string& name) const {
  for (const JobAttribute& attribute : attributes) {
    if (attribute.name == name) return &attribute;
  }
  return nullptr;
}

AttributeTable attributeTableOf(const Capabilities& all) {
  return TableWriter(all).run();
}

}  // namespace driver_feature::ipp
