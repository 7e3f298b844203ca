#include "equivalence/exceptions.h"

namespace driver_feature::equivalence {

namespace {

constexpr const char* kSeparator = " | ";
constexpr std::size_t kSeparatorSize = 3;

host::Failure refuseLine(int line, const std::string& reason) {
  return host::refused("line " + std::to_string(line) + ": " + reason);
}

}  // namespace

host::Result<Exceptions> Exceptions::read(std::istream& input) {
  Exceptions exceptions;
  std::string line;
  for (int number = 1; std::getline(input, line); ++number) {
    if (line.empty() || line.starts_with('#')) continue;
    const std::size_t first = line.find(kSeparator);
    const std::size_t second =
        first == std::string::npos ? first : line.find(kSeparator, first + kSeparatorSize);
    if (second == std::string::npos || first == 0 || second == first + kSeparatorSize ||
        second + kSeparatorSize >= line.size()) {
      return refuseLine(number, "is not of the form CAUSE | PPD | REASON");
    }
    const std::string ppd = line.substr(first + kSeparatorSize, second - first - kSeparatorSize);
    const Entry entry{line.substr(second + kSeparatorSize)};
    if (!exceptions.entries_.emplace(std::make_pair(line.substr(0, first), ppd), entry).second) {
      return refuseLine(number, "repeats an earlier line");
    }
  }
  return exceptions;
}

const std::string* Exceptions::find(const std::string& cause, const std::string& ppd) {
  const auto found = entries_.find({cause, ppd});
  if (found == entries_.end()) return nullptr;
  found->second.hasOccurred = true;
  return &found->second.reason;
}

std::vector<std::string> Exceptions::idle(const std::set<std::string>& examined,
                                          bool complete) const {
  std::vector<std::string> idle;
  for (const auto& [key, entry] : entries_) {
    if (entry.hasOccurred || (!complete && !examined.contains(key.second))) continue;
    idle.push_back(key.first + kSeparator + key.second);
  }
  return idle;
}

}  // namespace driver_feature::equivalence
