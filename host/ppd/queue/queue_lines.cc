#include "host/ppd/queue/queue_lines.h"

#include <string_view>

#include "host/base/text.h"
#include "host/ppd/queue/ppd_names.h"
#include "host/ppd/plain/ppd_statements.h"

namespace driver_feature::ppd {

namespace {

constexpr std::size_t kLongestLine = 255;  // Without its end; libcups reads no longer ones.
constexpr const char* kFilter = "driver-feature-filter";

// Adds a line that holds a file's path; a PPD has no way to write a quotation
// mark or a control character in it.
host::Result<> addPathLine(const std::string& keyword, const std::string& path,
                           std::vector<std::string>& lines) {
  for (const char c : path) {
    if (c == '"' || static_cast<unsigned char>(c) < 0x20) {
      return host::refused(
          path +
          ": a PPD cannot hold this path, because of a quotation mark or a control "
          "character in it; give the file another name");
    }
  }
  std::string line = "*DriverFeature" + keyword + ": \"" + path + "\"";
  if (line.size() > kLongestLine) {
    return host::refused(
        path +
        ": a PPD cannot hold this path, because its lines have 255 bytes at most; give "
        "the file a shorter path");
  }
  lines.push_back(std::move(line));
  return {};
}

// Statements that name other filters or another description. libcups and the
// scheduler find some of them in any spelling.
bool isReplaced(std::string_view keyword) {
  const std::string name = host::toLower(std::string(keyword));
  if (name == "cupsfilter" || name == "cupsfilter2") return true;
  // Other names of choices belong to the options, which stay.
  return name.starts_with("driverfeature") && name != "driverfeaturechoice";
}

int linesOf(std::string_view statement) {
  int count = 0;
  for (; !statement.empty(); ++count) takeLine(statement);
  return count;
}

}  // namespace

host::Result<std::vector<std::string>> queueLines(const QueueRequest& request) {
  // The scheduler's own filter in front of the second one would only write the
  // PPD's commands a first time; it is for documents that are converted.
  std::vector<std::string> lines = {
      std::string("*cupsFilter: \"application/postscript 0 ") + kFilter + "\"",
      std::string("*cupsFilter: \"application/vnd.cups-postscript 100 ") + kFilter + "\""};
  host::Result<> added = addPathLine("Description", request.description, lines);
  if (added && !request.library.empty()) added = addPathLine("Library", request.library, lines);
  for (const std::string& routines : request.routines) {
    if (added) added = addPathLine("Routines", routines, lines);
  }
  if (!added) return failureOf(added);
  lines.push_back(std::string("*DriverFeatureRefusedValue: \"") +
                  (request.defaultForRefused ? "default" : "fail") + "\"");
  if (request.resolves) lines.emplace_back("*DriverFeatureRules: \"resolve\"");
  return lines;
}

std::vector<std::string> mediaLines(ppd_file_t& ppd) {
  const bool hasRule = ppdFindAttr(&ppd, "RequiresPageRegion", "All") != nullptr;
  if (ppd.num_filters > 0 || hasRule) return {};
  return {"*RequiresPageRegion All: False"};
}

QueueText withQueueLines(std::string_view ppd, const std::vector<std::string>& lines) {
  QueueText result;
  int line = 1;  // The next one of the printer's PPD.
  const auto keep = [&](std::string_view statement) {
    result.text += statement;
    for (int count = linesOf(statement); count > 0; --count) result.origins.push_back(line++);
  };
  const std::string_view first = takeStatement(ppd);
  keep(first);
  const std::string end(lineEndOf(first).empty() ? "\n" : lineEndOf(first));
  if (lineEndOf(first).empty()) result.text += end;
  for (const std::string& added : lines) {
    result.text += added + end;
    result.origins.push_back(0);
  }
  while (!ppd.empty()) {
    const std::string_view statement = takeStatement(ppd);
    if (!isReplaced(statementKeyword(statement))) {
      keep(statement);
      continue;
    }
    line += linesOf(statement);
    // A value of several lines may be ended by a line of its own.
    std::string_view rest = ppd;
    if (statementKeyword(takeLine(rest)) != "End") continue;
    ppd = rest;
    ++line;
  }
  return result;
}

}  // namespace driver_feature::ppd
