#include "host/ipp/words.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/base/text.h"

namespace driver_feature::ipp {

namespace {

constexpr std::size_t kLongestKeyword = 255;
constexpr std::size_t kLongestMade = 200;  // Leaves room for prefixes and numbers.

bool isSmall(char letter) {
  return letter >= 'a' && letter <= 'z';
}
bool isCapital(char letter) {
  return letter >= 'A' && letter <= 'Z';
}
bool isDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

// Whether a word begins at this capital letter: after a small letter or a digit,
// and where a row of capitals ends, as in "PJLCommand".
bool beginsWord(std::string_view name, std::size_t at) {
  if (at == 0 || !isCapital(name[at])) return false;
  if (isSmall(name[at - 1]) || isDigit(name[at - 1])) return true;
  return isCapital(name[at - 1]) && at + 1 < name.size() && isSmall(name[at + 1]);
}

template <class Number>
std::optional<Number> numberIn(std::string_view text) {
  Number number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

std::string withoutHyphensAtEnds(const std::string& text) {
  return std::string(host::trimmed(text, "-"));
}

}  // namespace

bool isKeyword(std::string_view text) {
  const auto isAllowed = [](char letter) {
    return isSmall(letter) || isDigit(letter) || letter == '-' || letter == '.' || letter == '_';
  };
  return !text.empty() && text.size() <= kLongestKeyword && isSmall(text.front()) &&
         std::all_of(text.begin(), text.end(), isAllowed);
}

std::string keywordFor(std::string_view name) {
  std::string words;
  if (name.starts_with('+')) words = "plus-";
  if (name.starts_with('-')) words = "minus-";
  for (std::size_t at = 0; at < name.size() && words.size() < kLongestMade; ++at) {
    const char letter = host::toLower(name[at]);
    const bool isPlain = isSmall(letter) || isDigit(letter) || letter == '.' || letter == '_';
    if (beginsWord(name, at)) words += '-';
    if (isPlain) {
      words += letter;
    } else if (!words.ends_with('-')) {
      words += '-';
    }
  }
  std::string keyword;
  for (const char letter : words) {
    if (letter != '-' || !keyword.ends_with('-')) keyword += letter;
  }
  keyword = withoutHyphensAtEnds(keyword);
  if (keyword.empty()) return "unnamed";
  return isSmall(keyword.front()) ? keyword : "n-" + keyword;
}

std::string bareName(std::string_view name) {
  std::string bare;
  for (const char letter : name) {
    if (std::string_view(" -._").find(letter) == std::string_view::npos) {
      bare += host::toLower(letter);
    }
  }
  return bare;
}

bool isAmong(std::string_view words, std::string_view word) {
  while (!words.empty() && !word.empty()) {
    const std::string_view next = words.substr(0, words.find(' '));
    if (next == word) return true;
    words.remove_prefix(std::min(next.size() + 1, words.size()));
  }
  return false;
}

std::optional<int> integerIn(std::string_view text) {
  return numberIn<int>(text);
}

std::optional<double> decimalIn(std::string_view text) {
  const auto number = numberIn<double>(text);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

std::string DistinctWords::add(const std::string& word) {
  const auto [same, isNew] = words_.try_emplace(word, 1);
  if (isNew) return word;
  for (;;) {
    std::string distinct = word + "-" + std::to_string(++same->second);
    if (words_.try_emplace(distinct, 1).second) return distinct;
  }
}

}  // namespace driver_feature::ipp
