#include "host/ppd/import/panel_import.h"

#include <algorithm>
#include <string>
#include <utility>

#include "host/ppd/import/option_import.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

bool isOfLibcups(const ppd_group_t& group, std::string_view bytes) {
  const std::string name = group.name;
  if ((name != "General" && name != "JCL") || name != group.text) return false;
  return bytes.find(".Translation " + name + "/") == std::string_view::npos;
}

// A few PPDs write the names of their groups as keywords, with an asterisk, which no
// group can have in the PPD of a queue. It stays where another group has the name
// without.
std::string panelName(const ppd_file_t& ppd, const std::string& group) {
  if (!group.starts_with('*')) return group;
  std::string name = group.substr(1);
  const bool isTaken = std::any_of(ppd.groups, ppd.groups + ppd.num_groups,
                                   [&](const ppd_group_t& other) { return other.name == name; });
  return name.empty() || isTaken ? group : name;
}

host::Panel panelOf(const ppd_file_t& ppd, ppd_group_t& group, const ImportedNames& names) {
  host::Panel panel{panelName(ppd, group.name), group.text, {}};
  const auto add = [&](const std::string& feature) {
    if (names.hasFeature(feature)) panel.members.push_back({feature});
  };
  for (int i = 0; i < group.num_options; ++i) {
    ppd_option_t& option = group.options[i];
    if (option.ui != PPD_UI_PICKMANY) {
      add(option.keyword);
      continue;
    }
    for (const ppd_choice_t* choice : choicesOf(option)) add(choiceFeatureName(option, *choice));
  }
  return panel;
}

}  // namespace

std::vector<host::Panel> panelsOf(ppd_file_t& ppd, std::string_view bytes,
                                  const ImportedNames& names) {
  std::vector<host::Panel> panels;
  for (int i = 0; i < ppd.num_groups; ++i) {
    if (isOfLibcups(ppd.groups[i], bytes)) continue;
    host::Panel panel = panelOf(ppd, ppd.groups[i], names);
    // A damaged PPD can have a group without a name, which says nothing to anybody.
    if (!panel.name.empty() && !panel.members.empty()) panels.push_back(std::move(panel));
  }
  return panels;
}

ImportedElement panelsElement(const std::vector<host::Panel>& panels) {
  ImportedElement element{"FeaturePanels", {}, {}};
  for (const host::Panel& panel : panels) {
    ImportedElement each{"Panel", {{"Name", panel.name}}, {}};
    for (const host::PanelMember& member : panel.members) {
      each.children.push_back({"Member", {{"Feature", member.feature}}, {}});
    }
    element.children.push_back(std::move(each));
  }
  return element;
}

}  // namespace driver_feature::ppd
