#include "host/page/state.h"

#include <algorithm>

#include "host/base/text.h"
#include "host/page/shown_text.h"
#include "host/session/group_view.h"
#include "host/settings/setting.h"
#include "host/settings/settings_file.h"
#include "host/settings/settings_text.h"

namespace driver_feature::page {

namespace {

bool isSecret(const CatalogFeature* feature) {
  return feature != nullptr && feature->view->isEncrypted();
}

// The parts of a state that follow from one feature after the other.
class StateReader {
 public:
  StateReader(const Json& ruledOut) : ruledOut_(ruledOut) {
    for (const char* name : {"values", "off", "hiddenChoices", "disabled"}) {
      state_[name] = Json::object();
    }
    for (const char* name : {"masked", "changed", "hidden"}) state_[name] = Json::array();
  }

  void read(const CatalogFeature& feature) {
    const host::FeatureView& view = *feature.view;
    const bool hasValue = view.hasValue();
    if (!view.isVisible()) state_["hidden"].push_back(feature.shown);
    if (hasValue && !view.isAvailable()) {
      // Nobody says why.
      state_["disabled"][feature.shown] = "";
    }
    if (hasValue && !feature.isColumn) readValue(feature);
    readChoices(feature);
  }

  Json& state() { return state_; }

 private:
  void readValue(const CatalogFeature& feature) {
    std::string value = settingText(*feature.view).value_or("");
    if (!feature.view->isAtDefault()) state_["changed"].push_back(feature.shown);
    if (feature.view->isEncrypted()) {
      if (!value.empty()) state_["masked"].push_back(feature.shown);
      value.clear();
    }
    state_["values"][feature.shown] = shown(value);
  }

  void readChoices(const CatalogFeature& feature) {
    static const std::string kSensitivity = "Sensitivity";
    static const std::string kVisibility = "Visibility";
    Json off = ruledOut_.contains(feature.shown) ? ruledOut_[feature.shown] : Json();
    Json hidden;
    for (const CatalogChoice& choice : feature.choices) {
      bool isSensitive = true;
      bool isVisible = true;
      choice.option->getOptionProperty(kSensitivity, &isSensitive);
      choice.option->getOptionProperty(kVisibility, &isVisible);
      if (!isSensitive && !off.contains(choice.shown)) {
        off[choice.shown] = "option " + host::inQuotes(choice.shown) + " of feature " +
                            host::inQuotes(feature.shown) + " is unavailable";
      }
      if (!isVisible) hidden.push_back(choice.shown);
    }
    if (!off.is_null()) state_["off"][feature.shown] = std::move(off);
    if (!hidden.is_null()) state_["hiddenChoices"][feature.shown] = std::move(hidden);
  }

  const Json& ruledOut_;
  Json state_;
};

// What can be chosen, but not without other changes.
Json conflictsOf(const Catalog& catalog, host::RuleKeeper& keeper, const Json& off) {
  Json conflicts = Json::object();
  for (const auto& [name, choices] : keeper.conflictingChoices()) {
    const CatalogFeature* feature = catalog.find(name);
    if (feature == nullptr) continue;
    const auto unavailable = off.find(feature->shown);
    for (const std::string& choice : choices) {
      std::string text = shown(choice);
      const bool isOff = unavailable != off.end() && unavailable->contains(text);
      if (!isOff) conflicts[feature->shown].push_back(std::move(text));
    }
  }
  return conflicts;
}

Json recordsJson(const Catalog& catalog, const std::vector<PageRecord>& records) {
  Json json = Json::object();
  for (const CatalogRecords& group : catalog.records()) json[group.shown] = Json::array();
  for (const PageRecord& record : records) {
    Json row = Json::array();
    for (const auto& [name, value] : record.members) {
      const bool isMasked = isSecret(catalog.find(name)) && !value.empty();
      row.push_back(isMasked ? host::kMask : shown(value));
    }
    json[shown(record.group)].push_back(std::move(row));
  }
  return json;
}

}  // namespace

const Json& RuledOut::of(host::RuleKeeper& keeper, const Catalog& catalog,
                         const std::string& language) {
  std::vector<rules::TakenOut> choices = keeper.impossible();
  if (reasons_ && choices == choices_ && language == language_) return *reasons_;
  reasons_.emplace(Json::object());
  for (const rules::TakenOut& choice : choices) {
    const CatalogFeature* feature = catalog.find(choice.feature);
    if (feature == nullptr) continue;
    (*reasons_)[feature->shown][shown(choice.choice)] =
        shown(host::join(keeper.reasonsOf(choice), "; and "));
  }
  choices_ = std::move(choices);
  language_ = language;
  return *reasons_;
}

std::vector<PageRecord> recordsOf(const host::Session& session, const Catalog& catalog) {
  std::vector<PageRecord> records;
  for (const CatalogRecords& entry : catalog.records()) {
    const auto group = findDynamicGroup(session.features(), session.model().index, entry.name);
    if (!group || group->count() == 0) continue;
    for (const host::Record& row : group->records()) {
      PageRecord record{entry.name, {}};
      for (const std::size_t column : entry.columns) {
        record.members.push_back({entry.members[column], row[column]});
      }
      records.push_back(std::move(record));
    }
  }
  return records;
}

host::SecretOutputs secretsOf(const Catalog& catalog, const std::vector<PageRecord>& records,
                              const std::vector<host::Setting>& tried) {
  std::vector<std::string> names;
  std::string present;
  std::string more;
  for (const CatalogFeature& feature : catalog.features()) {
    if (!feature.view->isEncrypted()) continue;
    names.push_back(feature.name);
    // The default value is in the description, for everybody to read.
    if (feature.isColumn || feature.view->isAtDefault()) continue;
    present += host::settingLine({feature.name, settingText(*feature.view).value_or("")});
  }
  if (names.empty()) return {names, {}};
  for (const host::Setting& setting : tried) more += host::settingLine(setting);
  for (const PageRecord& record : records) {
    for (const host::Setting& member : record.members) more += host::settingLine(member);
  }
  return {names, {present, more}};
}

Json stateOf(const Catalog& catalog, const std::vector<PageRecord>& records,
             host::RuleKeeper& keeper, const Json& ruledOut) {
  StateReader reader(ruledOut);
  for (const CatalogFeature& feature : catalog.features()) reader.read(feature);
  Json state = std::move(reader.state());
  state["conflicts"] = conflictsOf(catalog, keeper, state["off"]);
  state["records"] = recordsJson(catalog, records);
  return state;
}

Json differenceOf(const Json& before, const Json& now) {
  Json difference = Json::object();
  for (const auto& [name, value] : now.items()) {
    const auto old = before.find(name);
    if (old == before.end() || *old != value) difference[name] = value;
  }
  for (const auto& [name, value] : before.items()) {
    if (!now.contains(name)) difference[name] = nullptr;
  }
  return difference;
}

}  // namespace driver_feature::page
