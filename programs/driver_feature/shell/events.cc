#include "programs/driver_feature/shell/events.h"

#include <utility>

#include "host/session/group_view.h"
#include "host/session/update_callback.h"
#include "programs/driver_feature/shell/words.h"

namespace driver_feature::cli {

namespace {

EventWatch* current = nullptr;

std::string flagsText(bool available, bool visible) {
  return std::string(available ? "" : ", unavailable") + (visible ? "" : ", hidden");
}

}  // namespace

std::string currentValueWord(const host::FeatureView& feature) {
  switch (feature.kind()) {
    case host::FeatureKind::kMultiSelect:
      return quoteWord(feature.currentChoice().value_or("(none)"));
    case host::FeatureKind::kIntEntry:
      return std::to_string(feature.currentInt());
    case host::FeatureKind::kFloatEntry:
      return host::numberText(feature.currentFloat());
    case host::FeatureKind::kTextEntry:
      return quoteWord(feature.currentText());
    default:
      return "no value";
  }
}

ModelState stateOf(const host::Model& model, CoreFeatureSet& set) {
  ModelState state;
  for (const auto& [name, feature] : model.features) {
    state[name] = currentValueWord(feature) + flagsText(feature.isAvailable(), feature.isVisible());
    for (const host::Choice& choice : feature.choices()) {
      state[name + " option " + choice.name] =
          (choice.available ? "available" : "unavailable") + flagsText(true, choice.visible);
    }
  }
  for (const host::GroupEntry& entry : model.index.groups()) {
    if (entry.kind != host::GroupKind::kDynamic) continue;
    const auto group = findDynamicGroup(set, model.index, entry.name);
    if (group) state[entry.name + " records"] = std::to_string(group->count());
  }
  return state;
}

EventWatch::EventWatch(host::Session& session, Report report)
    : session_(session),
      report_(std::move(report)),
      state_(stateOf(session.model(), session.features())),
      ownCallback_(host::updateCallbackOf(session.description())) {
  current = this;
  session_.setUpdateCallback(&EventWatch::onUpdate);
}

EventWatch::~EventWatch() {
  session_.setUpdateCallback(ownCallback_);
  current = nullptr;
}

void EventWatch::look() {
  ModelState now = stateOf(session_.model(), session_.features());
  for (const auto& [what, value] : now) {
    const auto before = state_.find(what);
    if (before != state_.end() && before->second == value) continue;
    const std::string old = before != state_.end() ? before->second : "absent";
    const auto feature = session_.model().features.find(what);
    const bool isSecret =
        feature != session_.model().features.end() && feature->second.isEncrypted();
    std::string change = what + ": ";
    change += isSecret ? "another value, which is not shown" : old;
    if (!isSecret) change += " -> " + value;
    report_(EventKind::kChange, change);
  }
  state_ = std::move(now);
}

bool EventWatch::onUpdate() {
  current->look();
  current->report_(EventKind::kNotification, "update callback");
  return current->ownCallback_();
}

}  // namespace driver_feature::cli
