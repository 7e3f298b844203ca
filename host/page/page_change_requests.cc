// The requests that change values, and what is replied to them.

#include <algorithm>
#include <utility>

#include "host/page/output_change.h"
#include "host/page/page.h"
#include "host/page/page_records.h"
#include "host/page/page_request.h"
#include "host/page/plan_json.h"
#include "host/page/shown_text.h"
#include "host/settings/settings_text.h"

namespace driver_feature::page {

namespace {

// What replies to changes hold the differences of.
constexpr const char* kParts[] = {"values",    "off",     "hiddenChoices", "disabled",
                                  "conflicts", "records", "outputs"};

std::vector<host::Setting> settingsOf(const std::string& text) {
  std::vector<host::Setting> settings;
  for (host::SettingsLine& line : host::parseSettings(text).features) {
    settings.push_back(std::move(line.setting));
  }
  return settings;
}

Json listOf(const std::vector<std::string>& texts, const host::SecretOutputs& secrets) {
  Json list = Json::array();
  for (const std::string& text : texts) list.push_back(shown(secrets.masked(text)));
  return list;
}

// What has changed of each output that has.
void shortenOutputs(const Json& before, Json& outputs) {
  for (auto& [name, output] : outputs.items()) {
    const auto old = before.find(name);
    if (old != before.end()) output = outputChange(*old, output);
  }
}

}  // namespace

Json Page::set(const Json& request) {
  const auto settings = settingsIn(request, catalog_);
  const auto conduct = conductIn(request);
  if (!settings) return error(settings.error());
  if (!conduct) return error(conduct.error());
  return changed(carryOut([&] { return changes_.set(*settings, *conduct); }), *settings);
}

Json Page::reset(const Json& /*request*/) {
  const Outcome outcome = carryOut([&] { return changes_.reset(); });
  if (outcome.isMade) journal_.clear();
  return changed(outcome, {});
}

Json Page::openPresent(const Json& request) {
  const bool isLenient = flagIn(request, "lenient") || textIn(request, "do") == "restore";
  const auto present = presentIn(request, catalog_);
  const auto conduct = conductIn(request);
  if (!present) return error(present.error());
  if (!conduct) return error(conduct.error());
  const Outcome outcome = carryOut([&] { return changes_.open(*present, *conduct, isLenient); });
  if (outcome.isMade) journal_.clear();
  std::vector<host::Setting> wishes = present->settings;
  std::erase_if(wishes, [&](const host::Setting& setting) {
    return std::ranges::find(outcome.lost, setting.name) != outcome.lost.end();
  });
  return changed(outcome, wishes);
}

Json Page::openText(const Json& request) {
  const std::string text = textIn(request, "text");
  return changed(carryOut([&] { return changes_.openText(text); }), settingsOf(text));
}

Json Page::preset(const Json& request) {
  const auto conduct = conductIn(request);
  if (!conduct) return error(conduct.error());
  const std::string text = textIn(request, "name");
  std::string name = text;
  std::vector<host::Setting> wishes;
  for (const host::Preset& preset : session_->additions(host::kPresetsPart).presets) {
    if (shown(preset.name) != text) continue;
    name = preset.name;
    wishes = settingsOf(preset.settings);
  }
  return changed(carryOut([&] { return changes_.preset(name, wishes, *conduct); }), wishes);
}

Json Page::records(const Json& request) {
  const auto action = recordsActionIn(request);
  if (!action) return error(action.error());
  std::vector<host::Setting> tried;
  const CatalogRecords* group = catalog_.findRecords(action->group);
  for (std::size_t i = 0; group != nullptr && i < action->values.size(); ++i) {
    const bool isColumn = i < group->columns.size() && action->values[i].has_value();
    if (isColumn) tried.push_back({group->members[group->columns[i]], *action->values[i]});
  }
  const Outcome outcome = carryOut([&] {
    return changes_.make([&] {
      const host::Result<> done = page::carryOut(*session_, catalog_, *action);
      return done ? Outcome() : Outcome::refusal(done.error(), action->group);
    });
  });
  return outcome.isMade ? changed(outcome, {}) : refused(outcome, tried);
}

// What the library logs meanwhile belongs to the change.
Outcome Page::carryOut(const PageChanges::Work& work) {
  const host::LogWatch watch(
      session_->log(), [this](int level, std::string_view line) { notices_.take(level, line); });
  return work();
}

Json Page::refused(const Outcome& outcome, const std::vector<host::Setting>& wishes) {
  const host::SecretOutputs secrets = secretsOf(catalog_, pageRecords_, wishes);
  const bool hasPlan = !wishes.empty() && keeper_.hasRules();
  Json reply = {{"ok", false},
                {"problem", shown(secrets.masked(outcome.problem))},
                {"plan", hasPlan ? planJson(keeper_.planFor(wishes), keeper_) : Json()},
                {"serial", request_.serial}};
  if (!outcome.feature.empty()) reply["feature"] = shown(outcome.feature);
  return reply;
}

Json Page::changed(const Outcome& outcome, const std::vector<host::Setting>& wishes) {
  if (!outcome.isMade) return refused(outcome, wishes);
  const Json before = look(wishes);
  ++request_.serial;
  Json reply = head();
  reply["whole"] = false;
  reply["ok"] = true;
  for (const char* part : kParts) reply[part] = differenceOf(before[part], state_[part]);
  shortenOutputs(before["outputs"], reply["outputs"]);
  reply.update(whole_);
  const host::SecretOutputs secrets = secretsOf(catalog_, pageRecords_, wishes);
  reply["also"] = listOf(outcome.also, secrets);
  if (!outcome.lost.empty()) reply["lost"] = listOf(outcome.lost, secrets);
  return reply;
}

}  // namespace driver_feature::page
