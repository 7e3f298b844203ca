// "resolve": what the rules of a description make of settings.

#include <array>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/base/output_file.h"
#include "host/base/standard_streams.h"
#include "host/rules/explain.h"
#include "host/settings/rule_keeping.h"
#include "programs/common/console.h"
#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::ordered_json;
using Kind = rules::Plan::Kind;

constexpr const char* kFooter =
    "Shows which other features --resolve would change, and why. The newest value\n"
    "stays, hardware is never changed, and as few others as possible change. Nothing\n"
    "is written.\n"
    "\n"
    "Examples:\n"
    "  driver-feature resolve office.xml -o MediaType=Transparency\n"
    "  driver-feature resolve office.xml --settings my.conf --json\n"
    "\n"
    "Exit status: 0 the values fit, or do after the changes shown, 1 there is no\n"
    "way, or the description could not be loaded, 2 wrong usage, an unusable file\n"
    "or a refused setting.";

constexpr std::array kRows = {
    kDescriptionRow,
    ArgumentRow{"--settings", "FILE", "Load a settings file before any -o is set; may be repeated",
                kRepeats},
    ArgumentRow{"-o,--option", "NAME=VALUE", "Set a feature; may be repeated", kRepeats},
    kAllowanceRow,
    ArgumentRow{"--json", "", "Print a JSON document"},
};

Json changesJson(const std::vector<rules::Change>& changes) {
  Json list = Json::array();
  for (const auto& [feature, from, to] : changes) {
    list.push_back({{"feature", feature}, {"from", from}, {"to", to}});
  }
  return list;
}

Json rulesJson(const rules::Plan& plan, const host::Rules& rules) {
  Json list = Json::array();
  for (const rules::BrokenRule& broken : plan.rules) {
    const host::Rule& rule = rules.rules[static_cast<std::size_t>(broken.rule)];
    Json values = Json::object();
    for (const auto& [feature, value] : broken.values) values[feature] = value;
    list.push_back({{"id", rule.id},
                    {"text", rule.text},
                    {"file", rule.place.file},
                    {"line", rule.place.position.line},
                    {"values", values}});
  }
  return list;
}

std::string jsonOf(const rules::Plan& plan, host::RuleKeeper& keeper) {
  const Json document = {
      {"result", rules::wordOf(plan.kind)},
      {"changes", changesJson(plan.changes)},
      {"rules", keeper.hasRules() ? rulesJson(plan, keeper.rules()) : Json::array()},
      {"hardware", changesJson(plan.hardware)},
      {"withHardware", changesJson(plan.withHardware)}};
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string textOf(const rules::Plan& plan, host::RuleKeeper& keeper) {
  if (plan.kind == Kind::kFits) return "The values fit together.\n";
  std::vector<TableRow> rows = {{{"NAME", "NOW"}, {"THEN"}}};
  for (const auto& [feature, from, to] : plan.changes) rows.push_back({{feature, from}, {to}});
  std::string text = layOut(rows, 0) + "\n";
  for (const std::string& reason : keeper.reasonsOf(plan)) text += reason + "\n";
  return text;
}

struct Answer {
  rules::Plan plan;
  std::string text;
  host::Problem refusal;
};

host::Result<Answer> answerFor(const Arguments& arguments, const host::SessionRequest& general) {
  const host::StandardOutputDiversion diversion;
  auto session = host::Session::open(sessionOf(arguments, general));
  if (!session) return failureOf(session);
  host::RuleKeeper keeper(**session);
  host::Result<> made = makeChangesUnjudged(**session, changesOf(arguments), keeper);
  if (!made) return failureOf(made);
  Answer answer{keeper.plan(), "", {}};
  answer.refusal = keeper.refusalOf(answer.plan);
  answer.refusal.kind = host::Problem::Kind::kDifferent;
  const bool isWay = answer.plan.kind == Kind::kFits || answer.plan.kind == Kind::kMended;
  if (arguments.has("--json")) {
    answer.text = jsonOf(answer.plan, keeper);
  } else if (isWay) {
    answer.text = textOf(answer.plan, keeper);
  }
  return answer;
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  const auto answer = answerFor(arguments, general);
  if (!answer) return host::Failure(answer.error());
  host::Result<> written = host::writeToStandardOutput(answer->text);
  if (!written) return failureOf(written);
  const Kind kind = answer->plan.kind;
  if (kind == Kind::kFits || kind == Kind::kMended) return kSuccess;
  return host::Failure(answer->refusal);
}

}  // namespace

const CommandRow kResolveCommand = {
    "resolve", "Show what else must change where rules forbid values together",
    kFooter,   kRows,
    {},        &run,
    true};

}  // namespace driver_feature::cli
