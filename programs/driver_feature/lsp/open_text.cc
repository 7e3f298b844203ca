#include "programs/driver_feature/lsp/open_text.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/description/source_text.h"

namespace driver_feature::cli {

OpenText::OpenText(std::optional<long> version, std::string text)
    : version_(version), markup_(std::move(text)), lines_(markup_.text()) {}

void OpenText::setFindings(check::Findings findings) {
  findings_.clear();
  const host::SourceText source(markup_.text());
  for (check::Finding& finding : findings) {
    // A place after the end of its line, or none at all, is where the line begins.
    auto offset = source.offsetOf(finding.position);
    if (!offset) offset = source.offsetOf({finding.position.line, 1});
    findings_.push_back({std::move(finding), rangeOf(offset.value_or(0))});
  }
}

// The name or the word that begins there.
editor::Range OpenText::rangeOf(std::size_t offset) const {
  const std::string_view text = markup_.text();
  std::size_t begin = offset;
  if (text.substr(begin).starts_with('<')) begin += text.substr(begin).starts_with("</") ? 2 : 1;
  std::size_t end = std::min(text.find_first_of(" \t\r\n\"'<>/=", begin), text.size());
  // Something must be seen.
  if (end == offset && end < text.size()) ++end;
  return {offset, end};
}

}  // namespace driver_feature::cli
