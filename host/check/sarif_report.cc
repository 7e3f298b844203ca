#include "host/check/sarif_report.h"

#include <algorithm>
#include <string_view>

#include <nlohmann/json.hpp>

#include "host/base/text.h"
namespace driver_feature::check {

namespace {

using Json = nlohmann::ordered_json;

// A path as a URI reference. What is not plain in one is written as %NN.
std::string uriOf(const std::string& path) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  std::string uri = path.starts_with('/') ? "file://" : "";
  for (const char character : path) {
    const bool isPlain = kPlain.find(character) != std::string_view::npos;
    uri += isPlain ? std::string(1, character) : host::percentEncoded(character);
  }
  return uri;
}

Json ruleJson(const CodeRow& row) {
  return {{"id", row.name},
          {"fullDescription", {{"text", row.explanation}}},
          {"defaultConfiguration", {{"level", wordOf(row.severity)}}}};
}

Json resultJson(const std::string& file, const Finding& finding) {
  const CodeRow& row = rowOf(finding.code);
  Json place = {{"artifactLocation", {{"uri", uriOf(file)}}}};
  if (finding.position.line > 0) {
    place["region"] = {{"startLine", finding.position.line},
                       {"startColumn", std::max(finding.position.column, 1)}};
  }
  return {{"ruleId", row.name},
          {"ruleIndex", static_cast<std::size_t>(finding.code)},
          {"level", wordOf(row.severity)},
          {"message", {{"text", finding.sentence + "; " + finding.remedy}}},
          {"locations", Json::array({{{"physicalLocation", place}}})}};
}

Json resultsJson(const std::vector<FileReport>& reports) {
  Json results = Json::array();
  for (const FileReport& report : reports) {
    for (const Finding& finding : report.findings) {
      results.push_back(resultJson(fileOf(report, finding), finding));
    }
    for (const AllowedFinding& allowed : report.allowed) {
      Json result = resultJson(fileOf(report, allowed.finding), allowed.finding);
      Json suppression = {{"kind", "inSource"}};
      if (!allowed.reason.empty()) suppression["justification"] = allowed.reason;
      result["suppressions"] = Json::array({suppression});
      results.push_back(std::move(result));
    }
  }
  return results;
}

}  // namespace

std::string reportSarif(const std::vector<FileReport>& reports, const std::string& version) {
  Json rules = Json::array();
  for (const CodeRow& row : allCodes()) rules.push_back(ruleJson(row));
  const bool complete = std::all_of(reports.begin(), reports.end(),
                                    [](const FileReport& report) { return report.usable; });
  const Json driver = {{"name", "driver-feature"}, {"version", version}, {"rules", rules}};
  const Json run = {{"tool", {{"driver", driver}}},
                    {"columnKind", "unicodeCodePoints"},
                    {"invocations", Json::array({{{"executionSuccessful", complete}}})},
                    {"results", resultsJson(reports)}};
  const Json document = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                         {"version", "2.1.0"},
                         {"runs", Json::array({run})}};
  // Texts of a description need not be UTF-8.
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace driver_feature::check
