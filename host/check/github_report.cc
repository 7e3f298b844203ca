#include "host/check/github_report.h"

#include <string_view>

#include "host/base/text.h"

namespace driver_feature::check {

namespace {

// The characters that would end a message, as %NN; in a property the
// separators of properties, too.
std::string escaped(const std::string& text, std::string_view special) {
  std::string result;
  for (const char character : text) {
    const bool isSpecial = special.find(character) != std::string_view::npos;
    result += isSpecial ? host::percentEncoded(character) : std::string(1, character);
  }
  return result;
}

std::string messageText(const std::string& text) {
  return escaped(text, "%\r\n");
}

std::string propertyText(const std::string& text) {
  return escaped(text, "%\r\n:,");
}

std::string lineOf(const std::string& file, const Finding& finding) {
  const CodeRow& row = rowOf(finding.code);
  std::string line = std::string("::") + wordOf(row.severity) + " file=" + propertyText(file);
  if (finding.position.line > 0) {
    line += ",line=" + std::to_string(finding.position.line) +
            ",col=" + std::to_string(finding.position.column);
  }
  return line + ",title=" + row.name +
         "::" + messageText(finding.sentence + "; " + finding.remedy) + "\n";
}

}  // namespace

std::string reportGithub(const std::vector<FileReport>& reports) {
  std::string text;
  for (const FileReport& report : reports) {
    for (const Finding& finding : report.findings) text += lineOf(fileOf(report, finding), finding);
  }
  return text;
}

}  // namespace driver_feature::check
