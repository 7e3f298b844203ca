// The changes that mend findings.

#include <algorithm>
#include <string_view>

#include "host/base/text.h"
#include "programs/driver_feature/lsp/answers.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kQuickFix = "quickfix";
constexpr const char* kFixAll = "source.fixAll";

// Kinds are hierarchies: "source" asks for "source.fixAll", too.
bool isAskedFor(std::string_view kind, const std::vector<std::string>& only) {
  return only.empty() || std::any_of(only.begin(), only.end(), [kind](const std::string& wanted) {
           const bool isBelow =
               kind.starts_with(wanted) && kind.substr(wanted.size()).starts_with('.');
           return wanted.empty() || kind == wanted || isBelow;
         });
}

Json editOf(const OpenText& text, const check::TextEdit& edit) {
  return {{"range", toJson(text, {edit.offset, edit.offset + edit.length})},
          {"newText", edit.text}};
}

// Those of all findings. Of changes of the same place the first is made.
Json allEdits(const OpenText& text, long& count) {
  std::vector<check::TextEdit> edits;
  for (const MarkedFinding& marked : text.findings()) {
    if (marked.finding.fix) edits.push_back(*marked.finding.fix);
  }
  std::stable_sort(edits.begin(), edits.end(),
                   [](const auto& left, const auto& right) { return left.offset < right.offset; });
  Json list = Json::array();
  const check::TextEdit* before = nullptr;
  for (const check::TextEdit& edit : edits) {
    const bool again = before != nullptr && (edit.offset == before->offset ||
                                             edit.offset < before->offset + before->length);
    if (again) continue;
    list.push_back(editOf(text, edit));
    before = &edit;
  }
  count = static_cast<long>(list.size());
  return list;
}

std::string titleOf(const OpenText& text, const check::TextEdit& edit) {
  if (edit.length == 0) return "Insert " + host::inQuotes(edit.text);
  const std::string before = text.markup().text().substr(edit.offset, edit.length);
  return "Replace " + host::inQuotes(before) + " with " + host::inQuotes(edit.text);
}

Json actionOf(const std::string& title, const char* kind, const std::string& uri, Json edits) {
  return {{"title", title}, {"kind", kind}, {"edit", {{"changes", {{uri, std::move(edits)}}}}}};
}

}  // namespace

Json codeActionsOf(const OpenText& text, const std::string& uri, editor::Range range,
                   const std::vector<std::string>& only) {
  Json actions = Json::array();
  const bool fixes = isAskedFor(kQuickFix, only);
  for (const MarkedFinding& marked : text.findings()) {
    const bool isThere = marked.range.begin <= range.end && range.begin <= marked.range.end;
    if (!fixes || !isThere || !marked.finding.fix) continue;
    const check::TextEdit& fix = *marked.finding.fix;
    Json action = actionOf(titleOf(text, fix), kQuickFix, uri, Json::array({editOf(text, fix)}));
    action["diagnostics"] = Json::array({diagnosticOf(text, marked)});
    action["isPreferred"] = true;
    actions.push_back(std::move(action));
  }
  if (!isAskedFor(kFixAll, only)) return actions;
  long count = 0;
  Json edits = allEdits(text, count);
  if (count == 0) return actions;
  actions.push_back(actionOf("Fix " + host::counted(count, "fault") + " of the description",
                             kFixAll, uri, std::move(edits)));
  return actions;
}

}  // namespace driver_feature::cli
