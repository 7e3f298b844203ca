// Text features: their default, their length, and the characters that they may
// bring into a command.

#include <algorithm>
#include <iterator>

#include "host/base/text.h"
#include "host/check/rules.h"
#include "host/description/value_source.h"
#include "host/settings/value_place.h"

namespace driver_feature::check {

namespace {

constexpr const char* kSet = "TextValidationCharSet";
constexpr const char* kLength = "MaxTextLength";

void checkLength(const host::Element& feature, Findings& findings) {
  const auto length = intOf(feature, kLength);
  if (!length) return;
  if (*length <= 0) {
    findings.push_back({Code::kNoLengthLimit,
                        feature.positionOf(kLength),
                        "a MaxTextLength of " + feature.text(kLength) +
                            " does not limit the text of " + describeElement(feature),
                        "give 1 or more, or remove the attribute",
                        {}});
    return;
  }
  const std::size_t count = host::splitCharacters(feature.text("DefaultValue")).size();
  if (count <= static_cast<std::size_t>(*length)) return;
  findings.push_back({Code::kDefaultTooLong,
                      feature.positionOf("DefaultValue"),
                      "the default of " + describeElement(feature) + " has " +
                          std::to_string(count) + " characters, " +
                          std::to_string(count - static_cast<std::size_t>(*length)) +
                          " more than MaxTextLength allows",
                      "shorten DefaultValue or raise MaxTextLength",
                      {}});
}

void checkDefaultCharacters(const host::Element& feature, Findings& findings) {
  const std::string set = feature.text(kSet);
  if (set.empty()) return;
  const auto allowed = host::splitCharacters(set);
  const host::Attribute* attribute = feature.find("DefaultValue");
  if (attribute == nullptr) return;
  const std::string& value = attribute->value;
  for (const std::string_view character : host::splitCharacters(value)) {
    if (std::find(allowed.begin(), allowed.end(), character) != allowed.end()) continue;
    const auto offset = static_cast<std::size_t>(character.data() - value.data());
    findings.push_back({Code::kDefaultCharacters,
                        placeIn(*attribute, offset),
                        "the default of " + describeElement(feature) + " holds \"" +
                            host::printable(character) +
                            "\", which is not in TextValidationCharSet",
                        "remove the character or add it to the set",
                        {}});
    return;
  }
}

// Whether the two are the ends of a range of digits or letters that has more
// characters, of which the set does not hold one.
bool isRange(char first, char last, const std::string& set) {
  const auto isDigit = [](char letter) { return letter >= '0' && letter <= '9'; };
  const auto isSmall = [](char letter) { return letter >= 'a' && letter <= 'z'; };
  const auto isCapital = [](char letter) { return letter >= 'A' && letter <= 'Z'; };
  const bool areAlike = (isDigit(first) && isDigit(last)) || (isSmall(first) && isSmall(last)) ||
                        (isCapital(first) && isCapital(last));
  for (char inner = first; areAlike && ++inner < last;) {
    if (set.find(inner) == std::string::npos) return true;
  }
  return false;
}

void checkRanges(const host::Element& feature, Findings& findings) {
  const host::Attribute* attribute = feature.find(kSet);
  if (attribute == nullptr) return;
  const std::string& set = attribute->value;
  for (std::size_t i = 0; i + 2 < set.size(); ++i) {
    if (set[i + 1] != '-' || !isRange(set[i], set[i + 2], set)) continue;
    findings.push_back({Code::kCharacterRange,
                        placeIn(*attribute, i),
                        "TextValidationCharSet of " + describeElement(feature) + " takes \"" +
                            set.substr(i, 3) + "\" as three characters, not as a range",
                        "list all characters of the range",
                        {}});
    return;
  }
}

struct LanguageRow {
  const char* attribute;
  host::CommandLanguage language;
};

constexpr LanguageRow kLanguages[] = {{"PJLCommand", host::CommandLanguage::kPjl},
                                      {"PSCommand", host::CommandLanguage::kPostScript}};

// Where a command puts the feature's text. A group without one may have a
// routine that writes its members, and changes nothing here.
std::optional<host::TemplateValue> findText(const host::Element& feature, const LanguageRow& row) {
  std::vector<std::string> templates = {feature.text(row.attribute)};
  for (const host::Element* element = &feature; element->isMember();) {
    element = element->parent;
    if (element->has(row.attribute)) {
      templates.insert(templates.begin(), element->text(row.attribute));
    }
  }
  return findValue(row.language, templates);
}

const char* harmIn(host::ValuePlace place) {
  switch (place) {
    case host::ValuePlace::kPjlLineStart:
      return "an at sign, which begins a PJL command";
    case host::ValuePlace::kPjlString:
      return "a quotation mark, which ends the PJL string";
    case host::ValuePlace::kPostScriptToken:
      return "a delimiter, blank or byte beyond ASCII, which ends the PostScript token";
    case host::ValuePlace::kPostScriptString:
      return "a parenthesis or backslash, which can end the PostScript string";
    case host::ValuePlace::kPostScriptHexString:
    case host::ValuePlace::kPostScriptBase85String:
      return "a character that can end the encoded PostScript string";
    default:
      return nullptr;  // Control characters alone, which are reported once for all places.
  }
}

void checkHarm(const host::Element& feature, const std::string& set, Findings& findings) {
  const auto report = [&](const std::string& words, std::size_t offset) {
    findings.push_back({Code::kHarmfulCharacterSet,
                        placeIn(*feature.find(kSet), offset),
                        "TextValidationCharSet of " + describeElement(feature) + " allows " + words,
                        "remove it from the set",
                        {}});
  };
  const auto control = std::find_if(set.begin(), set.end(), host::isControlCharacter);
  if (control != set.end()) {
    report("a control character, which can end the command",
           static_cast<std::size_t>(control - set.begin()));
  }
  for (const LanguageRow& row : kLanguages) {
    const auto text = findText(feature, row);
    if (!text || harmIn(text->place) == nullptr) continue;
    const auto harm = std::find_if(set.begin(), set.end(), [&text](char character) {
      return !host::isControlCharacter(character) && findUnsafeByte(text->place, {&character, 1});
    });
    if (harm != set.end()) {
      report(harmIn(text->place), static_cast<std::size_t>(harm - set.begin()));
    }
  }
}

void checkCharacterSet(const host::Element& feature, Findings& findings) {
  const bool written = feature.has("PJLCommand") || feature.has("PSCommand") ||
                       feature.has("AddPJLCallbackRoutine") || feature.has("AddPSCallbackRoutine");
  if (!written) return;
  const std::string set = feature.text(kSet);
  if (!set.empty()) return checkHarm(feature, set, findings);
  findings.push_back({Code::kNoCharacterSet,
                      feature.positionOf(kSet),
                      "the text of " + describeElement(feature) +
                          " may hold any character, control characters included",
                      "list the characters that are safe in its commands in "
                      "TextValidationCharSet",
                      {}});
}

}  // namespace

void checkTexts(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    if (!element.isKind(host::FeatureKind::kTextEntry)) return;
    checkLength(element, findings);
    checkDefaultCharacters(element, findings);
    checkRanges(element, findings);
    checkCharacterSet(element, findings);
  });
}

}  // namespace driver_feature::check
