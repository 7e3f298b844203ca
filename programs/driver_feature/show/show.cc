#include "programs/driver_feature/show/show.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include <vector>

#include "programs/driver_feature/show/limits_view.h"
#include "programs/driver_feature/show/secrets.h"
#include "programs/driver_feature/show/show_groups.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::ordered_json;

std::string availabilityText(bool available, bool visible) {
  const std::string text = available ? "available" : "unavailable";
  return visible ? text : text + ", hidden";
}

std::string choiceText(const host::Choice& choice) {
  if (!choice.available) return choice.name + " (" + availabilityText(false, choice.visible) + ")";
  return choice.visible ? choice.name : choice.name + " (hidden)";
}

std::vector<std::string> choicesAndLimits(const host::FeatureView& feature,
                                          const host::FeatureLimits& limits) {
  std::vector<std::string> parts;
  for (const host::Choice& choice : feature.choices()) parts.push_back(choiceText(choice));
  for (const std::string& text : limitTexts(limits)) parts.push_back(text);
  if (feature.isEncrypted()) parts.emplace_back("encrypted");
  return parts;
}

Json valueJson(const host::FeatureView& feature) {
  if (isMasked(feature)) return host::kMask;
  switch (feature.kind()) {
    case host::FeatureKind::kMultiSelect: {
      const auto choice = feature.currentChoice();
      return choice ? Json(*choice) : Json(nullptr);
    }
    case host::FeatureKind::kIntEntry:
      return feature.currentInt();
    case host::FeatureKind::kTextEntry:
      return feature.currentText();
    case host::FeatureKind::kFloatEntry:
      return floatJson(feature.currentFloat());
    default:
      return nullptr;
  }
}

Json choicesJson(const std::vector<host::Choice>& choices) {
  Json list = Json::array();
  for (const host::Choice& choice : choices) {
    list.push_back(
        {{"name", choice.name}, {"available", choice.available}, {"visible", choice.visible}});
  }
  return list;
}

}  // namespace

std::string valueText(const host::FeatureView& feature) {
  if (isMasked(feature)) return host::kMask;
  switch (feature.kind()) {
    case host::FeatureKind::kMultiSelect:
      return feature.currentChoice().value_or("(none)");
    case host::FeatureKind::kIntEntry:
      return std::to_string(feature.currentInt());
    case host::FeatureKind::kTextEntry:
      return "\"" + feature.currentText() + "\"";
    case host::FeatureKind::kFloatEntry:
      return host::numberText(feature.currentFloat());
    default:
      return "-";
  }
}

std::string showTable(const host::Model& model, CoreFeatureSet& set, std::size_t width) {
  std::vector<TableRow> rows = {
      {{"NAME", "TYPE", "VALUE", "AVAILABILITY"}, {"CHOICES AND LIMITS"}}};
  for (const auto& [name, feature] : model.features) {
    rows.push_back({{name, feature.typeName(), valueText(feature),
                     availabilityText(feature.isAvailable(), feature.isVisible())},
                    choicesAndLimits(feature, model.index.limitsOf(name))});
  }
  return layOut(rows, width) + showGroups(model, set, width);
}

std::string showJson(const host::Model& model, CoreFeatureSet& set) {
  Json features = Json::array();
  for (const auto& [name, feature] : model.features) {
    const host::FeatureLimits& limits = model.index.limitsOf(name);
    Json json = {{"name", name},
                 {"type", feature.typeName()},
                 {"value", valueJson(feature)},
                 {"available", feature.isAvailable()},
                 {"visible", feature.isVisible()},
                 {"encrypted", feature.isEncrypted()},
                 {"line", limits.line}};
    const Json choices = choicesJson(feature.choices());
    if (!choices.empty()) json["choices"] = choices;
    const Json limitsFound = limitsJson(limits);
    if (!limitsFound.empty()) json["limits"] = limitsFound;
    features.push_back(json);
  }
  const Json document = {
      {"description", model.file}, {"features", features}, {"groups", groupsJson(model, set)}};
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::size_t terminalWidth() {
  if (::isatty(STDOUT_FILENO) == 0) return 0;
  winsize size{};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return 80;
  return size.ws_col;
}

}  // namespace driver_feature::cli
