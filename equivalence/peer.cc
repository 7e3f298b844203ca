#include "equivalence/peer.h"

#include <cups/array.h>
#include <strings.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <set>

#include "equivalence/custom_values.h"
#include "host/base/decimal.h"

namespace driver_feature::equivalence {

namespace {

// In the order of kSectionNames.
constexpr std::array<ppd_section_t, kSectionNames.size()> kSections = {
    PPD_ORDER_EXIT, PPD_ORDER_PROLOG, PPD_ORDER_DOCUMENT, PPD_ORDER_ANY, PPD_ORDER_PAGE};

std::string orEmpty(const char* text) {
  return text != nullptr ? text : "";
}

std::string emitted(ppd_file_t& file, ppd_section_t section) {
  const std::unique_ptr<char, decltype(&std::free)> text(::ppdEmitString(&file, section, 0),
                                                         &std::free);
  return orEmpty(text.get());
}

bool isPageSize(const ppd_option_t& option) {
  return ::strcasecmp(option.keyword, "PageSize") == 0 ||
         ::strcasecmp(option.keyword, "PageRegion") == 0;
}

void countCode(const std::string& code, PpdFigures& figures) {
  figures.longestCode = std::max(figures.longestCode, static_cast<long>(code.size()));
  for (const char character : code) {
    if (character == '\x1B') figures.hasEscapes = true;
    if (static_cast<unsigned char>(character) > 0x7E) figures.hasHighBytes = true;
  }
}

}  // namespace

host::Result<std::unique_ptr<Peer>> Peer::open(const std::string& path) {
  ppd_file_t* file = ::ppdOpenFile(path.c_str());
  if (file != nullptr) return std::unique_ptr<Peer>(new Peer(file));
  int line = 0;
  const ppd_status_t status = ::ppdLastError(&line);
  return host::refused(orEmpty(::ppdErrorString(status)) + " in line " + std::to_string(line));
}

Peer::Peer(ppd_file_t* file) : file_(file) {
  // libcups checks the constraints after every mark, which takes nine tenths of
  // a run. They have no influence on what it writes.
  file->num_consts = 0;
  collectOptions(file->groups, file->num_groups);
  markDefaults();
}

void Peer::collectOptions(ppd_group_t* groups, int count) {
  for (int i = 0; i < count; ++i) {
    for (int j = 0; j < groups[i].num_options; ++j) {
      ppd_option_t* option = ::ppdFindOption(file_.get(), groups[i].options[j].keyword);
      if (std::find(options_.begin(), options_.end(), option) == options_.end()) {
        options_.push_back(option);
      }
    }
    collectOptions(groups[i].subgroups, groups[i].num_subgroups);
  }
}

void Peer::markDefaults() {
  ::ppdMarkDefaults(file_.get());
}

void Peer::unmark(const std::string& option) {
  while (ppd_choice_t* choice = ::ppdFindMarkedChoice(file_.get(), option.c_str())) {
    choice->marked = 0;
    ::cupsArrayRemove(file_->marked, choice);
  }
}

// A page region takes its size from the parameters of the page size.
ppd_coption_t* Peer::customOption(const ppd_option_t& option) const {
  return ::ppdFindCustomOption(file_.get(), isPageSize(option) ? "PageSize" : option.keyword);
}

void Peer::storeValue(const ppd_option_t& option, const CustomValue& value) {
  if (isPageSize(option)) {
    ppd_size_t* size = ::ppdPageSize(file_.get(), "Custom");
    if (size != nullptr && value.parameter == "Width")
      size->width = host::decimal<float>(value.value);
    if (size != nullptr && value.parameter == "Height")
      size->length = host::decimal<float>(value.value);
  }
  ppd_coption_t* custom = customOption(option);
  ppd_cparam_t* parameter =
      custom != nullptr ? ::ppdFindCustomParam(custom, value.parameter.c_str()) : nullptr;
  if (parameter != nullptr) storeCustomValue(*parameter, value.value);
}

void Peer::mark(const Marks& marks) {
  std::set<std::string> unmarked;
  for (const Mark& mark : marks) {
    ppd_option_t* option = ::ppdFindOption(file_.get(), mark.option.c_str());
    if (option == nullptr) continue;
    if (option->ui == PPD_UI_PICKMANY && unmarked.insert(mark.option).second) unmark(mark.option);
    for (const CustomValue& value : mark.values) storeValue(*option, value);
    if (!mark.choice.empty()) {
      ::ppdMarkOption(file_.get(), mark.option.c_str(), mark.choice.c_str());
    }
  }
}

void Peer::settle() {
  emitted(*file_, PPD_ORDER_ANY);
}

void Peer::appendCustomSettings(const ppd_option_t& option, FeatureValues& settings) const {
  ppd_coption_t* custom = customOption(option);
  if (custom == nullptr) return;
  const bool isSize = isPageSize(option);
  const ppd_size_t* size = isSize ? ::ppdPageSize(file_.get(), "Custom") : nullptr;
  for (auto* parameter = ::cupsArrayFirst(custom->params); parameter != nullptr;
       parameter = ::cupsArrayNext(custom->params)) {
    const auto& current = *static_cast<const ppd_cparam_t*>(parameter);
    const std::string name = current.name;
    // Of a page size libcups writes the size and keeps the rest to itself.
    if (isSize && name != "Width" && name != "Height") continue;
    std::string value = customValueOf(current);
    if (size != nullptr) value = shortestText(name == "Width" ? size->width : size->length);
    settings.push_back({std::string(option.keyword) + "." + name, value});
  }
}

FeatureValues Peer::settings() const {
  FeatureValues settings;
  for (const ppd_option_t* option : options_) {
    if (option->ui == PPD_UI_PICKMANY) {
      for (int i = 0; i < option->num_choices; ++i) {
        const ppd_choice_t& choice = option->choices[i];
        settings.push_back({orEmpty(option->keyword) + "." + choice.choice,
                            choice.marked != 0 ? "True" : "False"});
      }
      continue;
    }
    const ppd_choice_t* choice = ::ppdFindMarkedChoice(file_.get(), option->keyword);
    settings.push_back({option->keyword, choice != nullptr ? choice->choice : "not set"});
    if (choice != nullptr && std::strcmp(choice->choice, "Custom") == 0) {
      appendCustomSettings(*option, settings);
    }
  }
  return settings;
}

JobTexts Peer::texts() const {
  JobTexts texts;
  for (std::size_t i = 0; i < kSections.size(); ++i) {
    texts.sections[i] = emitted(*file_, kSections[i]);
  }
  texts.jcl = orEmpty(file_->jcl_begin) + emitted(*file_, PPD_ORDER_JCL) + orEmpty(file_->jcl_ps);
  texts.jclEnd = orEmpty(file_->jcl_end);
  return texts;
}

PpdFigures Peer::figures() const {
  PpdFigures figures;
  figures.customOptions = ::cupsArrayCount(file_->coptions);
  for (const ppd_option_t* option : options_) {
    ++figures.options;
    figures.choices += option->num_choices;
    if (option->section == PPD_ORDER_JCL) ++figures.jclOptions;
    for (int i = 0; i < option->num_choices; ++i) {
      countCode(orEmpty(option->choices[i].code), figures);
    }
  }
  return figures;
}

}  // namespace driver_feature::equivalence
