#include "host/queue/queue_lines.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace driver_feature {

namespace {

constexpr std::size_t kLongestLine = 255;  // Without its end; libcups reads no longer ones.
constexpr const char* kFilter = "driver-feature-filter";

// A line that holds a file's path; a PPD has no way to write a quotation mark
// or a control character in it.
std::string pathLine(const std::string& keyword, const std::string& path, std::string& problem) {
  for (const char c : path) {
    if (c == '"' || static_cast<unsigned char>(c) < 0x20) {
      problem = path +
                ": a PPD cannot hold this path, because of a quotation mark or a control "
                "character in it; give the file another name";
    }
  }
  std::string line = "*DriverFeature" + keyword + ": \"" + path + "\"";
  if (line.size() > kLongestLine) {
    problem = path +
              ": a PPD cannot hold this path, because its lines have 255 bytes at most; give the "
              "file a shorter path";
  }
  return line;
}

// The next line of the text, with its line end.
std::string_view takeLine(std::string_view& text) {
  std::size_t end = text.find_first_of("\r\n");
  if (end == std::string_view::npos) end = text.size();
  if (text.substr(end).starts_with("\r\n")) ++end;
  const std::string_view line = text.substr(0, end + 1);
  text.remove_prefix(line.size());
  return line;
}

std::string_view lineEndOf(std::string_view line) {
  const std::size_t last = line.find_last_not_of("\r\n");
  return line.substr(last == std::string_view::npos ? 0 : last + 1);
}

bool isReplaced(std::string_view line) {
  constexpr std::array<std::string_view, 3> kKeywords = {
      "*cupsFilter:", "*cupsFilter2:", "*DriverFeature"};
  return std::any_of(kKeywords.begin(), kKeywords.end(),
                     [line](std::string_view keyword) { return line.starts_with(keyword); });
}

}  // namespace

std::vector<std::string> queueLines(const QueueRequest& request, std::string& problem) {
  // The scheduler's own filter in front of the second one would only write the
  // PPD's commands a first time; it is for documents that are converted.
  std::vector<std::string> lines = {
      std::string("*cupsFilter: \"application/postscript 0 ") + kFilter + "\"",
      std::string("*cupsFilter: \"application/vnd.cups-postscript 100 ") + kFilter + "\"",
      pathLine("Description", request.description, problem)};
  if (!request.library.empty()) lines.push_back(pathLine("Library", request.library, problem));
  for (const std::string& routines : request.routines) {
    lines.push_back(pathLine("Routines", routines, problem));
  }
  lines.push_back(std::string("*DriverFeatureRefusedValue: \"") +
                  (request.defaultForRefused ? "default" : "fail") + "\"");
  return lines;
}

std::string withQueueLines(std::string_view ppd, const std::vector<std::string>& lines) {
  const std::string_view first = takeLine(ppd);
  const std::string end(lineEndOf(first).empty() ? "\n" : lineEndOf(first));
  std::string result(first.substr(0, first.size() - lineEndOf(first).size()));
  result += end;
  for (const std::string& line : lines) result += line + end;
  while (!ppd.empty()) {
    const std::string_view line = takeLine(ppd);
    if (!isReplaced(line)) result += line;
  }
  return result;
}

}  // namespace driver_feature
