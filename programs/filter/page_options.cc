#include "programs/filter/page_options.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "host/base/text.h"

namespace driver_feature::filter {

namespace {

using Kind = PageOptionKind;

bool isOneOf(std::string_view value, std::string_view words) {
  while (!words.empty()) {
    const std::string_view word = words.substr(0, words.find(' '));
    if (word == value) return true;
    words.remove_prefix(std::min(word.size() + 1, words.size()));
  }
  return false;
}

bool isTrue(std::string_view value) {
  return isOneOf(value, "true on yes");
}

// Values from a list; those that ask for nothing are listed apart.
struct ListRow {
  std::string_view name;
  std::string_view idle;
  std::string_view work;
  Kind kind;  // Of a value that asks for something.
  std::string_view remedy;
};

constexpr std::array<ListRow, 6> kLists = {{
    {"number-up", "1", "2 4 6 9 16", Kind::kWork, "give 1, 2, 4, 6, 9 or 16"},
    {"number-up-layout", "", "lrtb lrbt rltb rlbt tblr tbrl btlr btrl", Kind::kDetail,
     "give lrtb, lrbt, rltb, rlbt, tblr, tbrl, btlr or btrl"},
    {"page-border", "none", "single single-thick double double-thick", Kind::kWork,
     "give none, single, single-thick, double or double-thick"},
    {"page-set", "all", "even odd", Kind::kWork, "give all, even or odd"},
    {"orientation-requested", "3 7", "4 5 6", Kind::kWork, "give 3, 4, 5 or 6"},
    {"outputorder", "normal", "reverse", Kind::kWork, "give normal or reverse"},
}};

// What only filters that convert documents know, and the values that ask for
// nothing.
struct ConversionRow {
  std::string_view name;
  std::string_view idle;
};

constexpr std::array<ConversionRow, 9> kConversions = {{
    {"booklet", "off false no"},
    {"crop-to-fit", "false off no"},
    {"fill", "false off no"},
    {"fitplot", "false off no"},
    {"natural-scaling", "100"},
    {"position", "center"},
    {"ppi", ""},
    {"print-scaling", "auto auto-fit none"},
    {"scaling", "100"},
}};

bool isPageRange(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789-,") == std::string_view::npos &&
         text.find_first_of("0123456789") != std::string_view::npos;
}

PageOption refusedOption(std::string reason) {
  return {Kind::kRefused, std::move(reason)};
}

PageOption workIf(bool asks) {
  return {asks ? Kind::kWork : Kind::kIdle, ""};
}

PageOption fromList(const ListRow& row, const std::string& value) {
  if (isOneOf(value, row.idle)) return {Kind::kIdle, ""};
  if (isOneOf(value, row.work)) return {row.kind, ""};
  return refusedOption("\"" + value + "\" is unknown; " + std::string(row.remedy));
}

PageOption fromRules(const std::string& name, const std::string& value) {
  if (name == "page-ranges") {
    if (isPageRange(value)) return {Kind::kWork, ""};
    return refusedOption("\"" + value + "\" is not a list of pages; give one such as 1-4,7");
  }
  if (name == "page-label") return workIf(!value.empty());
  if (name == "mirror") return workIf(isTrue(value));
  if (name == "fit-to-page" || name == "ipp-attribute-fidelity") return workIf(value == "true");
  if (name == "landscape") return workIf(!isOneOf(value, "no off false"));
  if (name == "collate") return {isTrue(value) ? Kind::kCollation : Kind::kIdle, ""};
  if (name == "multiple-document-handling") {
    const bool isApart = value == "separate-documents-uncollated-copies";
    return {isApart ? Kind::kIdle : Kind::kCollation, ""};
  }
  if (name.starts_with("ap_firstpage_")) {
    return refusedOption("the first page of a document sent as PostScript has no media of its own");
  }
  if (isOneOf(name, "page-left page-right page-top page-bottom")) return {Kind::kDetail, ""};
  return {};
}

}  // namespace

PageOption pageOption(const host::Setting& option) {
  const std::string name = host::toLower(option.name);
  const std::string value = host::toLower(option.value);
  for (const ListRow& row : kLists) {
    if (row.name == name) return fromList(row, value);
  }
  for (const ConversionRow& row : kConversions) {
    if (row.name != name) continue;
    if (isOneOf(value, row.idle)) return {Kind::kIdle, ""};
    return refusedOption(
        "it is for documents that are converted, and this one was sent as PostScript");
  }
  return fromRules(name, value);
}

OutputOrder outputOrder(const std::vector<host::Setting>& options) {
  OutputOrder order = OutputOrder::kUnsaid;
  for (const host::Setting& option : options) {
    if (host::toLower(option.name) != "outputorder") continue;
    order = host::toLower(option.value) == "reverse" ? OutputOrder::kReverse : OutputOrder::kNormal;
  }
  return order;
}

bool isClassified() {
  const char* label = std::getenv("CLASSIFICATION");
  return label != nullptr && *label != '\0' && std::string_view(label) != "none";
}

}  // namespace driver_feature::filter
