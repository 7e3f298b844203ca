// The present values as the state that a page knows.

#include <algorithm>
#include <map>
#include <utility>

#include "host/page/page.h"
#include "host/page/shown_text.h"
#include "host/page/trial.h"
#include "host/session/log.h"
#include "host/settings/setting.h"
#include "host/settings/settings_file.h"

namespace driver_feature::page {

namespace {

// What replies to changes hold as it is.
constexpr const char* kWholeParts[] = {"masked", "changed", "hidden"};

}  // namespace

Json Page::look(const std::vector<host::Setting>& wishes) {
  const std::vector<Output> outputs = writeOutputs(*session_, catalog_, notices_);
  pageRecords_ = recordsOf(*session_, catalog_);
  Json all = lookAtSettings();
  const host::SecretOutputs secrets = secretsOf(catalog_, pageRecords_, {});
  all["outputs"] = Json::object();
  for (const Output& output : outputs) all["outputs"][output.name] = toJson(output, secrets);
  whole_ = Json::object();
  for (const char* part : kWholeParts) {
    whole_[part] = std::move(all[part]);
    all.erase(part);
  }
  Json before = std::exchange(state_, std::move(all));
  addNotices(whole_, secrets);
  noteInJournal(wishes, outputs);
  const CommandFrame frame{request_.description, request_.library, request_.routines};
  whole_["command"] = isOfPrinter() ? "" : shown(commandLine(frame, shownPresent(true)));
  whole_["query"] = shown(queryOf(shownPresent(false)));
  return before;
}

Json Page::lookAtSettings() {
  return stateOf(catalog_, pageRecords_, keeper_, ruledOut_.of(keeper_, catalog_, language_));
}

void Page::noteInJournal(const std::vector<host::Setting>& wishes,
                         const std::vector<Output>& outputs) {
  std::map<std::string, std::string> wished;
  for (const host::Setting& wish : wishes) wished[wish.name] = wish.value;
  // What has changed besides, or became something else than was wished.
  std::vector<host::Setting> others;
  std::vector<std::string> values;
  for (const CatalogFeature& feature : catalog_.features()) {
    const std::size_t place = values.size();
    values.push_back(settingText(*feature.view).value_or(""));
    if (feature.isColumn || place >= valuesBefore_.size()) continue;
    const auto wish = wished.find(feature.name);
    const std::string& expected = wish != wished.end() ? wish->second : valuesBefore_[place];
    if (values.back() != expected) others.push_back({feature.name, values.back()});
  }
  valuesBefore_ = std::move(values);
  Journal::Try tries;
  if (pristine_) {
    tries = [this,
             digest = digestOf(catalog_, outputs)](const std::vector<host::Setting>& settings) {
      return tryIn(*pristine_, present(settings), digest);
    };
  }
  journal_.note(wishes, others, changedSettings(), tries);
}

void Page::addNotices(Json& reply, const host::SecretOutputs& secrets) const {
  Json log = Json::array();
  for (const auto& [level, text] : notices_.lines()) {
    log.push_back({{"level", host::wordOfLevel(level)}, {"text", shown(secrets.masked(text))}});
  }
  if (notices_.linesLeftOut() > 0) {
    log.push_back(
        {{"level", "info"}, {"text", std::to_string(notices_.linesLeftOut()) + " more lines"}});
  }
  reply["log"] = std::move(log);
  reply["notifications"] = Json::array();
  for (const std::string& name : notices_.notifications()) {
    reply["notifications"].push_back(shown(name));
  }
}

// What differs from the default values: what a person has set in its order, then
// what routines have changed.
std::vector<host::Setting> Page::changedSettings() const {
  std::vector<host::Setting> settings;
  const auto add = [&](const CatalogFeature& feature) {
    if (feature.isColumn || feature.view->isAtDefault()) return;
    if (auto value = settingText(*feature.view)) settings.push_back({feature.name, *value});
  };
  const std::vector<std::string>& set = keeper_.set();
  for (const std::string& name : set) {
    if (const CatalogFeature* feature = catalog_.find(name)) add(*feature);
  }
  std::vector<std::string> sorted = set;
  std::ranges::sort(sorted);
  for (const CatalogFeature& feature : catalog_.features()) {
    if (!std::ranges::binary_search(sorted, feature.name)) add(feature);
  }
  return settings;
}

PresentSettings Page::present(const std::vector<host::Setting>& settings) const {
  return {settings, pageRecords_};
}

// The journal with masks in place of secrets, or without what has one.
PresentSettings Page::shownPresent(bool showsMasks) const {
  const auto mask = [this](host::Setting& setting) {
    const CatalogFeature* feature = catalog_.find(setting.name);
    const bool isSecret =
        feature != nullptr && feature->view->isEncrypted() && !setting.value.empty();
    if (isSecret) setting.value = host::kMask;
    return isSecret;
  };
  PresentSettings present;
  for (host::Setting setting : journal_.settings()) {
    if (!mask(setting) || showsMasks) present.settings.push_back(std::move(setting));
  }
  for (PageRecord record : pageRecords_) {
    bool hasSecret = false;
    for (host::Setting& member : record.members) hasSecret = mask(member) || hasSecret;
    if (!hasSecret || showsMasks) present.records.push_back(std::move(record));
  }
  return present;
}

}  // namespace driver_feature::page
