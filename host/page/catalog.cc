#include "host/page/catalog.h"

#include <algorithm>
#include <set>

#include "host/page/shown_text.h"
#include "host/session/group_view.h"
#include "host/session/host_routines.h"
#include "host/session/update_callback.h"

namespace driver_feature::page {

namespace {

std::vector<CatalogChoice> choicesOf(const host::FeatureView& view) {
  std::vector<CatalogChoice> choices;
  for (host::Choice& choice : view.choices()) {
    IntermediateCoreOption* option = view.option(static_cast<int>(choices.size()));
    std::string text = shown(choice.name);
    choices.push_back({std::move(choice.name), std::move(text), option});
  }
  return choices;
}

// What a description says about its printer: by a rule, or with a name that only
// installable options have.
bool isHardware(const std::string& name, const host::FeatureView& view,
                const std::set<std::string>& named) {
  return named.contains(name) || !view.command("InstOptAttributeName").empty();
}

}  // namespace

const CatalogChoice* CatalogFeature::choiceShownAs(const std::string& text) const {
  const auto named = std::ranges::find(choices, text, &CatalogChoice::name);
  if (named != choices.end()) return &*named;
  const auto found = std::ranges::find(choices, text, &CatalogChoice::shown);
  return found != choices.end() ? &*found : nullptr;
}

Catalog::Catalog(const host::Session& session) {
  const host::Model& model = session.model();
  std::set<std::string> hardware;
  for (const host::HardwareFeature& feature : session.additions(host::kRulesPart).rules.hardware) {
    hardware.insert(feature.name);
  }
  hasChangeRoutines_ = host::updateCallbackOf(session.description()) != &DriverFeatureHostUpdate;
  for (const auto& [name, view] : model.features) {
    const host::FeatureLimits& limits = model.index.limitsOf(name);
    hasChangeRoutines_ = hasChangeRoutines_ || !limits.changeRoutine.empty();
    byName_.emplace(name, features_.size());
    byShown_.emplace(shown(name), features_.size());
    features_.push_back({name, shown(name), &view, !model.index.recordsOf(name).empty(),
                         !limits.group.empty(), isHardware(name, view, hardware), choicesOf(view)});
  }
  addRecords(session);
}

void Catalog::addRecords(const host::Session& session) {
  const host::Model& model = session.model();
  for (const host::GroupEntry& entry : model.index.groups()) {
    if (entry.kind != host::GroupKind::kDynamic) continue;
    const auto group = findDynamicGroup(session.features(), model.index, entry.name);
    if (!group) continue;
    CatalogRecords records{entry.name, shown(entry.name), group->memberNames(), {}};
    for (std::size_t i = 0; i < records.members.size(); ++i) {
      const CatalogFeature* feature = find(records.members[i]);
      if (feature != nullptr && feature->view->hasValue()) records.columns.push_back(i);
    }
    records_.push_back(std::move(records));
  }
}

const CatalogFeature* Catalog::find(const std::string& name) const {
  const auto found = byName_.find(name);
  return found != byName_.end() ? &features_[found->second] : nullptr;
}

const CatalogFeature* Catalog::findShown(const std::string& text) const {
  if (const CatalogFeature* feature = find(text)) return feature;
  const auto found = byShown_.find(text);
  return found != byShown_.end() ? &features_[found->second] : nullptr;
}

const CatalogRecords* Catalog::findRecords(const std::string& text) const {
  const auto found = std::ranges::find(records_, text, &CatalogRecords::shown);
  return found != records_.end() ? &*found : nullptr;
}

std::string Catalog::valueShownAs(const CatalogFeature& feature, const std::string& text) {
  const CatalogChoice* choice = feature.choiceShownAs(text);
  return choice != nullptr ? choice->name : text;
}

}  // namespace driver_feature::page
