#include "programs/filter/sections.h"

namespace driver_feature::filter {

namespace {

constexpr std::string_view kBegin = "%DriverSection ";
constexpr std::string_view kEnd = "\n%EndDriverSection\n";

// The position at which the next section line begins; npos without one.
std::size_t findBegin(std::string_view text) {
  if (text.starts_with(kBegin)) return 0;
  const std::size_t found = text.find("\n" + std::string(kBegin));
  return found == std::string_view::npos ? found : found + 1;
}

struct Cut {
  Sections sections;
  std::string anySetup;

  // The text of the section; null when there is no such section.
  std::string* named(std::string_view name) {
    if (name == "ExitServer") return &sections.exitServer;
    if (name == "Prolog") return &sections.prolog;
    if (name == "DocumentSetup") return &sections.documentSetup;
    if (name == "AnySetup") return &anySetup;
    if (name == "PageSetup") return &sections.pageSetup;
    return nullptr;
  }
};

}  // namespace

void appendLines(std::string& text, std::string_view lines) {
  if (lines.empty()) return;
  text += lines;
  if (!lines.ends_with('\n')) text += '\n';
}

Sections cutSections(std::string_view postScript, std::vector<std::string>& unknown) {
  Cut cut;
  while (!postScript.empty()) {
    const std::size_t begin = findBegin(postScript);
    appendLines(cut.anySetup, postScript.substr(0, begin));
    if (begin == std::string_view::npos) break;
    postScript.remove_prefix(begin + kBegin.size());
    const std::size_t lineEnd = postScript.find('\n');
    const std::string_view name = postScript.substr(0, lineEnd);
    std::string* section = cut.named(name);
    if (section == nullptr) {
      unknown.emplace_back(name);
      section = &cut.anySetup;
    }
    if (lineEnd == std::string_view::npos) break;
    // The line end of an empty section's first line is that of its last one.
    const std::size_t end = postScript.find(kEnd, lineEnd);
    if (end != lineEnd) {
      appendLines(
          *section,
          postScript.substr(lineEnd + 1, end == std::string_view::npos ? end : end - lineEnd - 1));
    }
    if (end == std::string_view::npos) break;
    postScript.remove_prefix(end + kEnd.size());
  }
  cut.sections.documentSetup += cut.anySetup;
  return cut.sections;
}

}  // namespace driver_feature::filter
