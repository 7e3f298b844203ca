#include "host/ppd/import/import.h"

#include <array>
#include <utility>

#include "host/ppd/import/additions_elements.h"
#include "host/ppd/import/custom_import.h"
#include "host/ppd/import/description_text.h"
#include "host/ppd/import/import_state.h"
#include "host/ppd/import/imported_names.h"
#include "host/ppd/import/keyword_losses.h"
#include "host/ppd/import/media_import.h"
#include "host/ppd/import/option_import.h"
#include "host/ppd/import/panel_import.h"
#include "host/ppd/import/rules.h"
#include "host/ppd/import/text_import.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

struct SectionRow {
  ppd_section_t section;
  const char* name;
};

// In the order in which a job holds them.
constexpr std::array<SectionRow, 6> kSections = {{
    {PPD_ORDER_JCL, "JCL"},
    {PPD_ORDER_EXIT, "ExitServer"},
    {PPD_ORDER_PROLOG, "Prolog"},
    {PPD_ORDER_DOCUMENT, "DocumentSetup"},
    {PPD_ORDER_ANY, "AnySetup"},
    {PPD_ORDER_PAGE, "PageSetup"},
}};

std::vector<ImportedElement> membersOf(ImportState& state, ppd_section_t section) {
  std::vector<SectionItem>& items = state.sections[section];
  std::vector<SectionEntry> entries;
  entries.reserve(items.size());
  for (const SectionItem& item : items) entries.push_back(item.entry);
  const SectionOrder order = orderOfSection(entries);
  for (const std::string& keyword : order.unsettling) {
    state.losses.note(LossKind::kOption,
                      "the influence of *" + keyword +
                          " on the order in which libcups writes options with equal order "
                          "dependencies");
  }
  std::vector<ImportedElement> members;
  for (const std::size_t item : order.items) {
    for (ImportedElement& element : items[item].elements) members.push_back(std::move(element));
  }
  return members;
}

// A feature that holds a fixed part of the job, if the file has it.
void addFixedText(ImportState& state, const std::string& name, const char* code, bool written,
                  std::vector<ImportedElement>& elements) {
  if (code == nullptr) return;
  ImportedElement feature = listFeature(PPD_ORDER_JCL, name, "True", {{"True", code}});
  if (!written) feature.attributes.pop_back();
  state.names.insert(name);
  elements.push_back(std::move(feature));
}

ImportedElement groupOf(ImportState& state, const SectionRow& row) {
  ImportedElement group{"FeatureStaticGroup", {{"Name", std::string("Section.") + row.name}}, {}};
  std::vector<ImportedElement> members = membersOf(state, row.section);
  if (!isPjl(row.section)) {
    group.attributes.emplace_back(
        "PSCommand", std::string("%%DriverSection ") + row.name + "\n%s\n%%EndDriverSection\n");
    group.children = std::move(members);
    return group;
  }
  group.attributes.emplace_back("PJLCommand", "%s");
  addFixedText(state, "JCLBegin", state.ppd.jcl_begin, true, group.children);
  for (ImportedElement& member : members) group.children.push_back(std::move(member));
  addFixedText(state, "JCLToPSInterpreter", state.ppd.jcl_ps, true, group.children);
  return group;
}

void count(const ImportedElement& element, ImportedDescription& description) {
  if (element.tag == "Feature") ++description.features;
  if (element.tag == "Option") ++description.options;
  for (const ImportedElement& child : element.children) count(child, description);
}

// The names that the parts of the file besides its options need.
void reserveNames(ImportState& state) {
  for (const char* name : {"JCLBegin", "JCLEnd", "JCLToPSInterpreter"}) state.take(name);
  for (const SectionRow& row : kSections) state.take(std::string("Section.") + row.name);
}

ImportedElement descriptionOf(ImportState& state) {
  state.customPlaces = customPlacesOf(state.ppd);
  reserveNames(state);
  importOptions(state);
  ImportedElement root{"FeatureDescription", {}, {}};
  root.children.push_back({"BaseFeatureInfo",
                           {{"DefaultCallbackHandler", "DriverFeatureHostUpdate"},
                            {"LoadVORNCallbackHandler", "DriverFeatureHostLoad"}},
                           {}});
  for (const SectionRow& row : kSections) {
    ImportedElement group = groupOf(state, row);
    if (!group.children.empty()) root.children.push_back(std::move(group));
  }
  for (ImportedElement& feature : state.unwritten) root.children.push_back(std::move(feature));
  addFixedText(state, "JCLEnd", state.ppd.jcl_end, false, root.children);
  return root;
}

// The description and what is beside it, under a common root.
ImportedElement documentOf(ImportState& state, const std::string& path) {
  ImportedElement document{"DriverConfiguration", {}, {}};
  document.children.push_back(descriptionOf(state));
  const ImportedNames names(document.children.front());
  const host::Rules rules = importedRules(rulesOf(state.ppd, state.losses), names, state.losses);
  if (!rules.rules.empty() || !rules.hardware.empty()) {
    document.children.push_back(rulesElement(rules));
  }
  if (auto media = mediaElement(state.ppd, names, state.losses)) {
    document.children.push_back(std::move(*media));
  }
  const std::string bytes = ppdBytes(path);
  const std::vector<host::Panel> panels = panelsOf(state.ppd, bytes, names);
  if (!panels.empty()) document.children.push_back(panelsElement(panels));
  for (const auto& texts : textsOf(state.ppd, bytes, names, panels, state.losses)) {
    document.children.push_back(textsElement(texts));
  }
  return document;
}

}  // namespace

host::Result<ImportedDescription> importPpd(const std::string& path) {
  host::Result<PpdPointer> read = readPpd(path);
  if (!read) return host::failureOf(read);
  const PpdPointer ppd = std::move(*read);
  ImportState state(*ppd);
  const ImportedElement document = documentOf(state, path);
  noteKeywords(*ppd, state.losses);
  ImportedDescription description{descriptionText(document), std::move(state.losses), 0, 0};
  count(document.children.front(), description);
  return description;
}

}  // namespace driver_feature::ppd
