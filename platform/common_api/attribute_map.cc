#include "AttributeMap.h"

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string_view>
#include <system_error>

#include "Log.h"
#include "few_entries.h"

namespace {

using driver_feature::findAmongFew;
using driver_feature::kFew;
using Entries = std::map<std::string, std::string>;

template <class Map>
auto findEntry(Map& entries, const std::string& name) {
  return entries.size() <= kFew ? findAmongFew(entries, name) : entries.find(name);
}

// What the map held that was cleared last in this thread. Null before, and while the
// thread ends: a host may still use maps then.
constinit thread_local Entries* lastCleared = nullptr;

struct LastCleared {
  LastCleared() { lastCleared = &entries; }
  ~LastCleared() { lastCleared = nullptr; }
  Entries entries;
};

// Does so once for each thread.
Entries* keepLastCleared() {
  thread_local const LastCleared kept;
  return lastCleared;
}

// Converts the whole of `text`; nothing when it does not convert.
std::optional<bool> convert(const std::string& text, bool /*tag*/) {
  if (text == "true" || text == "1") return true;
  if (text == "false" || text == "0") return false;
  return std::nullopt;
}

std::optional<int> convert(const std::string& text, int /*tag*/) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

// Whether a decimal number outside what a double holds is too large for it,
// not too small.
bool isTooLarge(const std::string& text) {
  static const locale_t kClassic = newlocale(LC_ALL_MASK, "C", nullptr);
  return std::fabs(strtod_l(text.c_str(), nullptr, kClassic)) > 1;
}

// The words for infinity and for "not a number" convert, but are not decimal
// numbers. A number nearer to 0 than a double can be gives 0.
std::optional<double> convert(const std::string& text, double /*tag*/) {
  double number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ptr != end) return std::nullopt;
  if (result.ec == std::errc::result_out_of_range && !isTooLarge(text)) return 0;
  if (result.ec != std::errc() || !std::isfinite(number)) return std::nullopt;
  return number;
}

const char* wantedForm(bool /*tag*/) {
  return "\"true\", \"false\", \"1\" or \"0\"";
}
const char* wantedForm(int /*tag*/) {
  return "a decimal 32-bit number";
}
const char* wantedForm(double /*tag*/) {
  return "a decimal number";
}

template <class Value>
bool load(const Entries& entries, const std::string& name, Value& value, const Value* fallback) {
  const auto found = findEntry(entries, name);
  if (found != entries.end()) {
    if (const auto converted = convert(found->second, Value{})) {
      value = *converted;
      return true;
    }
    UnicodeString line;
    line = "AttributeMap::loadMapVariable() - Attribute \"" + name + "\" holds \"" + found->second +
           "\" where " + wantedForm(Value{}) + " is needed.";
    LogStringMessage(3, "CommonAPI", line);
  }
  if (fallback == nullptr) return false;
  value = *fallback;
  return true;
}

}  // namespace

AttributeMap::AttributeMap() = default;

// Few entries are kept for recallNames(), in place of earlier ones.
void AttributeMap::clear() {
  if (entries_.size() <= kFew) {
    Entries* kept = lastCleared != nullptr ? lastCleared : keepLastCleared();
    if (kept != nullptr) kept->swap(entries_);
  }
  entries_.clear();
}

// Gives an empty map what the map held that was cleared last.
void AttributeMap::recallNames() {
  if (lastCleared != nullptr) lastCleared->swap(entries_);
}

long AttributeMap::size() const {
  return static_cast<long>(entries_.size());
}

bool AttributeMap::loadMapVariable(const std::string& name, std::string& value,
                                   const std::string* fallback) const {
  const auto found = findEntry(entries_, name);
  const std::string* text = found != entries_.end() ? &found->second : fallback;
  if (text == nullptr) return false;
  value = *text;
  return true;
}

bool AttributeMap::loadMapVariable(const std::string& name, bool& value,
                                   const bool* fallback) const {
  return load(entries_, name, value, fallback);
}

bool AttributeMap::loadMapVariable(const std::string& name, int& value, const int* fallback) const {
  return load(entries_, name, value, fallback);
}

bool AttributeMap::loadMapVariable(const std::string& name, double& value,
                                   const double* fallback) const {
  return load(entries_, name, value, fallback);
}

bool AttributeMap::fetchAttributeValueByIndex(const long& index, std::string& name,
                                              std::string& value) const {
  const long count = size();
  if (index < 0 || index >= count) return false;
  // From the nearer end: hosts walk over maps of thousands of features.
  const auto entry = index <= count / 2 ? std::next(entries_.begin(), index)
                                        : std::prev(entries_.end(), count - index);
  name = entry->first;
  value = entry->second;
  return true;
}

std::string& AttributeMap::operator[](const std::string& name) {
  // Fewer are found as fast in the tree, which a new name has to be put into anyway.
  constexpr std::size_t kSeveral = 4;
  if (entries_.size() >= kSeveral) {
    const auto found = findEntry(entries_, name);
    if (found != entries_.end()) return found->second;
  }
  return entries_[name];
}
