#include "host/description/addition_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "AttributeMap.h"

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

}  // namespace driver_feature::host
