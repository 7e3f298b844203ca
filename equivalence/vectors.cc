#include "equivalence/vectors.h"

#include <cups/array.h>
#include <strings.h>

#include <cstring>

#include "equivalence/custom_values.h"

namespace driver_feature::equivalence {

namespace {

std::vector<CustomValue> randomValues(const Peer& peer, const ppd_option_t& option,
                                      Random& random) {
  std::vector<CustomValue> values;
  ppd_coption_t* custom = peer.customOption(option);
  if (custom == nullptr) return values;
  for (auto* entry = ::cupsArrayFirst(custom->params); entry != nullptr;
       entry = ::cupsArrayNext(custom->params)) {
    const auto& parameter = *static_cast<const ppd_cparam_t*>(entry);
    values.push_back({parameter.name, randomCustomValue(parameter, random)});
  }
  return values;
}

void appendMany(const ppd_option_t& option, Random& random, Marks& marks) {
  marks.push_back({option.keyword, "", {}});
  for (int i = 0; i < option.num_choices; ++i) {
    if (random.oneIn(2)) marks.push_back({option.keyword, option.choices[i].choice, {}});
  }
}

Mark markOf(const Peer& peer, const ppd_option_t& option, const ppd_choice_t& choice,
            Random& random) {
  Mark mark{option.keyword, choice.choice, {}};
  if (mark.choice == "Custom") mark.values = randomValues(peer, option, random);
  return mark;
}

bool hasDefault(const ppd_option_t& option) {
  for (int i = 0; i < option.num_choices; ++i) {
    if (::strcasecmp(option.choices[i].choice, option.defchoice) == 0) return true;
  }
  return false;
}

// A mark for each choice of the option; none when the PPD has no such option.
Marks allMarks(const Peer& peer, const char* keyword, Random& random) {
  Marks marks;
  const ppd_option_t* option = ::ppdFindOption(&peer.file(), keyword);
  if (option == nullptr) return marks;
  for (int i = 0; i < option->num_choices; ++i) {
    marks.push_back(markOf(peer, *option, option->choices[i], random));
  }
  return marks;
}

}  // namespace

std::vector<Marks> mediaMarks(const Peer& peer, Random& random) {
  std::vector<Marks> vectors;
  Marks sizes = allMarks(peer, "PageSize", random);
  if (sizes.size() > 3) sizes.erase(sizes.begin() + 1, sizes.end() - 2);
  const Marks regions = allMarks(peer, "PageRegion", random);
  const Marks feeds = allMarks(peer, "ManualFeed", random);
  for (const Mark& size : sizes) vectors.push_back({size});
  if (!regions.empty()) vectors.push_back({regions.front()});
  for (const Mark& feed : feeds) vectors.push_back({feed});
  for (const Mark& slot : allMarks(peer, "InputSlot", random)) {
    vectors.push_back({slot});
    for (const Mark& size : sizes) vectors.push_back({slot, size});
    for (const Mark& feed : feeds) vectors.push_back({slot, feed});
  }
  for (const ppd_option_t* option : peer.options()) {
    if (option->num_choices > 0 && !hasDefault(*option)) {
      vectors.push_back({markOf(peer, *option, option->choices[0], random)});
    }
    for (int i = 0; i < option->num_choices; ++i) {
      if (std::strcmp(option->choices[i].choice, "Custom") != 0) continue;
      vectors.push_back({markOf(peer, *option, option->choices[i], random)});
    }
  }
  return vectors;
}

Marks randomMarks(const Peer& peer, Random& random) {
  Marks marks;
  for (const ppd_option_t* option : peer.options()) {
    if (option->num_choices == 0 || random.oneIn(8)) continue;
    if (option->ui == PPD_UI_PICKMANY) {
      appendMany(*option, random, marks);
      continue;
    }
    const auto position = random.below(static_cast<std::uint64_t>(option->num_choices));
    marks.push_back(markOf(peer, *option, option->choices[position], random));
  }
  return marks;
}

std::string describe(const Marks& marks) {
  std::string text;
  for (const Mark& mark : marks) {
    if (mark.choice.empty()) continue;
    if (!text.empty()) text += " ";
    text += mark.option + "=" + mark.choice;
    if (mark.values.empty()) continue;
    std::string values;
    for (const CustomValue& value : mark.values) {
      values += (values.empty() ? "" : " ") + value.parameter + "=" + value.value;
    }
    text += "{" + values + "}";
  }
  return text;
}

}  // namespace driver_feature::equivalence
