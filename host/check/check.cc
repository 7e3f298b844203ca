#include "host/check/check.h"

#include <algorithm>

#include "host/base/input_file.h"
#include "host/check/addition_rules.h"
#include "host/check/allowances.h"
#include "host/check/fixes.h"
#include "host/check/rules.h"
#include "host/check/trial_load.h"
#include "host/check/trial_output.h"
#include "host/check/verdict.h"
#include "host/description/document.h"
#include "host/description/element.h"
#include "host/description/source_text.h"
#include "host/session/routine_look_up.h"
#include "host/description/text_encoding.h"

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

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

bool holds(const Findings& findings, Code code) {
  return std::any_of(findings.begin(), findings.end(),
                     [code](const Finding& finding) { return finding.code == code; });
}

// The texts of the files beside the description that the findings name.
void readBeside(FileReport& report) {
  for (const Finding& finding : report.findings) {
    if (finding.file.empty() || report.beside.contains(finding.file)) continue;
    const auto text = host::readFile(finding.file);
    report.beside[finding.file] =
        text ? host::decodeText(*text, host::declaredEncoding(*text)) : std::string();
  }
}

// A place of a line alone is moved to its first character.
void placeInLines(FileReport& report) {
  std::map<std::string, host::SourceText> sources;
  for (Finding& finding : report.findings) {
    if (finding.position.line == 0 || finding.position.column > 0) continue;
    const std::string& text = finding.file.empty() ? report.source : report.beside[finding.file];
    const auto source = sources.try_emplace(finding.file, text).first;
    const std::string_view line = source->second.line(finding.position.line).value_or("");
    const std::size_t blanks = line.find_first_not_of(" \t");
    finding.position.column = blanks != std::string_view::npos ? static_cast<int>(blanks) + 1 : 1;
  }
}

// What the description has beside its features. `triesValues`: whether it can be
// loaded again.
void checkBeside(FileReport& report, const host::Document& document,
                 const host::Element& description, const host::Plugin& plugin, bool triesValues,
                 const std::string& language) {
  const host::Additions additions = readAdditions(document);
  const bool needsValues = !additions.rules.rules.empty() || !additions.presets.empty();
  std::optional<ValueTrial> trial;
  if (triesValues && needsValues) {
    trial = tryValues(plugin, document, additions.presets);
  }
  const FeatureTable features(description);
  for (Finding& finding : applyAdditionRules({document, additions, features, trial, language})) {
    report.findings.push_back(std::move(finding));
  }
  readBeside(report);
  placeInLines(report);
}

void takeAllAllowed(FileReport& report) {
  report.allowed = takeAllowed(report.source, report.findings);
  for (const auto& [file, text] : report.beside) {
    if (!file.ends_with(".xml")) continue;
    for (AllowedFinding& allowed : takeAllowed(text, report.findings, file)) {
      report.allowed.push_back(std::move(allowed));
    }
  }
}

host::Result<FileReport> checkDocument(FileReport report, const host::Document& document,
                                       const host::Plugin& plugin, Trial trial,
                                       const std::string& language) {
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
  const bool triesValues = report.load->loaded && !holds(report.findings, Code::kNotARoutine);
  checkBeside(report, document, description, plugin, triesValues, language);
  takeAllAllowed(report);
  sortByPosition(report.findings);
  addFixes(report.source, description, host::routineNames(), report.findings);
  return report;
}

}  // namespace

host::Result<FileReport> checkFile(const std::string& path, const host::Plugin& plugin, Trial trial,
                                   const std::string& language) {
  host::Result<std::string> text = host::Document::readText(path);
  if (text) return checkText(path, std::move(*text), plugin, trial, language);
  FileReport report;
  report.file = path;
  report.findings.push_back(findingOf(text.error()));
  return report;
}

host::Result<FileReport> checkText(const std::string& path, std::string text,
                                   const host::Plugin& plugin, Trial trial,
                                   const std::string& language) {
  FileReport report;
  report.file = path;
  report.source = host::decodeText(text, host::declaredEncoding(text));
  if (text.starts_with(kByteOrderMark)) report.mark = kByteOrderMark;
  report.isUtf8 = text == report.mark + report.source;
  const host::Result<host::Document> document = host::Document::ofText(path, std::move(text));
  report.usable = document.has_value();
  if (report.usable) return checkDocument(std::move(report), *document, plugin, trial, language);
  report.findings.push_back(findingOf(document.error()));
  return report;
}

}  // namespace driver_feature::check
