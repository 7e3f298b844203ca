#include "host/page/trial.h"

#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "host/base/frames.h"
#include "host/session/routine_calls.h"
#include "host/settings/settings_file.h"

namespace driver_feature::page {

namespace {

std::string hashOf(const std::string& text) {
  return std::to_string(std::hash<std::string>()(text)) + "/" + std::to_string(text.size());
}

char flagsOf(CoreOption& option) {
  static const std::string kSensitivity = "Sensitivity";
  static const std::string kVisibility = "Visibility";
  bool isSensitive = true;
  bool isVisible = true;
  option.getOptionProperty(kSensitivity, &isSensitive);
  option.getOptionProperty(kVisibility, &isVisible);
  return static_cast<char>('0' + (isSensitive ? 1 : 0) + (isVisible ? 2 : 0));
}

std::optional<std::string> nextText(std::string& frames) {
  bool isMalformed = false;
  return host::takeFrame(frames, isMalformed);
}

host::Result<> makeAsEmit(host::Session& session, host::RuleKeeper& keeper, std::string question) {
  const auto file = nextText(question);
  if (file && !file->empty()) {
    host::Result<> loaded = loadSettingsText(session.features(), session.model(), *file);
    if (!loaded) return loaded;
  }
  keeper.noteAllChanged();
  while (!question.empty()) {
    const auto name = nextText(question);
    const auto value = nextText(question);
    if (!name || !value) return host::refused("the question is incomplete");
    keeper.noteSet(*name);
    host::Result<> applied = applySetting(session.model(), {*name, *value});
    if (!applied) return applied;
  }
  host::Result<> success = host::successOfRoutines();
  if (!success) return success;
  auto kept = keeper.keep(host::RuleConduct::kRefuse);
  return kept ? host::Result<>() : host::Result<>(host::Failure(kept.error()));
}

}  // namespace

Digest digestOf(const Catalog& catalog, const std::vector<Output>& outputs) {
  std::string texts;
  for (const Output& output : outputs) texts += host::frame(output.text);
  std::string settings;
  for (const CatalogFeature& feature : catalog.features()) {
    const host::FeatureView& view = *feature.view;
    if (feature.isColumn) continue;
    settings += host::frame(settingText(view).value_or(""));
    settings += view.isAvailable() ? '+' : '-';
    settings += view.isVisible() ? '+' : '-';
    for (const CatalogChoice& choice : feature.choices) settings += flagsOf(*choice.option);
  }
  return {hashOf(texts), hashOf(settings)};
}

Journal::Match tryIn(PristineCopy& pristine, const PresentSettings& present, const Digest& wanted) {
  const EmitSettings settings = emitSettingsOf(present);
  std::string question = host::frame(settings.file);
  for (const auto& [name, value] : settings.options) {
    question += host::frame(name) + host::frame(value);
  }
  const auto reply = pristine.ask(question);
  if (!reply || !reply->starts_with(wanted.outputs + " ")) return Journal::Match::kNone;
  const bool isAll = *reply == wanted.outputs + " " + wanted.settings;
  return isAll ? Journal::Match::kAll : Journal::Match::kOutputs;
}

std::string reach(host::Session& session, const Catalog& catalog, host::RuleKeeper& keeper,
                  Notices& notices, const std::string& question) {
  if (!makeAsEmit(session, keeper, question)) return "";
  const std::vector<Output> outputs = writeOutputs(session, catalog, notices);
  const Digest digest = digestOf(catalog, outputs);
  return digest.outputs + " " + digest.settings;
}

}  // namespace driver_feature::page
