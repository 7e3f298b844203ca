#include "programs/driver_feature/show/limits_view.h"

#include <cmath>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::ordered_json;

// Moves the neighbours among the characters from `first` to `last` out of
// `present` into ranges.
void takeRanges(unsigned char first, unsigned char last, std::vector<bool>& present,
                std::vector<std::string>& ranges) {
  constexpr int kShortest = 4;
  for (int start = first; start <= last; ++start) {
    int end = start;
    while (end <= last && present[static_cast<std::size_t>(end)]) ++end;
    if (end - start >= kShortest) {
      ranges.push_back({static_cast<char>(start), '-', static_cast<char>(end - 1)});
      for (int i = start; i < end; ++i) present[static_cast<std::size_t>(i)] = false;
    }
    if (end > start) start = end - 1;
  }
}

}  // namespace

std::string characterSetText(const std::string& characters) {
  std::vector<bool> present(256);
  for (const char character : characters) present[static_cast<unsigned char>(character)] = true;
  std::vector<std::string> ranges;
  takeRanges('A', 'Z', present, ranges);
  takeRanges('a', 'z', present, ranges);
  takeRanges('0', '9', present, ranges);
  if (ranges.empty()) return "\"" + characters + "\"";
  std::string others;
  for (const std::string_view character : host::splitCharacters(characters)) {
    const auto code = static_cast<unsigned char>(character.front());
    if (!present[code]) continue;
    others += character;
    if (character.size() == 1) present[code] = false;  // One that is given twice is shown once.
  }
  return host::join(ranges, " ") + (others.empty() ? "" : " and \"" + others + "\"");
}

std::vector<std::string> limitTexts(const host::FeatureLimits& limits) {
  std::vector<std::string> texts;
  for (std::string range : {host::rangeText(limits.intMin, limits.intMax),
                            host::rangeText(limits.floatMin, limits.floatMax)}) {
    if (!range.empty()) texts.push_back(std::move(range));
  }
  if (limits.maxTextLength) {
    texts.push_back("at most " + std::to_string(*limits.maxTextLength) + " characters");
  }
  if (!limits.allowedCharacters.empty()) {
    texts.push_back("only " + characterSetText(limits.allowedCharacters));
  }
  return texts;
}

nlohmann::ordered_json floatJson(float number) {
  if (!std::isfinite(number)) return nullptr;
  return Json::parse(host::numberText(number)).get<double>();
}

nlohmann::ordered_json limitsJson(const host::FeatureLimits& limits) {
  Json json = Json::object();
  if (limits.intMin) json["minimum"] = *limits.intMin;
  if (limits.intMax) json["maximum"] = *limits.intMax;
  if (limits.floatMin) json["minimum"] = floatJson(*limits.floatMin);
  if (limits.floatMax) json["maximum"] = floatJson(*limits.floatMax);
  if (limits.maxTextLength) json["maximumLength"] = *limits.maxTextLength;
  if (!limits.allowedCharacters.empty()) json["characters"] = limits.allowedCharacters;
  return json;
}

}  // namespace driver_feature::cli
