#include "host/ppd/import/custom_import.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <utility>

#include "host/ppd/choice_text.h"
#include "host/ppd/custom/custom_routines.h"
#include "host/ppd/import/custom_parameters.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

ppd_section_t sectionNamed(std::string_view name) {
  struct Row {
    std::string_view name;
    ppd_section_t section;
  };
  constexpr std::array<Row, 5> kRows = {{{"DocumentSetup", PPD_ORDER_DOCUMENT},
                                         {"ExitServer", PPD_ORDER_EXIT},
                                         {"JCLSetup", PPD_ORDER_JCL},
                                         {"PageSetup", PPD_ORDER_PAGE},
                                         {"Prolog", PPD_ORDER_PROLOG}}};
  for (const Row& row : kRows) {
    if (row.name == name) return row.section;
  }
  return PPD_ORDER_ANY;
}

// Where libcups writes the custom choice of an option.
WritingPlace placeOf(const ImportState& state, const ppd_option_t& option) {
  const auto own = state.customPlaces.find(std::string("Custom") + option.keyword);
  if (own != state.customPlaces.end()) return own->second;
  return {option.section, option.order};
}

bool isPageOption(const ppd_option_t& option) {
  return equalKeywords(option.keyword, "PageSize") || equalKeywords(option.keyword, "PageRegion");
}

bool isPostScript(ppd_section_t section) {
  return section != PPD_ORDER_JCL && section != PPD_ORDER_EXIT;
}

// The text of the choice without its values.
std::string commandText(ppd_file_t& ppd, const ppd_choice_t& choice, ppd_section_t section) {
  // What libcups writes for a page size of the user's when the file does not
  // say what to write.
  constexpr const char* kPageSizeCode =
      "pop pop pop\n<</PageSize[5 -2 roll]/ImagingBBox null>>setpagedevice\n";
  const ppd_option_t& option = *choice.option;
  if (isPageOption(option) && isPostScript(section)) {
    return sectionText(section, "*CustomPageSize True",
                       choice.code != nullptr ? choice.code : kPageSizeCode);
  }
  const ppd_coption_t* custom = ppdFindCustomOption(&ppd, option.keyword);
  const std::string title = custom != nullptr ? std::string("*Custom") + custom->keyword + " True"
                                              : titleOf(option, choice);
  return sectionText(section, title, codeOf(choice));
}

CustomParameters valuesOf(ImportState& state, const ppd_option_t& option, ppd_section_t section) {
  if (section == PPD_ORDER_EXIT) {  // libcups writes the bare code.
    noteUnusedParameters(state, option);
    return {};
  }
  if (isPageOption(option) && isPostScript(section)) return pageSizeParameters(state, option);
  return parametersOf(state, option, isPjl(section));
}

// The feature that holds the text, and whose routine writes it. In PJL only a
// group's routine writes.
ImportedElement writerOf(ppd_section_t section, const std::string& name, const std::string& routine,
                         const std::string& command, const CustomPlan& plan) {
  const char* property = isPjl(section) ? "AddPJLCallbackRoutine" : "AddPSCallbackRoutine";
  ImportedElement option = optionElement(section, {"True", command});
  option.attributes.emplace_back("TESKTicketCommand", planText(plan));
  ImportedElement feature{"Feature",
                          {{"FeatureType", "MultiSelect"},
                           {"Name", name},
                           {"Visibility", "false"},
                           {"DefaultValue", "True"},
                           {property, routine}},
                          {std::move(option)}};
  if (!isPjl(section)) return feature;
  return {"FeatureStaticGroup",
          {{"Name", "Section.JCL." + name}, {property, routine}},
          {std::move(feature)}};
}

SectionEntry writerEntry(const SectionEntry& entry, const ppd_choice_t& choice,
                         const WritingPlace& place) {
  SectionEntry own = entry;
  own.order = place.order;
  own.usual = choice.marked != 0;
  own.vanishes = false;
  own.replaces.clear();
  if (place.section == choice.option->section && choice.option->ui != PPD_UI_PICKMANY) {
    own.replaces = entry.usual ? entry.keyword : entry.replaces;
  }
  return own;
}

void noteLoss(ImportState& state, const ppd_choice_t& choice, const std::string& reason) {
  state.losses.note(LossKind::kOption,
                    "the text of choice " + titleOf(*choice.option, choice) + ": " + reason);
}

}  // namespace

std::map<std::string, WritingPlace> customPlacesOf(ppd_file_t& ppd) {
  std::map<std::string, WritingPlace> places;
  for (const ppd_attr_t* attribute = ppdFindAttr(&ppd, "NonUIOrderDependency", nullptr);
       attribute != nullptr; attribute = ppdFindNextAttr(&ppd, "NonUIOrderDependency", nullptr)) {
    float order = 0;
    std::array<char, 17> section{};
    std::array<char, 42> keyword{};
    std::array<char, 41> value{};
    if (attribute->value == nullptr ||
        // NOLINTNEXTLINE(cert-err34-c): as libcups reads it.
        std::sscanf(attribute->value, "%f%16s%41s%40s", &order, section.data(), keyword.data(),
                    value.data()) != 4 ||
        keyword[0] != '*' || std::strcmp(value.data(), "True") != 0) {
      continue;
    }
    places.try_emplace(keyword.data() + 1, WritingPlace{sectionNamed(section.data()), order});
  }
  return places;
}

std::string importCustomChoice(ImportState& state, const ppd_choice_t& choice,
                               const SectionEntry& entry, const CustomPlan& chosen) {
  const ppd_option_t& option = *choice.option;
  const WritingPlace place = placeOf(state, option);
  if (!isWritten(place.order)) {
    if (isWritten(option.order)) noteLoss(state, choice, kNeverWritten);
    return "";
  }
  CustomParameters parameters = valuesOf(state, option, place.section);
  const std::string command = commandText(state.ppd, choice, place.section);
  const bool inPlace = place.section == option.section && place.order == option.order;
  if (parameters.values.empty() && inPlace) {
    return isPjl(place.section) ? pjlWithValues(command, {}) : command;
  }
  CustomPlan plan = chosen;
  plan.values = std::move(parameters.values);
  const std::string name = std::string("Custom") + option.keyword;
  if (state.routines == kCustomRoutines) {
    noteLoss(state, choice, "there are only 100 routines for such texts");
    return "";
  }
  if (!state.take(name)) {
    noteLoss(state, choice, "its name \"" + name + "\" is in use");
    return "";
  }
  std::vector<ImportedElement> elements = std::move(parameters.features);
  elements.insert(elements.begin(), writerOf(place.section, name,
                                             customRoutineName(state.routines++), command, plan));
  state.add(place.section, writerEntry(entry, choice, place), std::move(elements));
  return "";
}

}  // namespace driver_feature::ppd
