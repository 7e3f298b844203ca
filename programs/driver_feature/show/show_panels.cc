#include "programs/driver_feature/show/show_panels.h"

#include <nlohmann/json.hpp>

#include <vector>

#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::ordered_json;

const std::vector<host::Panel>& panelsOf(const host::Session& session) {
  return session.additions(host::kPanelsPart).panels;
}

std::vector<std::string> featuresOf(const host::Panel& panel) {
  std::vector<std::string> features;
  for (const host::PanelMember& member : panel.members) features.push_back(member.feature);
  return features;
}

}  // namespace

std::string showPanels(const host::Session& session, std::size_t width, const PeopleTexts* texts) {
  if (panelsOf(session).empty()) return "";
  std::vector<TableRow> rows = {{{"PANEL"}, {"FEATURES"}}};
  if (texts != nullptr) rows.front().cells.emplace_back("TEXT");
  for (const host::Panel& panel : panelsOf(session)) {
    rows.push_back({{panel.name}, featuresOf(panel)});
    if (texts != nullptr) rows.back().cells.push_back(texts->ofPanel(panel));
  }
  return "\n" + layOut(rows, width);
}

Json panelsJson(const host::Session& session, const PeopleTexts* texts) {
  Json list = Json::array();
  for (const host::Panel& panel : panelsOf(session)) {
    Json json = {{"name", panel.name}};
    if (texts != nullptr) json["text"] = texts->ofPanel(panel);
    json["features"] = featuresOf(panel);
    list.push_back(std::move(json));
  }
  return list;
}

}  // namespace driver_feature::cli
