#include "host/ipp/ipp_values.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <type_traits>

#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

void addTexts(ipp_t* target, ipp_tag_t group, const std::string& name, ipp_tag_t tag,
              const std::vector<std::string>& words) {
  std::vector<const char*> texts;
  texts.reserve(words.size());
  for (const std::string& word : words) texts.push_back(word.c_str());
  ippAddStrings(target, group, tag, name.c_str(), static_cast<int>(texts.size()), nullptr,
                texts.data());
}

void addNumbers(ipp_t* target, ipp_tag_t group, const std::string& name, ipp_tag_t tag,
                const std::vector<std::string>& words) {
  std::vector<int> numbers;
  for (const std::string& word : words) {
    if (const auto number = integerIn(word)) numbers.push_back(*number);
  }
  addIntegers(target, group, name, tag, numbers);
}

void addResolutions(ipp_t* target, ipp_tag_t group, const std::string& name,
                    const std::vector<std::string>& words) {
  std::vector<int> across;
  std::vector<int> down;
  for (const std::string& word : words) {
    const std::size_t middle = word.find('x');
    const auto first = integerIn(word.substr(0, middle));
    const auto second = integerIn(word.substr(middle + 1, word.size() - middle - 4));
    if (!first || !second) continue;
    across.push_back(*first);
    down.push_back(*second);
  }
  if (across.empty()) return;
  ippAddResolutions(target, group, name.c_str(), static_cast<int>(across.size()), IPP_RES_PER_INCH,
                    across.data(), down.data());
}

void addBooleans(ipp_t* target, ipp_tag_t group, const std::string& name,
                 const std::vector<std::string>& words) {
  std::vector<char> truths;
  truths.reserve(words.size());
  for (const std::string& word : words) truths.push_back(word == "true" ? 1 : 0);
  // libcups takes the first one for whether the attribute is supported.
  std::sort(truths.rbegin(), truths.rend());
  ippAddBooleans(target, group, name.c_str(), static_cast<int>(truths.size()), truths.data());
}

// Clients that count in centimetres round: 236 is 600 to an inch, not 599.
int perInch(int perCentimetre) {
  constexpr int kMost = 1000000;
  if (perCentimetre > kMost) return kMost;
  const double inch = perCentimetre * 2.54;
  const double even = std::round(inch / 10) * 10;
  const double rounding = 1.5;
  return static_cast<int>(std::fabs(even - inch) <= rounding ? even : std::round(inch));
}

// A resolution in a unit that is not known is no resolution of a printer.
std::string resolutionText(ipp_attribute_t* attribute, int at) {
  int down = 0;
  ipp_res_t named = IPP_RES_PER_INCH;
  int across = ippGetResolution(attribute, at, &down, &named);
  // Any byte that the client has sent, which must not be read as one of the names.
  std::underlying_type_t<ipp_res_t> unit = 0;
  static_assert(sizeof unit == sizeof named);
  std::memcpy(&unit, &named, sizeof unit);
  if (unit == IPP_RES_PER_CM) {
    across = perInch(across);
    down = perInch(down);
  } else if (unit != IPP_RES_PER_INCH) {
    return "in an unknown unit";
  }
  return std::to_string(across) + "x" + std::to_string(down) + "dpi";
}

std::string rangeText(ipp_attribute_t* attribute, int at) {
  int upper = 0;
  const int lower = ippGetRange(attribute, at, &upper);
  return std::to_string(lower) + "-" + std::to_string(upper);
}

std::string octets(ipp_attribute_t* attribute, int at) {
  int length = 0;
  const void* bytes = ippGetOctetString(attribute, at, &length);
  if (bytes == nullptr || length <= 0) return "";
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(length)};
}

}  // namespace

void addWords(ipp_t* target, ipp_tag_t group, const std::string& name, Syntax syntax,
              const std::vector<std::string>& words) {
  if (words.empty()) return;
  switch (syntax) {
    case Syntax::kKeyword:
      return addTexts(target, group, name, IPP_TAG_KEYWORD, words);
    case Syntax::kName:
      return addTexts(target, group, name, IPP_TAG_NAME, words);
    case Syntax::kEnum:
      return addNumbers(target, group, name, IPP_TAG_ENUM, words);
    case Syntax::kInteger:
      return addNumbers(target, group, name, IPP_TAG_INTEGER, words);
    case Syntax::kBoolean:
      return addBooleans(target, group, name, words);
    case Syntax::kResolution:
      return addResolutions(target, group, name, words);
  }
}

void addKeywords(ipp_t* target, ipp_tag_t group, const std::string& name,
                 const std::vector<std::string>& words) {
  addWords(target, group, name, Syntax::kKeyword, words);
}

void addIntegers(ipp_t* target, ipp_tag_t group, const std::string& name, ipp_tag_t tag,
                 const std::vector<int>& numbers) {
  if (numbers.empty()) return;
  ippAddIntegers(target, group, tag, name.c_str(), static_cast<int>(numbers.size()),
                 numbers.data());
}

void addCollections(ipp_t* target, ipp_tag_t group, const std::string& name,
                    std::vector<ipp_t*> collections) {
  if (collections.empty()) return;
  std::vector<const ipp_t*> values(collections.begin(), collections.end());
  ippAddCollections(target, group, name.c_str(), static_cast<int>(values.size()), values.data());
  for (ipp_t* collection : collections) ippDelete(collection);
}

std::vector<std::string> wordsIn(ipp_attribute_t* attribute) {
  std::vector<std::string> words;
  const int count = ippGetCount(attribute);
  for (int at = 0; at < count; ++at) {
    switch (ippGetValueTag(attribute)) {
      case IPP_TAG_INTEGER:
      case IPP_TAG_ENUM:
        words.push_back(std::to_string(ippGetInteger(attribute, at)));
        break;
      case IPP_TAG_BOOLEAN:
        words.emplace_back(ippGetBoolean(attribute, at) != 0 ? "true" : "false");
        break;
      case IPP_TAG_RESOLUTION:
        words.push_back(resolutionText(attribute, at));
        break;
      case IPP_TAG_RANGE:
        words.push_back(rangeText(attribute, at));
        break;
      case IPP_TAG_STRING:
        words.push_back(octets(attribute, at));
        break;
      default:
        if (const char* text = ippGetString(attribute, at, nullptr)) words.emplace_back(text);
    }
  }
  return words;
}

IntegerRange rangeOf(const FeatureCapability& feature) {
  return {feature.intMin.value_or(INT_MIN), feature.intMax.value_or(INT_MAX)};
}

}  // namespace driver_feature::ipp
