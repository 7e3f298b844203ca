#include "host/base/line_diff.h"

#include <algorithm>
#include <cstdint>

#include "host/base/text.h"

namespace driver_feature::host {

namespace {

std::string visible(std::string_view text) {
  std::string shown;
  for (const std::string_view character : splitCharacters(text)) {
    const auto code = static_cast<unsigned char>(character.front());
    if (character == "\\") {
      shown += "\\\\";
    } else if (character.size() == 1 && code >= 0x80) {
      shown += escapedByte(character.front());
    } else {
      shown += printable(character);
    }
  }
  return shown;
}

// The lengths of the longest common subsequences of all pairs of ends of two
// lists.
class Lengths {
 public:
  Lengths(const std::vector<std::string>& first, const std::vector<std::string>& second)
      : columns_(second.size() + 1), cells_((first.size() + 1) * columns_) {
    for (std::size_t i = first.size(); i-- > 0;) {
      for (std::size_t j = second.size(); j-- > 0;) {
        cells_[i * columns_ + j] =
            first[i] == second[j] ? at(i + 1, j + 1) + 1 : std::max(at(i + 1, j), at(i, j + 1));
      }
    }
  }

  std::uint32_t at(std::size_t i, std::size_t j) const { return cells_[i * columns_ + j]; }

 private:
  std::size_t columns_;
  std::vector<std::uint32_t> cells_;
};

// The two lists have neither a first nor a last line in common.
void appendMiddle(const std::vector<std::string>& first, const std::vector<std::string>& second,
                  std::vector<DiffLine>& lines) {
  constexpr std::uint64_t kMostCells = 16U << 20U;
  std::size_t i = 0;
  std::size_t j = 0;
  const std::uint64_t cells = static_cast<std::uint64_t>(first.size() + 1) * (second.size() + 1);
  if (cells <= kMostCells) {
    const Lengths lengths(first, second);
    while (i < first.size() && j < second.size()) {
      if (first[i] == second[j]) {
        lines.push_back({' ', first[i++]});
        ++j;
      } else if (lengths.at(i + 1, j) >= lengths.at(i, j + 1)) {
        lines.push_back({'-', first[i++]});
      } else {
        lines.push_back({'+', second[j++]});
      }
    }
  }
  while (i < first.size()) lines.push_back({'-', first[i++]});
  while (j < second.size()) lines.push_back({'+', second[j++]});
}

std::string rangeText(std::size_t before, std::size_t count) {
  // By convention, an empty range gives the line before it.
  return std::to_string(count == 0 ? before : before + 1) + "," + std::to_string(count);
}

}  // namespace

std::vector<std::string> visibleLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    lines.push_back(visible(text.substr(0, end)));
    if (end == std::string_view::npos) lines.emplace_back("\\ no line end");
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

std::vector<DiffLine> diffLines(const std::vector<std::string>& first,
                                const std::vector<std::string>& second) {
  const std::size_t shorter = std::min(first.size(), second.size());
  std::size_t head = 0;
  while (head < shorter && first[head] == second[head]) ++head;
  std::size_t tail = 0;
  while (tail < shorter - head &&
         first[first.size() - 1 - tail] == second[second.size() - 1 - tail]) {
    ++tail;
  }
  const auto middleOf = [head, tail](const std::vector<std::string>& lines) {
    return std::vector<std::string>(lines.begin() + static_cast<std::ptrdiff_t>(head),
                                    lines.end() - static_cast<std::ptrdiff_t>(tail));
  };
  std::vector<DiffLine> lines;
  for (std::size_t i = 0; i < head; ++i) lines.push_back({' ', first[i]});
  appendMiddle(middleOf(first), middleOf(second), lines);
  for (std::size_t i = first.size() - tail; i < first.size(); ++i) lines.push_back({' ', first[i]});
  return lines;
}

std::vector<DiffLine> withContext(const std::vector<DiffLine>& lines, std::size_t context) {
  const auto isNear = [&](std::size_t index) {
    const std::size_t begin = index > context ? index - context : 0;
    const std::size_t end = std::min(lines.size(), index + context + 1);
    return std::any_of(lines.begin() + static_cast<std::ptrdiff_t>(begin),
                       lines.begin() + static_cast<std::ptrdiff_t>(end),
                       [](const DiffLine& line) { return line.mark != ' '; });
  };
  std::vector<DiffLine> parts;
  std::size_t before[2] = {0, 0};  // Lines of each text before the present one.
  for (std::size_t i = 0; i < lines.size();) {
    std::vector<DiffLine> part;
    std::size_t counts[2] = {0, 0};
    for (; i < lines.size() && isNear(i); ++i) {
      counts[0] += lines[i].mark != '+' ? 1 : 0;
      counts[1] += lines[i].mark != '-' ? 1 : 0;
      part.push_back(lines[i]);
    }
    if (part.empty()) {
      ++before[0];
      ++before[1];
      ++i;
      continue;
    }
    parts.push_back({'@', "@ -" + rangeText(before[0], counts[0]) + " +" +
                              rangeText(before[1], counts[1]) + " @@"});
    parts.insert(parts.end(), part.begin(), part.end());
    before[0] += counts[0];
    before[1] += counts[1];
  }
  return parts;
}

}  // namespace driver_feature::host
