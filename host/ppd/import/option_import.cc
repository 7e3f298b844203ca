#include "host/ppd/import/option_import.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "host/ppd/choice_text.h"
#include "host/ppd/import/custom_import.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

bool hasOption(ppd_file_t& ppd, const char* keyword) {
  return ppdFindOption(&ppd, keyword) != nullptr;
}

// Whether libcups can take the mark from a choice of the option: marking one
// option of a pair unmarks the other, and the source of the paper may leave
// the page size to the printer.
bool canLoseMark(ppd_file_t& ppd, const ppd_option_t& option) {
  struct Row {
    const char* keyword;
    std::vector<const char*> rivals;
  };
  static const std::vector<Row> kRows = {
      {"PageSize", {"PageRegion", "InputSlot", "ManualFeed"}},
      {"PageRegion", {"PageSize", "InputSlot", "ManualFeed"}},
      {"InputSlot", {"ManualFeed", "AP_D_InputSlot"}},
      {"ManualFeed", {"InputSlot"}},
  };
  return std::any_of(kRows.begin(), kRows.end(), [&ppd, &option](const Row& row) {
    return equalKeywords(row.keyword, option.keyword) &&
           std::any_of(row.rivals.begin(), row.rivals.end(),
                       [&ppd](const char* rival) { return hasOption(ppd, rival); });
  });
}

const ppd_choice_t* markedChoice(const ppd_option_t& option) {
  const ppd_choice_t* begin = option.choices;
  const ppd_choice_t* end = begin + option.num_choices;
  const ppd_choice_t* marked =
      std::find_if(begin, end, [](const ppd_choice_t& choice) { return choice.marked != 0; });
  return marked != end ? marked : nullptr;
}

// Whether libcups writes the option PageSize instead of the choice.
bool isCustomPageRegion(ppd_file_t& ppd, const ppd_option_t& option, const ppd_choice_t& choice) {
  return equalKeywords(option.keyword, "PageRegion") && equalKeywords(choice.choice, "Custom") &&
         hasOption(ppd, "PageSize");
}

// Which choices of an option libcups finds by their names: the first of equal
// ones, and none whose name it takes for custom values. (To ask ppdFindChoice
// for each would take time with the square of their number.)
class ChoicesFound {
 public:
  bool operator()(const ppd_choice_t& choice) {
    std::string name = choice.choice;
    std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
      return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    if (name.starts_with('{')) return false;
    return names_.insert(std::move(name)).second;
  }

 private:
  std::unordered_set<std::string> names_;  // In small letters.
};

// The choices that libcups can mark. The others are noted.
std::vector<ppd_choice_t*> usableChoices(ImportState& state, ppd_option_t& option) {
  std::vector<ppd_choice_t*> usable;
  ChoicesFound isFound;
  for (ppd_choice_t* choice : choicesOf(option)) {
    if (!isFound(*choice)) {
      state.losses.note(LossKind::kOption,
                        "choice " + titleOf(option, *choice) +
                            ": libcups takes another choice of the option for it");
    } else if (isCustomPageRegion(state.ppd, option, *choice)) {
      state.losses.note(LossKind::kOption, "choice " + titleOf(option, *choice) +
                                               ": libcups writes *PageSize Custom in its place");
    } else {
      usable.push_back(choice);
    }
  }
  return usable;
}

// The order dependency of the option, and whether it is marked as a rule.
SectionEntry entryOf(ppd_file_t& ppd, const ppd_option_t& option) {
  SectionEntry entry;
  entry.keyword = option.keyword;
  entry.order = option.order;
  const bool marked = markedChoice(option) != nullptr;
  entry.usual = marked;
  entry.vanishes = canLoseMark(ppd, option);
  const bool isSize = equalKeywords(option.keyword, "PageSize");
  const bool isRegion = equalKeywords(option.keyword, "PageRegion");
  if (!isSize && !isRegion) return entry;
  const ppd_option_t* rival = ppdFindOption(&ppd, isSize ? "PageRegion" : "PageSize");
  if (rival == nullptr) return entry;
  // Of the two, one is marked as a rule; when neither is, the size counts.
  const bool rivalMarked = markedChoice(*rival) != nullptr;
  entry.usual = marked || (isSize && !rivalMarked);
  if (!entry.usual) entry.replaces = rival->keyword;
  return entry;
}

// Adds the feature of an option, or of one of its choices.
void addFeature(ImportState& state, const ppd_option_t& option, const SectionEntry& entry,
                ImportedElement feature) {
  if (!isWritten(option.order)) {
    feature.attributes.pop_back();  // The command.
    state.unwritten.push_back(std::move(feature));
    return;
  }
  std::vector<ImportedElement> elements;
  elements.push_back(std::move(feature));
  state.add(option.section, entry, std::move(elements));
}

// The text of a choice, as far as libcups writes it.
std::string textOf(const ppd_option_t& option, const ppd_choice_t& choice) {
  if (!isWritten(option.order)) return "";
  return sectionText(option.section, titleOf(option, choice), codeOf(choice));
}

void importPickOne(ImportState& state, ppd_option_t& option) {
  const ppd_choice_t* marked = markedChoice(option);
  std::vector<ImportedOption> options;
  SectionEntry entry = entryOf(state.ppd, option);
  for (const ppd_choice_t* choice : usableChoices(state, option)) {
    std::string text = textOf(option, *choice);
    if (equalKeywords(choice->choice, "Custom")) {
      text = importCustomChoice(state, *choice, entry, {option.keyword, choice->choice, {}});
      // By default, the feature that writes the custom text represents the
      // option.
      if (choice == marked && text.empty()) {
        entry.usual = false;
        entry.replaces = option.keyword;
      }
    }
    options.push_back({choice->choice, std::move(text)});
  }
  if (canBeUnset(state.ppd, option)) options.push_back({kNotSet, ""});
  addFeature(state, option, entry,
             listFeature(option.section, option.keyword,
                         marked != nullptr ? marked->choice : kNotSet, options));
}

void importPickMany(ImportState& state, ppd_option_t& option) {
  SectionEntry entry = entryOf(state.ppd, option);
  for (const ppd_choice_t* choice : usableChoices(state, option)) {
    const std::string name = choiceFeatureName(option, *choice);
    if (!state.take(name)) {
      state.losses.note(LossKind::kOption, "choice " + titleOf(option, *choice) + ": its name \"" +
                                               name + "\" is in use");
      continue;
    }
    entry.usual = choice->marked != 0;
    std::string text = textOf(option, *choice);
    if (equalKeywords(choice->choice, "Custom")) {
      text = importCustomChoice(state, *choice, entry, {name, "True", {}});
    }
    addFeature(state, option, entry,
               listFeature(option.section, name, choice->marked != 0 ? "True" : "False",
                           {{"False", ""}, {"True", text}}));
  }
}

void importOption(ImportState& state, ppd_option_t& option) {
  const std::string keyword = option.keyword;
  if (ppdFindOption(&state.ppd, option.keyword) != &option) {
    state.losses.note(LossKind::kOption,
                      "option *" + keyword + ": libcups takes another option of the file for it");
    return;
  }
  if (!isWritten(option.order)) {
    state.losses.note(LossKind::kOption, "the code of option *" + keyword + ": " + kNeverWritten);
  }
  if (option.ui == PPD_UI_PICKMANY) return importPickMany(state, option);
  if (!state.take(keyword)) {
    state.losses.note(LossKind::kOption, "option *" + keyword + ": the name is in use");
    return;
  }
  importPickOne(state, option);
}

}  // namespace

bool canBeUnset(ppd_file_t& ppd, const ppd_option_t& option) {
  return markedChoice(option) == nullptr || canLoseMark(ppd, option);
}

std::string choiceFeatureName(const ppd_option_t& option, const ppd_choice_t& choice) {
  return std::string(option.keyword) + "." + choice.choice;
}

void importOptions(ImportState& state) {
  for (ppd_option_t* option : optionsOf(state.ppd)) importOption(state, *option);
}

}  // namespace driver_feature::ppd
