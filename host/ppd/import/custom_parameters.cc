#include "host/ppd/import/custom_parameters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "host/ppd/import/custom_limits.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

using Attributes = std::vector<std::pair<std::string, std::string>>;

std::string floatText(float value) {
  std::array<char, 64> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), result.ptr};
}

// The characters that a text may hold. PostScript strings write every character but the
// backslash harmlessly; PJL has no way to write a quotation mark.
std::string characterSet(ppd_cptype_t type, bool forPjl) {
  std::string set;
  const bool onlyDigits = type == PPD_CUSTOM_PASSCODE;
  for (char character = onlyDigits ? '0' : ' '; character <= (onlyDigits ? '9' : '~');
       ++character) {
    if (character != (forPjl ? '"' : '\\')) set += character;
  }
  return set;
}

void noteDefault(ImportState& state, const ppd_option_t& option, const char* parameter) {
  state.losses.note(LossKind::kOption, "the default of " + parameterTitle(option, parameter) +
                                           ": it is not within the limits");
}

bool isFinite(float number) {
  return std::isfinite(number);
}
bool isFinite(int /*number*/) {
  return true;
}

// Whether the parameter's present value is one that libcups writes by default.
bool isDefault(ppd_file_t& ppd, const ppd_option_t& option) {
  const ppd_choice_t* marked = ppdFindMarkedChoice(&ppd, option.keyword);
  return marked != nullptr && equalKeywords(marked->choice, "Custom");
}

// The attributes of a number. `usual` is its present value.
template <class Number, class ToText>
Attributes numberAttributes(ImportState& state, const ppd_option_t& option, const char* parameter,
                            const std::string& prefix, const Limits<Number>& limits, Number usual,
                            ToText toText) {
  Attributes attributes;
  if (limits.greatest) attributes.emplace_back(prefix + "MaxValue", toText(*limits.greatest));
  if (limits.least) attributes.emplace_back(prefix + "MinValue", toText(*limits.least));
  Number value = isFinite(usual) ? usual : Number{};
  if (limits.greatest) value = std::min(value, *limits.greatest);
  if (limits.least) value = std::max(value, *limits.least);
  if (value != usual && isDefault(state.ppd, option)) noteDefault(state, option, parameter);
  attributes.emplace_back("DefaultValue", toText(value));
  return attributes;
}

ImportedElement featureOf(const std::string& type, const std::string& name,
                          const Attributes& attributes) {
  ImportedElement feature{"Feature", {{"FeatureType", type}, {"Name", name}}, {}};
  feature.attributes.insert(feature.attributes.end(), attributes.begin(), attributes.end());
  return feature;
}

ImportedElement textFeature(ImportState& state, const ppd_option_t& option,
                            const ppd_cparam_t& parameter, const std::string& name, bool forPjl) {
  Attributes attributes;
  if (parameter.type != PPD_CUSTOM_STRING) attributes.emplace_back("Encrypted", "true");
  const std::string characters = characterSet(parameter.type, forPjl);
  attributes.emplace_back("TextValidationCharSet", characters);
  const Limits<int> limits = lengthLimits(state.ppd, option, parameter, state.losses);
  const int longest = limits.greatest.value_or(0);
  if (longest > 0) attributes.emplace_back("MaxTextLength", std::to_string(longest));
  const int shortest = limits.least.value_or(0);
  if (shortest > 0) {
    state.losses.note(LossKind::kOption, "the least length " + std::to_string(shortest) + " of " +
                                             parameterTitle(option, parameter.name));
  }
  const char* current = parameter.current.custom_string;
  const std::string usual = current != nullptr ? current : "";
  const bool fits = longest <= 0 || usual.size() <= static_cast<std::size_t>(longest);
  if (fits && usual.find_first_not_of(characters) == std::string::npos) {
    if (!usual.empty()) attributes.emplace_back("DefaultValue", usual);
  } else {
    noteDefault(state, option, parameter.name);
  }
  return featureOf("TextEntry", name, attributes);
}

ImportedElement parameterFeature(ImportState& state, const ppd_option_t& option,
                                 const ppd_cparam_t& parameter, const std::string& name,
                                 bool forPjl) {
  switch (parameter.type) {
    case PPD_CUSTOM_INT:
      return featureOf("IntEntry", name,
                       numberAttributes(state, option, parameter.name, "Int",
                                        intLimits(state.ppd, option, parameter, state.losses),
                                        parameter.current.custom_int,
                                        [](int value) { return std::to_string(value); }));
    case PPD_CUSTOM_PASSCODE:
    case PPD_CUSTOM_PASSWORD:
    case PPD_CUSTOM_STRING:
      return textFeature(state, option, parameter, name, forPjl);
    default:
      return featureOf("FloatEntry", name,
                       numberAttributes(state, option, parameter.name, "Float",
                                        realLimits(state.ppd, option, parameter, state.losses),
                                        parameter.current.custom_real, floatText));
  }
}

// The features' position among the five values, from 0. libcups takes a
// position that is out of range for `usual`.
int positionOf(const ppd_attr_t* attribute, int usual) {
  if (attribute == nullptr || attribute->value == nullptr) return usual;
  const int position = std::atoi(attribute->value) - 1;
  return position >= 0 && position <= 4 ? position : usual;
}

struct Orientation {
  int position = 4;
  int value = 1;
};

Orientation orientationOf(ppd_file_t& ppd) {
  Orientation orientation;
  const ppd_attr_t* attribute = ppdFindAttr(&ppd, "ParamCustomPageSize", "Orientation");
  int position = 0;
  int least = 0;
  int greatest = 0;
  if (attribute == nullptr || attribute->value == nullptr ||
      // NOLINTNEXTLINE(cert-err34-c): as libcups reads it.
      std::sscanf(attribute->value, "%d%*s%d%d", &position, &least, &greatest) != 3) {
    return orientation;
  }
  if (position >= 1 && position <= 5) orientation.position = position - 1;
  if (orientation.value > greatest) {
    orientation.value = greatest;
  } else if (orientation.value < least) {
    orientation.value = least;
  }
  return orientation;
}

// Notes the parameters to which libcups gives its own values.
void noteFixedParameters(ImportState& state, const ppd_option_t& option,
                         const Orientation& orientation) {
  ppd_coption_t* custom = ppdFindCustomOption(&state.ppd, "PageSize");
  if (custom == nullptr) return;
  for (ppd_cparam_t* parameter = ppdFirstCustomParam(custom); parameter != nullptr;
       parameter = ppdNextCustomParam(custom)) {
    const bool turns = equalKeywords(parameter->name, "Orientation");
    if (equalKeywords(parameter->name, "Width") || equalKeywords(parameter->name, "Height")) {
      continue;
    }
    state.losses.note(LossKind::kOption, parameterTitle(option, parameter->name) +
                                             ": libcups always writes " +
                                             std::to_string(turns ? orientation.value : 0));
  }
}

}  // namespace

CustomParameters parametersOf(ImportState& state, const ppd_option_t& option, bool forPjl) {
  CustomParameters parameters;
  ppd_coption_t* custom = ppdFindCustomOption(&state.ppd, option.keyword);
  if (custom == nullptr) return parameters;
  for (ppd_cparam_t* parameter = ppdFirstCustomParam(custom); parameter != nullptr;
       parameter = ppdNextCustomParam(custom)) {
    const std::string name = std::string(option.keyword) + "." + parameter->name;
    if (parameter->type == PPD_CUSTOM_UNKNOWN || !state.take(name)) {
      state.losses.note(LossKind::kOption, parameterTitle(option, parameter->name) +
                                               (parameter->type == PPD_CUSTOM_UNKNOWN
                                                    ? ": its type is not known"
                                                    : ": its name \"" + name + "\" is in use"));
      continue;
    }
    parameters.values.push_back({parameter->order, name, false});
    parameters.features.push_back(parameterFeature(state, option, *parameter, name, forPjl));
  }
  std::stable_sort(
      parameters.values.begin(), parameters.values.end(),
      [](const CustomValue& left, const CustomValue& right) { return left.order < right.order; });
  return parameters;
}

CustomParameters pageSizeParameters(ImportState& state, const ppd_option_t& option) {
  ppd_file_t& ppd = state.ppd;
  CustomParameters parameters;
  for (int i = 0; i < 5; ++i) parameters.values.push_back({i + 1, "0", true});
  const ppd_size_t* usual = ppdPageSize(&ppd, nullptr);
  struct Row {
    const char* name;
    int side;
    float usual;
  };
  for (const Row& row : {Row{"Width", 0, usual != nullptr ? usual->width : 0},
                         Row{"Height", 1, usual != nullptr ? usual->length : 0}}) {
    const std::string name = std::string(option.keyword) + "." + row.name;
    state.names.insert(name);
    const int position = positionOf(ppdFindAttr(&ppd, "ParamCustomPageSize", row.name), row.side);
    parameters.values[static_cast<std::size_t>(position)] = {position + 1, name, false};
    parameters.features.push_back(featureOf(
        "FloatEntry", name,
        numberAttributes(state, option, row.name, "Float",
                         sideLimits(ppd, option, row.side, state.losses), row.usual, floatText)));
  }
  const Orientation orientation = orientationOf(ppd);
  parameters.values[static_cast<std::size_t>(orientation.position)] = {
      orientation.position + 1, std::to_string(orientation.value), true};
  noteFixedParameters(state, option, orientation);
  return parameters;
}

void noteUnusedParameters(ImportState& state, const ppd_option_t& option) {
  ppd_coption_t* custom = ppdFindCustomOption(&state.ppd, option.keyword);
  if (custom == nullptr) return;
  for (ppd_cparam_t* parameter = ppdFirstCustomParam(custom); parameter != nullptr;
       parameter = ppdNextCustomParam(custom)) {
    state.losses.note(LossKind::kOption, parameterTitle(option, parameter->name) +
                                             ": libcups writes no values into ExitServer");
  }
}

}  // namespace driver_feature::ppd
