#include "host/check/selection.h"

#include <algorithm>

#include "host/base/text.h"

namespace driver_feature::check {

namespace {

bool beginsSo(const CodeRow& row, const std::string& beginning) {
  return host::toLower(row.name).starts_with(beginning);
}

host::Result<std::vector<std::string>> beginningsOf(const std::vector<std::string>& texts,
                                                    const std::string& option) {
  std::vector<std::string> beginnings;
  for (const std::string& text : texts) {
    for (std::size_t begin = 0; begin <= text.size();) {
      const std::size_t end = std::min(text.find(',', begin), text.size());
      const std::string code = text.substr(begin, end - begin);
      beginnings.push_back(host::toLower(code));
      const auto rows = allCodes();
      const bool known =
          !code.empty() && std::any_of(rows.begin(), rows.end(), [&](const CodeRow& row) {
            return beginsSo(row, beginnings.back());
          });
      if (!known) {
        std::string reason = option;
        reason.append(": no code begins with \"").append(code);
        return host::refused(reason.append("\"; --explain all lists the codes"));
      }
      begin = end + 1;
    }
  }
  return beginnings;
}

bool isAmong(const CodeRow& row, const std::vector<std::string>& beginnings) {
  return std::any_of(beginnings.begin(), beginnings.end(),
                     [&row](const std::string& beginning) { return beginsSo(row, beginning); });
}

}  // namespace

host::Result<Selection> Selection::read(const std::vector<std::string>& select,
                                        const std::vector<std::string>& ignore) {
  auto selected = beginningsOf(select, "--select");
  if (!selected) return failureOf(selected);
  auto ignored = beginningsOf(ignore, "--ignore");
  if (!ignored) return failureOf(ignored);
  Selection selection;
  selection.selected_ = std::move(*selected);
  selection.ignored_ = std::move(*ignored);
  return selection;
}

bool Selection::takes(Code code) const {
  const CodeRow& row = rowOf(code);
  return (selected_.empty() || isAmong(row, selected_)) && !isAmong(row, ignored_);
}

void Selection::apply(Findings& findings) const {
  std::erase_if(findings, [this](const Finding& finding) { return !takes(finding.code); });
}

}  // namespace driver_feature::check
