#include "host/ipp/page_options.h"

#include <algorithm>
#include <climits>
#include <string_view>
#include <utility>

#include "host/base/text.h"
#include "host/ipp/ipp_values.h"
#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

struct ListRow {
  std::string_view name;
  std::string_view words;  // The first is the default.
  Syntax syntax;
  bool isForFilter;  // Or means what is done anyway.
};

constexpr ListRow kLists[] = {
    {"number-up", "1 2 4 6 9 16", Syntax::kInteger, true},
    {"orientation-requested", "3 4 5 6", Syntax::kEnum, true},
    {"multiple-document-handling",
     "separate-documents-uncollated-copies separate-documents-collated-copies", Syntax::kKeyword,
     true},
    {"print-rendering-intent", "auto", Syntax::kKeyword, false},
    {"print-content-optimize", "auto", Syntax::kKeyword, false},
};

constexpr std::string_view kRanges = "page-ranges";

std::vector<std::string> split(std::string_view words) {
  std::vector<std::string> parts;
  while (!words.empty()) {
    const std::string_view next = words.substr(0, words.find(' '));
    parts.emplace_back(next);
    words.remove_prefix(std::min(next.size() + 1, words.size()));
  }
  return parts;
}

const ListRow* rowNamed(const std::string& name) {
  for (const ListRow& row : kLists) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

// In order and apart, as IPP asks for; a single page is a range, too.
std::optional<std::string> rangesIn(ipp_attribute_t* attribute) {
  const ipp_tag_t tag = ippGetValueTag(attribute);
  if (tag != IPP_TAG_RANGE && tag != IPP_TAG_INTEGER) return std::nullopt;
  std::vector<std::string> ranges;
  int last = 0;
  for (int at = 0; at < ippGetCount(attribute); ++at) {
    int upper = 0;
    const int lower = tag == IPP_TAG_RANGE ? ippGetRange(attribute, at, &upper)
                                           : (upper = ippGetInteger(attribute, at));
    if (lower <= last || upper < lower) return std::nullopt;
    last = upper;
    std::string range = std::to_string(lower);
    if (upper != lower) range += '-';
    // An open end is written so: the filter counts no further than the pages.
    if (upper != lower && upper != INT_MAX) range += std::to_string(upper);
    ranges.push_back(std::move(range));
  }
  return host::join(ranges, ",");
}

}  // namespace

void addPageOptions(ipp_t* printer, const AttributeTable& table, std::vector<std::string>& names) {
  for (const ListRow& row : kLists) {
    const std::string name(row.name);
    if (table.find(name) != nullptr) continue;
    const std::vector<std::string> words = split(row.words);
    addWords(printer, IPP_TAG_PRINTER, name + "-supported", row.syntax, words);
    addWords(printer, IPP_TAG_PRINTER, name + "-default", row.syntax, {words.front()});
    names.push_back(name);
  }
  ippAddBoolean(printer, IPP_TAG_PRINTER, "page-ranges-supported", 1);
  names.emplace_back(kRanges);
}

bool isPageOption(const AttributeTable& table, const std::string& name) {
  return table.find(name) == nullptr && (name == kRanges || rowNamed(name) != nullptr);
}

std::optional<host::Setting> pageOption(const std::string& name, ipp_attribute_t* attribute) {
  if (name == kRanges) {
    const auto ranges = rangesIn(attribute);
    if (!ranges) return std::nullopt;
    return host::Setting{name, *ranges};
  }
  const ListRow* row = rowNamed(name);
  const std::vector<std::string> words = wordsIn(attribute);
  if (row == nullptr || words.size() != 1 || !isAmong(row->words, words.front())) {
    return std::nullopt;
  }
  return row->isForFilter ? host::Setting{name, words.front()} : host::Setting{};
}

}  // namespace driver_feature::ipp
