#include "host/check/report.h"

#include <nlohmann/json.hpp>

#include "host/base/text.h"
#include "host/check/excerpt.h"
#include "host/description/source_text.h"

namespace driver_feature::check {

namespace {

using Json = nlohmann::ordered_json;

// What goes around the parts of a text on a terminal.
struct Paint {
  const char* place = "";
  const char* error = "";
  const char* warning = "";
  const char* caret = "";
  const char* code = "";
  const char* end = "";
};

constexpr Paint kNoColours;
constexpr Paint kColours = {"\x1b[1m",    "\x1b[1;31m", "\x1b[1;35m",
                            "\x1b[1;32m", "\x1b[2m",    "\x1b[0m"};

std::string placeText(const std::string& file, host::Position position) {
  std::string text = host::printable(file);
  if (position.line == 0) return text;
  return text + ":" + std::to_string(position.line) + ":" + std::to_string(position.column);
}

std::string findingText(const FileReport& report, const host::SourceText& source,
                        const Finding& finding, const Paint& paint) {
  const CodeRow& row = rowOf(finding.code);
  const bool isError = row.severity == Severity::kError;
  std::string text = paint.place + placeText(fileOf(report, finding), finding.position) + ": " +
                     paint.end + (isError ? paint.error : paint.warning) + wordOf(row.severity) +
                     ": " + paint.end + host::printable(finding.sentence) + "; " +
                     host::printable(finding.remedy) + " " + paint.code + "[" + row.name + "]" +
                     paint.end + "\n";
  const std::string caret = std::string(paint.caret) + "^" + paint.end;
  const auto other = report.beside.find(finding.file);
  text += other == report.beside.end()
              ? excerptOf(source, finding.position, caret)
              : excerptOf(host::SourceText(other->second), finding.position, caret);
  for (const std::string& line : finding.log) text += "    log: " + host::printable(line) + "\n";
  return text;
}

struct Totals {
  long errors = 0;
  long warnings = 0;
};

Totals totalsOf(const std::vector<FileReport>& reports) {
  Totals totals;
  for (const FileReport& report : reports) {
    totals.errors += countOf(report.findings, Severity::kError);
    totals.warnings += countOf(report.findings, Severity::kWarning);
  }
  return totals;
}

std::string totalsText(const std::vector<FileReport>& reports) {
  const Totals totals = totalsOf(reports);
  std::string text = host::counted(static_cast<long>(reports.size()), "file") +
                     " checked: " + host::counted(totals.errors, "error") + ", " +
                     host::counted(totals.warnings, "warning");
  if (totals.errors + totals.warnings > 0) {
    text += "; --explain CODE says what the code of a finding means";
  }
  return text + "\n";
}

// What the library logs about a description that it does not load, or about any
// description when everything is wanted.
std::string loadText(const FileReport& report, host::LogDetail detail) {
  if (!report.load) return "";
  const LoadReport& load = *report.load;
  if (load.loaded && detail != host::LogDetail::kAll) return "";
  std::string text =
      host::printable(report.file) + ": note: the library " +
      (load.loaded ? "loads the description" : "does not load the description (" + load.end + ")") +
      "\n";
  for (const LoadLine& line : load.lines) {
    if (line.level > 1 && detail != host::LogDetail::kAll) continue;
    text += "    log: " + host::printable(line.text) + "\n";
  }
  return text;
}

Json loadJson(const LoadReport& load) {
  Json lines = Json::array();
  for (const LoadLine& line : load.lines) {
    lines.push_back({{"level", line.level}, {"text", line.text}});
  }
  return {{"loaded", load.loaded}, {"end", load.end}, {"log", lines}};
}

Json findingJson(const Finding& finding) {
  const CodeRow& row = rowOf(finding.code);
  Json json = {{"line", finding.position.line},
               {"column", finding.position.column},
               {"severity", wordOf(row.severity)},
               {"code", row.name},
               {"message", finding.sentence},
               {"remedy", finding.remedy},
               {"log", finding.log}};
  if (!finding.file.empty()) json["file"] = finding.file;
  return json;
}

Json fileJson(const FileReport& report) {
  Json findings = Json::array();
  for (const Finding& finding : report.findings) findings.push_back(findingJson(finding));
  const Json load = report.load ? loadJson(*report.load) : Json();
  return {{"file", report.file}, {"usable", report.usable}, {"load", load}, {"findings", findings}};
}

}  // namespace

const std::string& fileOf(const FileReport& report, const Finding& finding) {
  return finding.file.empty() ? report.file : finding.file;
}

const char* wordOf(Severity severity) {
  return severity == Severity::kError ? "error" : "warning";
}

std::string reportText(const std::vector<FileReport>& reports, const TextStyle& style) {
  const Paint& paint = style.colour ? kColours : kNoColours;
  std::string text;
  for (const FileReport& report : reports) {
    const host::SourceText source(report.source);
    for (const Finding& finding : report.findings) {
      const bool isError = rowOf(finding.code).severity == Severity::kError;
      if (!isError && style.detail == host::LogDetail::kErrors) continue;
      text += findingText(report, source, finding, paint);
    }
    text += loadText(report, style.detail);
  }
  return text + totalsText(reports);
}

std::string reportJson(const std::vector<FileReport>& reports) {
  Json files = Json::array();
  for (const FileReport& report : reports) files.push_back(fileJson(report));
  const Totals totals = totalsOf(reports);
  const Json document = {
      {"files", files}, {"errors", totals.errors}, {"warnings", totals.warnings}};
  // Names of files and texts need not be UTF-8.
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string explainCode(const CodeRow& row) {
  return std::string(row.name) + " (" + wordOf(row.severity) + ")\n" + row.explanation + "\n";
}

std::string explainAllCodes() {
  std::string text;
  for (const CodeRow& row : allCodes()) {
    if (!text.empty()) text += "\n";
    text += explainCode(row);
  }
  return text;
}

}  // namespace driver_feature::check
