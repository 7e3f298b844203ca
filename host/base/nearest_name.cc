#include "host/base/nearest_name.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "host/base/text.h"

namespace driver_feature::host {

namespace {

// Distances are counted in tenths of a change.
constexpr std::size_t kChange = 10;
constexpr std::size_t kChangeOfCase = 1;

std::size_t replacement(char from, char to) {
  if (from == to) return 0;
  return toLower(from) == toLower(to) ? kChangeOfCase : kChange;
}

std::size_t distance(const std::string& from, const std::string& to) {
  // rows[i % 3][j]: the distance of the first i bytes to the first j.
  std::vector<std::vector<std::size_t>> rows(3, std::vector<std::size_t>(to.size() + 1));
  for (std::size_t j = 0; j <= to.size(); ++j) rows[0][j] = j * kChange;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    const auto& above = rows[(i - 1) % 3];
    const auto& twoAbove = rows[(i + 1) % 3];
    auto& row = rows[i % 3];
    row[0] = i * kChange;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      row[j] = std::min({above[j] + kChange, row[j - 1] + kChange,
                         above[j - 1] + replacement(from[i - 1], to[j - 1])});
      const bool swapped = i > 1 && j > 1 && toLower(from[i - 1]) == toLower(to[j - 2]) &&
                           toLower(from[i - 2]) == toLower(to[j - 1]);
      if (swapped) row[j] = std::min(row[j], twoAbove[j - 2] + kChange);
    }
  }
  return rows[from.size() % 3][to.size()];
}

std::string digitsOf(const std::string& text) {
  std::string digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
               [](char character) { return character >= '0' && character <= '9'; });
  return digits;
}

}  // namespace

std::optional<std::string> nearestName(const std::string& wanted,
                                       const std::vector<std::string>& names) {
  const std::size_t changes = wanted.size() < 2 ? 0 : std::max<std::size_t>(1, wanted.size() / 3);
  std::size_t best = changes * kChange + kChange - 1;
  std::optional<std::string> nearest;
  for (const std::string& name : names) {
    const std::size_t lengths =
        std::max(name.size(), wanted.size()) - std::min(name.size(), wanted.size());
    if (lengths * kChange > best) continue;
    const std::size_t away = distance(wanted, name);
    if (away > best || (nearest && away == best)) continue;
    best = away;
    nearest = name;
  }
  return nearest;
}

std::optional<std::string> surelyMeant(const std::string& wanted,
                                       const std::vector<std::string>& names) {
  constexpr std::size_t kShortest = 4;
  if (wanted.size() < kShortest) return std::nullopt;
  std::optional<std::string> meant;
  for (const std::string& name : names) {
    const std::size_t lengths =
        std::max(name.size(), wanted.size()) - std::min(name.size(), wanted.size());
    if (lengths > 1 || name == meant || distance(wanted, name) > kChange) continue;
    if (meant || digitsOf(name) != digitsOf(wanted)) return std::nullopt;
    meant = name;
  }
  return meant;
}

}  // namespace driver_feature::host
