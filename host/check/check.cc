#include "host/check/check.h"

#include "host/check/rules.h"
#include "host/check/trial_load.h"
#include "host/check/verdict.h"
#include "host/description/document.h"
#include "host/description/element.h"

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

}  // namespace

host::Result<FileReport> checkFile(const std::string& path, const host::Plugin& plugin) {
  FileReport report;
  report.file = path;
  const host::Result<host::Document> document = host::Document::read(path);
  report.usable = document.has_value();
  if (!report.usable) {
    report.findings.push_back(findingOf(document.error()));
    return report;
  }
  const host::DescriptionElements elements = elementsOf(*document);
  const host::Element& description = *elements.description;
  if (elements.second) report.findings.push_back(secondDescription(*elements.second));
  for (const Finding& finding : applyRules(description)) report.findings.push_back(finding);
  host::Result<LoadReport> load = loadInChild(plugin, document->description());
  if (!load) return failureOf(load);
  report.load = std::move(*load);
  compareVerdicts(*report.load, description.position, report.findings);
  sortByPosition(report.findings);
  return report;
}

}  // namespace driver_feature::check
