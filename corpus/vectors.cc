#include "corpus/vectors.h"

#include <cups/array.h>

#include <cstring>

#include "corpus/custom_values.h"

namespace driver_feature {

namespace {

std::vector<CustomValue> randomValues(const Peer& peer, const ppd_option_t& option,
                                      Random& random) {
  std::vector<CustomValue> values;
  ppd_coption_t* custom = ::ppdFindCustomOption(&peer.file(), option.keyword);
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

}  // namespace

Marks randomMarks(const Peer& peer, Random& random) {
  Marks marks;
  for (const ppd_option_t* option : peer.options()) {
    if (option->num_choices == 0 || random.oneIn(8)) continue;
    if (option->ui == PPD_UI_PICKMANY) {
      appendMany(*option, random, marks);
      continue;
    }
    const auto position = random.below(static_cast<std::uint64_t>(option->num_choices));
    Mark mark{option->keyword, option->choices[position].choice, {}};
    if (mark.choice == "Custom") mark.values = randomValues(peer, *option, random);
    marks.push_back(mark);
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

}  // namespace driver_feature
