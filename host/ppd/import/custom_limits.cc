#include "host/ppd/import/custom_limits.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string_view>
#include <system_error>

namespace driver_feature::ppd {

namespace {

// The limits as the file spells them; nothing when it has none.
struct LimitTexts {
  std::optional<std::string> least;
  std::optional<std::string> greatest;
};

LimitTexts textsOf(ppd_file_t& ppd, const char* keyword, const char* parameter) {
  const std::string name = std::string("ParamCustom") + keyword;
  const ppd_attr_t* attribute = ppdFindAttr(&ppd, name.c_str(), parameter);
  std::array<char, 65> least{};
  std::array<char, 65> greatest{};
  if (attribute == nullptr || attribute->value == nullptr ||
      std::sscanf(attribute->value, "%*d%*32s%64s%64s", least.data(), greatest.data()) != 2) {
    return {};
  }
  return {least.data(), greatest.data()};
}

// The number at the beginning of a text, infinity when it is too large; nothing
// when the text does not begin with digits, as "inf" does not.
std::optional<double> numberOf(std::string_view text) {
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  const std::size_t digit = text.starts_with('.') ? 1 : 0;
  if (digit >= text.size() || text[digit] < '0' || text[digit] > '9') return std::nullopt;
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc()) number = std::numeric_limits<double>::infinity();
  return isNegative ? -number : number;
}

// Whether the value that libcups has read is the one in the text.
bool isRead(const std::optional<std::string>& text, float value) {
  return std::isfinite(value) && (!text || numberOf(*text));
}

bool isRead(const std::optional<std::string>& text, int /*value*/) {
  if (!text) return true;
  const auto number = numberOf(*text);
  return number && *number >= std::numeric_limits<int>::min() &&
         *number <= std::numeric_limits<int>::max();
}

template <class Number>
std::optional<Number> limitOf(const std::optional<std::string>& text, Number value,
                              const std::string& title, Losses& losses) {
  if (isRead(text, value)) return value;
  losses.note(LossKind::kOption, "the limit " + text.value_or("inf") + " of " + title +
                                     ": it is not a number that fits");
  return std::nullopt;
}

template <class Number>
Limits<Number> limitsOf(const LimitTexts& texts, Number least, Number greatest,
                        const std::string& title, Losses& losses) {
  Limits<Number> limits;
  limits.least = limitOf(texts.least, least, title, losses);
  limits.greatest = limitOf(texts.greatest, greatest, title, losses);
  return limits;
}

template <class Number>
Limits<Number> withoutContradiction(const Limits<Number>& limits, const std::string& title,
                                    Losses& losses) {
  if (!limits.least || !limits.greatest || *limits.least <= *limits.greatest) return limits;
  losses.note(LossKind::kOption, "the limits of " + title + ": the least is above the greatest");
  return {};
}

}  // namespace

std::string parameterTitle(const ppd_option_t& option, const char* parameter) {
  return std::string("*ParamCustom") + option.keyword + " " + parameter;
}

Limits<float> realLimits(ppd_file_t& ppd, const ppd_option_t& option, const ppd_cparam_t& parameter,
                         Losses& losses) {
  const std::string title = parameterTitle(option, parameter.name);
  return withoutContradiction(
      limitsOf(textsOf(ppd, option.keyword, parameter.name), parameter.minimum.custom_real,
               parameter.maximum.custom_real, title, losses),
      title, losses);
}

Limits<int> intLimits(ppd_file_t& ppd, const ppd_option_t& option, const ppd_cparam_t& parameter,
                      Losses& losses) {
  const std::string title = parameterTitle(option, parameter.name);
  return withoutContradiction(
      limitsOf(textsOf(ppd, option.keyword, parameter.name), parameter.minimum.custom_int,
               parameter.maximum.custom_int, title, losses),
      title, losses);
}

Limits<int> lengthLimits(ppd_file_t& ppd, const ppd_option_t& option, const ppd_cparam_t& parameter,
                         Losses& losses) {
  return limitsOf(textsOf(ppd, option.keyword, parameter.name), parameter.minimum.custom_string,
                  parameter.maximum.custom_string, parameterTitle(option, parameter.name), losses);
}

Limits<float> sideLimits(ppd_file_t& ppd, const ppd_option_t& option, int side, Losses& losses) {
  const char* name = side == 0 ? "Width" : "Height";
  const std::string title = parameterTitle(option, name);
  const LimitTexts texts = textsOf(ppd, "PageSize", name);
  const Limits<float> limits =
      limitsOf(texts, ppd.custom_min[side], ppd.custom_max[side], title, losses);
  // A file may allow custom sizes and give no limits.
  if (limits.greatest && *limits.greatest <= 0) return {};
  return withoutContradiction(limits, title, losses);
}

}  // namespace driver_feature::ppd
