#include "programs/driver_feature/show/show.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include <vector>

#include "programs/driver_feature/show/limits_view.h"
#include "programs/driver_feature/show/people_texts.h"
#include "programs/driver_feature/show/secrets.h"
#include "programs/driver_feature/show/show_groups.h"
#include "programs/driver_feature/show/show_panels.h"
#include "programs/driver_feature/show/taken_out.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::ordered_json;

std::string availabilityText(bool available, bool visible) {
  const std::string text = available ? "available" : "unavailable";
  return visible ? text : text + ", hidden";
}

std::string choiceText(const host::Choice& choice, const std::string& name) {
  if (!choice.available) return name + " (" + availabilityText(false, choice.visible) + ")";
  return choice.visible ? name : name + " (hidden)";
}

// "LongEdge: on the long edge".
std::string choiceName(const std::string& feature, const host::Choice& choice,
                       const PeopleTexts* texts) {
  if (texts == nullptr) return choice.name;
  const std::string text = texts->ofOption(feature, choice.name);
  return text == choice.name ? choice.name : choice.name + ": " + text;
}

std::vector<std::string> choicesAndLimits(const std::string& name, const host::FeatureView& feature,
                                          const host::FeatureLimits& limits,
                                          const PeopleTexts* texts) {
  std::vector<std::string> parts;
  for (const host::Choice& choice : feature.choices()) {
    parts.push_back(choiceText(choice, choiceName(name, choice, texts)));
  }
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

Json choicesJson(const std::string& feature, const std::vector<host::Choice>& choices,
                 const PeopleTexts* texts) {
  Json list = Json::array();
  for (const host::Choice& choice : choices) {
    Json json = {{"name", choice.name}};
    if (texts != nullptr) json["text"] = texts->ofOption(feature, choice.name);
    json["available"] = choice.available;
    json["visible"] = choice.visible;
    list.push_back(std::move(json));
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

std::string showTable(const host::Model& model, CoreFeatureSet& set, std::size_t width,
                      const PeopleTexts* texts) {
  std::vector<TableRow> rows = {
      {{"NAME", "TYPE", "VALUE", "AVAILABILITY"}, {"CHOICES AND LIMITS"}}};
  for (const auto& [name, feature] : model.features) {
    rows.push_back({{name, feature.typeName(), valueText(feature),
                     availabilityText(feature.isAvailable(), feature.isVisible())},
                    choicesAndLimits(name, feature, model.index.limitsOf(name), texts)});
  }
  if (texts != nullptr) {
    for (TableRow& row : rows) {
      const bool isHeading = &row == rows.data();
      const std::string text = isHeading ? "TEXT" : texts->ofFeature(row.cells.front());
      row.cells.insert(row.cells.begin() + 1, text);
    }
  }
  return layOut(rows, width) + showGroups(model, set, width);
}

std::string showJson(const host::Session& session, host::RuleKeeper& rules,
                     const PeopleTexts* texts) {
  const host::Model& model = session.model();
  Json features = Json::array();
  for (const auto& [name, feature] : model.features) {
    const host::FeatureLimits& limits = model.index.limitsOf(name);
    Json json = {{"name", name}};
    if (texts != nullptr) json["text"] = texts->ofFeature(name);
    json.update({{"type", feature.typeName()},
                 {"value", valueJson(feature)},
                 {"available", feature.isAvailable()},
                 {"visible", feature.isVisible()},
                 {"encrypted", feature.isEncrypted()},
                 {"line", limits.line}});
    const Json choices = choicesJson(name, feature.choices(), texts);
    if (!choices.empty()) json["choices"] = choices;
    const Json limitsFound = limitsJson(limits);
    if (!limitsFound.empty()) json["limits"] = limitsFound;
    features.push_back(json);
  }
  Json document = {{"description", model.file},
                   {"features", features},
                   {"groups", groupsJson(model, session.features())}};
  const Json panels = panelsJson(session, texts);
  if (!panels.empty()) document["panels"] = panels;
  if (rules.hasRules()) document["takenOut"] = takenOutJson(rules);
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::size_t terminalWidth() {
  if (::isatty(STDOUT_FILENO) == 0) return 0;
  winsize size{};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return 80;
  return size.ws_col;
}

}  // namespace driver_feature::cli
