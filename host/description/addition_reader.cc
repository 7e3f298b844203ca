#include "host/description/addition_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "AttributeMap.h"
#include "XMLDocument.h"

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/description/xml_element.h"

namespace driver_feature::host {

namespace {

std::string tagged(void* element) {
  return "<" + tagOf(element) + ">";
}

std::string meant(const std::string& wanted, const std::vector<std::string>& names,
                  const std::string& otherwise) {
  const auto nearest = nearestName(wanted, names);
  return nearest ? "did you mean \"" + *nearest + "\"?" : otherwise;
}

// A sentence may be broken into lines, which say nothing about how it is shown.
std::string joinedLines(const std::string& text) {
  std::string joined;
  for (const char character : text) {
    const bool isBlank = std::string_view(" \t\r\n").find(character) != std::string_view::npos;
    if (!isBlank) {
      joined += character;
    } else if (!joined.empty() && joined.back() != ' ') {
      joined += ' ';
    }
  }
  if (joined.ends_with(' ')) joined.pop_back();
  return joined;
}

std::optional<double> numberOf(const std::string& text) {
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
  if (error != std::errc() || rest != end || !std::isfinite(number)) return std::nullopt;
  return number;
}

}  // namespace

void AdditionReader::refuse(void* element, const char* cause, std::string text,
                            std::string remedy) {
  additions_.problems.push_back({Problem::Kind::kMalformed, std::move(text), std::move(remedy),
                                 cause, file_, places_.of(element)});
}

bool AdditionReader::readAttributes(void* element, Names known, Names required) {
  AttributeMap map;
  pParserInstance->attributes(element, map);
  attributeCount_ = static_cast<std::size_t>(map.size());
  if (attributes_.size() < attributeCount_) attributes_.resize(attributeCount_);
  for (std::size_t i = 0; i < attributeCount_; ++i) {
    map.fetchAttributeValueByIndex(static_cast<long>(i), attributes_[i].first,
                                   attributes_[i].second);
  }
  const auto isKnown = [&known](const std::string& name) {
    return std::any_of(known.begin(), known.end(), [&](const char* row) { return name == row; });
  };
  for (std::size_t i = 0; i < attributeCount_; ++i) {
    const std::string& name = attributes_[i].first;
    // Attributes of other namespaces are free everywhere.
    if (isKnown(name) || name.find(':') != std::string::npos || name == "xmlns") continue;
    const std::vector<std::string> names(known.begin(), known.end());
    const char* one = names.size() > 1 ? "one of " : "";
    const std::string remedy =
        names.empty() ? "remove it" : "use " + (one + listed(names)) + ", or remove it";
    additions_.problems.push_back(
        {Problem::Kind::kMalformed, tagged(element) + " has no attribute " + inQuotes(name),
         meant(name, names, remedy), kUnknownAttributeCause, file_, places_.of(element, name)});
  }
  bool isComplete = true;
  for (const char* wanted : required) {
    if (has(wanted)) continue;
    isComplete = false;
    refuse(element, kMissingAttributeCause, tagged(element) + " has no " + wanted,
           std::string("give ") + wanted);
  }
  return isComplete;
}

const std::string* AdditionReader::find(const char* attribute) const {
  for (std::size_t i = 0; i < attributeCount_; ++i) {
    if (attributes_[i].first == attribute) return &attributes_[i].second;
  }
  return nullptr;
}

const std::string& AdditionReader::text(const char* attribute) const {
  static const std::string kNone;
  const std::string* found = find(attribute);
  return found != nullptr ? *found : kNone;
}

bool AdditionReader::has(const char* attribute) const {
  return !text(attribute).empty();
}

bool AdditionReader::isGiven(const char* attribute) const {
  return find(attribute) != nullptr;
}

std::optional<double> AdditionReader::number(void* element, const char* attribute) {
  const std::string& value = text(attribute);
  const auto number = numberOf(value);
  if (!number && isGiven(attribute)) {
    additions_.problems.push_back(
        {Problem::Kind::kMalformed,
         std::string(attribute) + " is " + inQuotes(value) + ", which is not a number",
         "give a decimal number such as 4.2", kNoNumberCause, file_,
         places_.of(element, attribute)});
  }
  return number;
}

void AdditionReader::refuseChild(void* child, void* parent, const std::vector<std::string>& names) {
  const std::string remedy =
      names.empty() ? "remove it" : "use <" + join(names, "> or <") + ">, or remove it";
  refuse(child, kUnknownElementCause, tagged(parent) + " cannot have an element " + tagged(child),
         meant(tagOf(child), names, remedy));
}

void AdditionReader::refuseChildren(void* element) {
  forEachChild(element, [&](void* child) { refuseChild(child, element, {}); });
}

void AdditionReader::readRules(void* element) {
  readAttributes(element, {}, {});
  forEachChild(element, [&](void* child) {
    const std::string tag = tagOf(child);
    if (tag == "Never") return readRule(child);
    if (tag == "Hardware") return readHardware(child);
    refuseChild(child, element, {"Never", "Hardware"});
  });
}

void AdditionReader::readHardware(void* element) {
  refuseChildren(element);
  if (!readAttributes(element, {"Feature"}, {"Feature"})) return;
  additions_.rules.hardware.push_back({text("Feature"), placeOf(element, "Feature")});
}

void AdditionReader::readRule(void* element) {
  bool isComplete = readAttributes(element, {"Id", "Text"}, {"Id"});
  Rule rule{text("Id"), text("Text"), {}, placeOf(element, "Id")};
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "When") {
      isComplete = false;
      return refuseChild(child, element, {"When"});
    }
    Condition condition;
    isComplete = readCondition(child, condition) && isComplete;
    rule.conditions.push_back(std::move(condition));
  });
  if (rule.conditions.empty() && isComplete) {
    refuse(element, kNoConditionCause,
           "rule " + inQuotes(rule.id) + " has no condition, and would forbid everything",
           "give it a <When>, or remove it");
    return;
  }
  if (isComplete) additions_.rules.rules.push_back(std::move(rule));
}

bool AdditionReader::readCondition(void* element, Condition& condition) {
  if (!readAttributes(element, {"Feature", "Is", "IsNot", "Above", "Below"}, {"Feature"})) {
    return false;
  }
  condition.feature = text("Feature");
  condition.place = placeOf(element, "Feature");
  struct Form {
    const char* name;
    Condition::Kind kind;
  };
  constexpr Form kForms[] = {{"Is", Condition::Kind::kIs},
                             {"IsNot", Condition::Kind::kIsNot},
                             {"Above", Condition::Kind::kAbove},
                             {"Below", Condition::Kind::kBelow}};
  int forms = pParserInstance->firstChild(element) != nullptr ? 1 : 0;
  bool isNumber = false;
  for (const Form& form : kForms) {
    if (!isGiven(form.name)) continue;
    ++forms;
    condition.kind = form.kind;
    isNumber = form.kind == Condition::Kind::kAbove || form.kind == Condition::Kind::kBelow;
    if (!isNumber && !has(form.name)) {
      refuse(element, kMissingAttributeCause,
             "the condition on " + inQuotes(condition.feature) + " has an empty " + form.name,
             "give the name of an option");
      return false;
    }
    if (!isNumber) {
      condition.choices = {text(form.name)};
      condition.choicePositions = {places_.of(element, form.name)};
    } else if (const auto value = number(element, form.name)) {
      condition.number = *value;
    } else {
      return false;
    }
  }
  if (forms == 1)
    return (!condition.choices.empty() || isNumber) || readChoices(element, condition);
  refuse(element, kConditionFormCause,
         "the condition on " + inQuotes(condition.feature) + " says " +
             (forms == 0 ? "nothing about its value" : "more than one thing about its value"),
         forms == 0 ? "give Is, IsNot, Above or Below, or elements <Is Choice=\"...\"/>"
                    : "give one of them, and the others in conditions of their own");
  return false;
}

bool AdditionReader::readChoices(void* element, Condition& condition) {
  bool isComplete = true;
  std::string first;
  forEachChild(element, [&](void* child) {
    const std::string tag = tagOf(child);
    if (tag != "Is" && tag != "IsNot") {
      isComplete = false;
      return refuseChild(child, element, {"Is", "IsNot"});
    }
    if (first.empty()) first = tag;
    if (tag != first) {
      isComplete = false;
      return refuse(child, kConditionFormCause,
                    "the condition on " + inQuotes(condition.feature) + " mixes <Is> and <IsNot>",
                    "use one of them; IsNot means none of its choices");
    }
    refuseChildren(child);
    if (!readAttributes(child, {"Choice"}, {"Choice"})) return void(isComplete = false);
    condition.choices.push_back(text("Choice"));
    condition.choicePositions.push_back(places_.of(child, "Choice"));
  });
  condition.kind = first == "IsNot" ? Condition::Kind::kIsNot : Condition::Kind::kIs;
  return isComplete;
}

void AdditionReader::readTexts(void* element) {
  if (!readAttributes(element, {"Language"}, {"Language"})) return;
  TextsOfLanguage language{text("Language"), {}, placeOf(element, "Language")};
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "Text") return refuseChild(child, element, {"Text"});
    readText(child, language);
  });
  additions_.texts.push_back(std::move(language));
}

void AdditionReader::readText(void* element, TextsOfLanguage& language) {
  refuseChildren(element);
  if (!readAttributes(element, {"For"}, {"For"})) return;
  const XMLContent content = XMLDocument::contentOf(element);
  language.texts.push_back({text("For"), joinedLines(content.text), placeOf(element, "For")});
}

void AdditionReader::readPresets(void* element) {
  readAttributes(element, {}, {});
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "Preset") return refuseChild(child, element, {"Preset"});
    readPreset(child);
  });
}

void AdditionReader::readPreset(void* element) {
  refuseChildren(element);
  if (!readAttributes(element, {"Name", "Text"}, {"Name"})) return;
  XMLContent content = XMLDocument::contentOf(element);
  const int line = places_.lineOf(element, content);
  additions_.presets.push_back({text("Name"),
                                text("Text"),
                                std::move(content.text),
                                placeOf(element, "Name"),
                                {file_, {line, 0}}});
}

void AdditionReader::readMedia(void* element) {
  if (!readAttributes(element, {"Feature", "Default"}, {"Feature"})) return;
  MediaSizes& media = additions_.media;
  const std::string feature = text("Feature");
  if (!media.feature.empty() && media.feature != feature) {
    return refuse(element, kSecondMediaCause,
                  "a second feature, " + inQuotes(feature) + ", chooses the page size beside " +
                      inQuotes(media.feature),
                  "give the sizes of one feature");
  }
  if (media.feature.empty()) media.place = placeOf(element, "Feature");
  media.feature = feature;
  if (has("Default")) media.usual = text("Default");
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "Size") return refuseChild(child, element, {"Size"});
    readSize(child);
  });
}

void AdditionReader::readSize(void* element) {
  refuseChildren(element);
  struct Row {
    const char* attribute;
    double MediaSize::*member;
  };
  constexpr Row kRows[] = {{"Width", &MediaSize::width},       {"Height", &MediaSize::height},
                           {"LeftMargin", &MediaSize::left},   {"BottomMargin", &MediaSize::bottom},
                           {"RightMargin", &MediaSize::right}, {"TopMargin", &MediaSize::top}};
  if (!readAttributes(
          element,
          {"Option", "Width", "Height", "LeftMargin", "BottomMargin", "RightMargin", "TopMargin"},
          {"Option", "Width", "Height"})) {
    return;
  }
  MediaSize size;
  size.option = text("Option");
  size.place = placeOf(element, "Option");
  bool isComplete = true;
  for (const Row& row : kRows) {
    const auto value = number(element, row.attribute);
    if (value) size.*row.member = *value;
    isComplete = isComplete && (value || !isGiven(row.attribute));
  }
  if (isComplete) additions_.media.sizes.push_back(std::move(size));
}

}  // namespace driver_feature::host
