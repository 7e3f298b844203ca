#include "host/check/check.h"

#include <algorithm>

#include "host/check/allowances.h"
#include "host/check/fixes.h"
#include "host/check/rules.h"
#include "host/check/trial_load.h"
#include "host/check/trial_output.h"
#include "host/check/verdict.h"
#include "host/description/document.h"
#include "host/description/element.h"
#include "host/description/start_tags.h"
#include "host/session/routine_look_up.h"

namespace driver_feature::check {

namespace {

Finding findingOf(const host::Problem& problem) {
  Code code = Code::kUnreadable;
  if (problem.kind == host::Problem::Kind::kMalformed) code = Code::kNotXml;
  if (problem.kind == host::Problem::Kind::kNoDescription) code = Code::kNoDescription;
  return {code, problem.position, problem.text, problem.remedy, {}};
}

Finding secondDescription(host::Position position) {
  return {Code::kSecondDescription,
          position,
          "this FeatureDescription is not read, because it is not the first one",
          "join the two or remove one of them",
          {}};
}

constexpr const char* kMark = "\xEF\xBB\xBF";

bool holds(const Findings& findings, Code code) {
  return std::any_of(findings.begin(), findings.end(),
                     [code](const Finding& finding) { return finding.code == code; });
}

host::Result<FileReport> checkDocument(FileReport report, const host::Document& document,
                                       const host::Plugin& plugin, Trial trial) {
  const host::DescriptionElements elements = elementsOf(document);
  const host::Element& description = *elements.description;
  if (elements.second) report.findings.push_back(secondDescription(*elements.second));
  for (const Finding& finding : applyRules(description)) report.findings.push_back(finding);
  host::Result<LoadReport> load = loadInChild(plugin, document.description());
  if (!load) return failureOf(load);
  report.load = std::move(*load);
  compareVerdicts(*report.load, description.position, report.findings);
  // A name that is not a routine's would only crash.
  const bool tries = trial == Trial::kLoadAndOutputs && report.load->loaded;
  if (tries && !holds(report.findings, Code::kNotARoutine)) {
    host::Result<> tried = tryOutputs(plugin, document.description(), description, report.findings);
    if (!tried) return failureOf(tried);
  }
  report.allowed = takeAllowed(report.source, report.findings);
  sortByPosition(report.findings);
  addFixes(report.source, description, host::routineNames(), report.findings);
  return report;
}

}  // namespace

host::Result<FileReport> checkFile(const std::string& path, const host::Plugin& plugin,
                                   Trial trial) {
  host::Result<std::string> text = host::Document::readText(path);
  if (text) return checkText(path, std::move(*text), plugin, trial);
  FileReport report;
  report.file = path;
  report.findings.push_back(findingOf(text.error()));
  return report;
}

host::Result<FileReport> checkText(const std::string& path, std::string text,
                                   const host::Plugin& plugin, Trial trial) {
  FileReport report;
  report.file = path;
  report.source = host::decodeText(text, host::declaredEncoding(text));
  if (text.starts_with(kMark)) report.mark = kMark;
  report.isUtf8 = text == report.mark + report.source;
  const host::Result<host::Document> document = host::Document::ofText(path, std::move(text));
  report.usable = document.has_value();
  if (report.usable) return checkDocument(std::move(report), *document, plugin, trial);
  report.findings.push_back(findingOf(document.error()));
  return report;
}

}  // namespace driver_feature::check
