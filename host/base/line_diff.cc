#include "host/base/line_diff.h"

#include <algorithm>
#include <unordered_set>

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

using Lines = std::vector<std::string>;

// A line of the first list and the line of the second that it becomes.
struct Match {
  std::size_t first = 0;
  std::size_t second = 0;
};

// Lines that both lists have, with their numbers there. All others are changes, and
// what texts have changed throughout is quickly found in this way.
struct CommonLines {
  std::vector<std::size_t> numbers;
  std::vector<const std::string*> lines;

  CommonLines(const Lines& all, const Lines& others) {
    const std::unordered_set<std::string_view> known(others.begin(), others.end());
    for (std::size_t i = 0; i < all.size(); ++i) {
      if (!known.contains(all[i])) continue;
      numbers.push_back(i);
      lines.push_back(&all[i]);
    }
  }
};

// The shortest way from one list to another, as E. W. Myers finds it: for each
// number of changes, how far each difference of positions can be followed.
class ShortestEdit {
 public:
  ShortestEdit(const CommonLines& first, const CommonLines& second)
      : first_(first),
        second_(second),
        last_(static_cast<long>(first.lines.size())),
        otherLast_(static_cast<long>(second.lines.size())) {}

  // The lines that stay, in their order; none when there are too many changes.
  std::vector<Match> matches() {
    constexpr long kMostChanges = 2048;
    for (long changes = 0; changes <= kMostChanges; ++changes) {
      if (isReachedWith(changes)) return followBack(changes);
    }
    return {};
  }

 private:
  // The farthest position in the first list by the difference of both positions,
  // which is from -changes to changes.
  long farthest(long changes, long difference) const {
    const std::vector<long>& row = rows_[static_cast<std::size_t>(changes)];
    return row[static_cast<std::size_t>(difference + changes)];
  }

  // Whether a line of the second list has been added last; otherwise one of the
  // first was taken out.
  bool isAddition(long changes, long difference) const {
    if (difference == -changes) return true;
    return difference != changes &&
           farthest(changes - 1, difference - 1) < farthest(changes - 1, difference + 1);
  }

  long startOf(long changes, long difference) const {
    if (changes == 0) return 0;
    return isAddition(changes, difference) ? farthest(changes - 1, difference + 1)
                                           : farthest(changes - 1, difference - 1) + 1;
  }

  bool isReachedWith(long changes) {
    rows_.emplace_back(static_cast<std::size_t>(2 * changes + 1));
    for (long difference = -changes; difference <= changes; difference += 2) {
      long at = startOf(changes, difference);
      while (isSame(at, at - difference)) ++at;
      rows_.back()[static_cast<std::size_t>(difference + changes)] = at;
      if (difference == last_ - otherLast_ && at >= last_) return true;
    }
    return false;
  }

  bool isSame(long first, long second) const {
    return first < last_ && second < otherLast_ &&
           *first_.lines[static_cast<std::size_t>(first)] ==
               *second_.lines[static_cast<std::size_t>(second)];
  }

  std::vector<Match> followBack(long changes) const {
    std::vector<Match> matches;
    long at = last_;
    long difference = last_ - otherLast_;
    for (; changes >= 0; --changes) {
      const long start = startOf(changes, difference);
      while (at > start) {
        --at;
        matches.push_back({first_.numbers[static_cast<std::size_t>(at)],
                           second_.numbers[static_cast<std::size_t>(at - difference)]});
      }
      if (changes == 0) break;
      const bool added = isAddition(changes, difference);
      difference += added ? 1 : -1;
      at -= added ? 0 : 1;
    }
    std::reverse(matches.begin(), matches.end());
    return matches;
  }

  const CommonLines& first_;
  const CommonLines& second_;
  long last_;
  long otherLast_;
  std::vector<std::vector<long>> rows_;  // By the number of changes.
};

void appendMiddle(const Lines& first, const Lines& second, std::vector<DiffLine>& lines) {
  const CommonLines common(first, second);
  const CommonLines otherCommon(second, first);
  std::vector<Match> matches = ShortestEdit(common, otherCommon).matches();
  matches.push_back({first.size(), second.size()});
  std::size_t i = 0;
  std::size_t j = 0;
  for (const Match& match : matches) {
    while (i < match.first) lines.push_back({'-', first[i++]});
    while (j < match.second) lines.push_back({'+', second[j++]});
    if (i == first.size() && j == second.size()) return;
    lines.push_back({' ', first[i++]});
    ++j;
  }
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
