#include "host/page_server/findings.h"

#include <filesystem>

#include <nlohmann/json.hpp>

#include "host/base/descriptor.h"
#include "host/check/check.h"
#include "host/page_server/json_text.h"
#include "host/session/plugin.h"

namespace driver_feature::page_server {

namespace {

using Json = nlohmann::json;

constexpr host::EventLoop::Milliseconds kLongestCheck{30000};

Json oneFinding(const std::string& text, const std::string& file) {
  return {{"severity", "error"}, {"code", ""}, {"text", text}, {"remedy", ""},
          {"file", file},        {"line", 0},  {"column", 0}};
}

// As the page names files: from the folder of the description.
std::string shownName(const std::string& file, const std::string& description) {
  const std::filesystem::path folder = std::filesystem::path(description).parent_path();
  return std::filesystem::path(file).lexically_relative(folder.empty() ? "." : folder).string();
}

Json findingsOf(const page::PageRequest& request) {
  const std::string& description = request.description;
  const std::string own = std::filesystem::path(description).filename().string();
  const auto plugin = host::Plugin::load(request.library);
  if (!plugin) return Json::array({oneFinding(describe(plugin.error()), own)});
  for (const std::string& routines : request.routines) {
    const auto loaded = host::loadRoutines(routines);
    if (!loaded) return Json::array({oneFinding(describe(loaded.error()), own)});
  }
  const auto report = check::checkFile(description, *plugin);
  if (!report) return Json::array({oneFinding(describe(report.error()), own)});
  Json findings = Json::array();
  for (const check::Finding& finding : report->findings) {
    const check::CodeRow& row = check::rowOf(finding.code);
    findings.push_back({{"severity", check::wordOf(row.severity)},
                        {"code", row.name},
                        {"text", finding.sentence},
                        {"remedy", finding.remedy},
                        {"file", finding.file.empty() ? own : shownName(finding.file, description)},
                        {"line", finding.position.line},
                        {"column", finding.position.column}});
  }
  return findings;
}

}  // namespace

host::Result<std::unique_ptr<ChildText>> findFindings(
    host::EventLoop& loop, const page::PageRequest& request,
    const std::function<void(const std::string& findings)>& done) {
  const std::string own = std::filesystem::path(request.description).filename().string();
  return ChildText::start(
      loop, kLongestCheck,
      [&request](int pipe) { return host::writeAll(pipe, jsonText(findingsOf(request))) ? 0 : 1; },
      [done, own](const std::string& text, std::optional<int> status) {
        if (Json::accept(text)) return done(text);
        const std::string end = status ? "The check ended with " + host::describeEnd(*status) + "."
                                       : "The check did not end within " +
                                             std::to_string(kLongestCheck.count() / 1000) +
                                             " seconds. Is there a routine that does not return?";
        done(jsonText(Json::array({oneFinding(end, own)})));
      });
}

}  // namespace driver_feature::page_server
