#include "host/check/check.h"

#include "host/check/rules.h"
#include "host/check/schema.h"
#include "host/check/source.h"
#include "host/check/trial_load.h"
#include "host/check/verdict.h"

namespace driver_feature {

FileReport checkFile(const std::string& path, const Plugin& plugin) {
  FileReport report;
  report.file = path;
  const auto source = readSource(path, report.findings);
  report.usable = source != nullptr;
  if (!report.usable) return report;
  const Element& description = *source->elements;
  for (const Finding& finding : applyRules(description)) report.findings.push_back(finding);
  report.load = loadInChild(plugin, source->handle);
  compareVerdicts(*report.load, description.position, report.findings);
  checkSchema(source->text, description, report.findings);
  sortByPosition(report.findings);
  return report;
}

}  // namespace driver_feature
