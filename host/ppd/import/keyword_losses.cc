#include "host/ppd/import/keyword_losses.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

void noteConstraints(const ppd_file_t& ppd, Losses& losses) {
  for (int i = 0; i < ppd.num_consts; ++i) {
    const ppd_const_t& constraint = ppd.consts[i];
    std::string text = std::string("*") + constraint.option1;
    if (constraint.choice1[0] != '\0') text += std::string(" ") + constraint.choice1;
    text += std::string(" *") + constraint.option2;
    if (constraint.choice2[0] != '\0') text += std::string(" ") + constraint.choice2;
    losses.note(LossKind::kConstraint, text);
  }
}

// Whether the file gives the keyword a text. Some keywords get one of libcups.
bool hasText(std::string_view keyword, std::string_view text) {
  struct Row {
    std::string_view keyword;
    std::string_view text;
  };
  constexpr std::array<Row, 6> kOfLibcups = {{{"PageSize", "Media Size"},
                                              {"MediaType", "Media Type"},
                                              {"InputSlot", "Media Source"},
                                              {"ColorModel", "Output Mode"},
                                              {"True", "Yes"},
                                              {"False", "No"}}};
  return text != keyword &&
         std::none_of(kOfLibcups.begin(), kOfLibcups.end(), [keyword, text](const Row& row) {
           return row.keyword == keyword && row.text == text;
         });
}

void noteTexts(ppd_file_t& ppd, Losses& losses) {
  for (ppd_option_t* option : optionsOf(ppd)) {
    const std::string name = std::string("*") + option->keyword;
    if (hasText(option->keyword, option->text)) losses.note(LossKind::kText, name);
    for (const ppd_choice_t* choice : choicesOf(*option)) {
      if (hasText(choice->choice, choice->text)) losses.note(LossKind::kText, name);
    }
  }
}

void notePageSizes(const ppd_file_t& ppd, Losses& losses) {
  for (int i = 0; i < ppd.num_sizes; ++i) {
    const ppd_size_t& size = ppd.sizes[i];
    if (size.width > 0 || size.length > 0) losses.note(LossKind::kKeyword, "*PaperDimension");
    if (size.right > 0 || size.top > 0) losses.note(LossKind::kKeyword, "*ImageableArea");
  }
}

// Whether the import has read the keyword for an option of the file.
bool belongsToOption(ppd_file_t& ppd, const ppd_attr_t& attribute) {
  const std::string_view name = attribute.name;
  for (const std::string_view prefix : {"Default", "ParamCustom", "Custom"}) {
    if (!name.starts_with(prefix)) continue;
    if (ppdFindOption(&ppd, attribute.name + prefix.size()) != nullptr) return true;
  }
  return name == "NonUIOrderDependency" && attribute.value != nullptr &&
         std::string_view(attribute.value).find("*Custom") != std::string_view::npos;
}

bool isJobFrame(std::string_view name) {
  constexpr std::array<std::string_view, 3> kNames = {"JCLBegin", "JCLEnd", "JCLToPSInterpreter"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

}  // namespace

void noteKeywords(ppd_file_t& ppd, Losses& losses) {
  noteConstraints(ppd, losses);
  noteTexts(ppd, losses);
  notePageSizes(ppd, losses);
  for (int i = 0; i < ppd.num_attrs; ++i) {
    const ppd_attr_t& attribute = *ppd.attrs[i];
    if (isJobFrame(attribute.name) || belongsToOption(ppd, attribute)) continue;
    // These are not in the list of constraints before libcups looks for
    // conflicts.
    if (std::string_view(attribute.name) == "cupsUIConstraints" && attribute.value != nullptr) {
      losses.note(LossKind::kConstraint, attribute.value);
      continue;
    }
    losses.note(LossKind::kKeyword, std::string("*") + attribute.name);
  }
}

}  // namespace driver_feature::ppd
