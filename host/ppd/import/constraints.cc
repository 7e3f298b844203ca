#include "host/ppd/import/constraints.h"

#include <algorithm>

#include <string_view>
#include <utility>

#include "host/base/text.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

constexpr std::size_t kLongestName = 40;  // libcups takes no more of one.
constexpr std::string_view kBlanks = " \t\n\v\f\r";
constexpr std::string_view kCustom = "Custom";

// "*CustomPageSize True" means the choice "Custom" of the option PageSize.
ConstrainedChoice constrained(std::string option, std::string choice) {
  const bool isCustom = equalKeywords(option.substr(0, kCustom.size()), kCustom);
  if (!isCustom || !equalKeywords(choice, "True")) return {std::move(option), std::move(choice)};
  return {option.substr(kCustom.size()), std::string(kCustom)};
}

std::string takeName(std::string_view& text) {
  const std::string_view name = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(name.size());
  return std::string(name.substr(0, kLongestName));
}

// Of the value of a cupsUIConstraints: an asterisk begins an option.
Constraint constraintOf(std::string_view text) {
  Constraint constraint;
  std::size_t next = text.find('*');
  while (next != std::string_view::npos) {
    text.remove_prefix(next + 1);
    std::string option = takeName(text);
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    std::string choice = text.starts_with('*') ? "" : takeName(text);
    constraint.choices.push_back(constrained(std::move(option), std::move(choice)));
    next = text.find('*');
  }
  return constraint;
}

}  // namespace

std::string Constraint::text() const {
  std::vector<std::string> parts;
  for (const ConstrainedChoice& each : choices) {
    parts.push_back("*" + each.option + (each.choice.empty() ? "" : " " + each.choice));
  }
  return host::join(parts, " ");
}

std::vector<Constraint> constraintsOf(ppd_file_t& ppd) {
  std::vector<Constraint> constraints;
  for (int i = 0; i < ppd.num_consts; ++i) {
    const ppd_const_t& pair = ppd.consts[i];
    constraints.push_back(
        {{constrained(pair.option1, pair.choice1), constrained(pair.option2, pair.choice2)}});
  }
  for (int i = 0; i < ppd.num_attrs; ++i) {
    const ppd_attr_t& attribute = *ppd.attrs[i];
    if (attribute.value == nullptr || !equalKeywords(attribute.name, "cupsUIConstraints")) continue;
    Constraint constraint = constraintOf(attribute.value);
    if (!constraint.choices.empty()) constraints.push_back(std::move(constraint));
  }
  return constraints;
}

}  // namespace driver_feature::ppd
