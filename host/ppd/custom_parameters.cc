#include "host/ppd/custom_parameters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>

#include "host/ppd/ppd_file.h"

namespace driver_feature {

namespace {

using Attributes = std::vector<std::pair<std::string, std::string>>;

std::string floatText(float value) {
  std::array<char, 64> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), result.ptr};
}

// What a parameter may hold. PostScript strings write every character but the
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

std::string titleOf(const ppd_option_t& option, const char* parameter) {
  return std::string("*ParamCustom") + option.keyword + " " + parameter;
}

template <class Number, class ToText>
Attributes limits(const char* prefix, Number least, Number greatest, Number usual, ToText toText) {
  Attributes attributes;
  if (least <= greatest) {
    attributes.emplace_back(std::string(prefix) + "MaxValue", toText(greatest));
    attributes.emplace_back(std::string(prefix) + "MinValue", toText(least));
    usual = std::clamp(usual, least, greatest);
  }
  attributes.emplace_back("DefaultValue", toText(usual));
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
  attributes.emplace_back("TextValidationCharSet", characterSet(parameter.type, forPjl));
  const int longest = parameter.maximum.custom_string;
  if (longest > 0) attributes.emplace_back("MaxTextLength", std::to_string(longest));
  const int shortest = parameter.minimum.custom_string;
  if (shortest > 0) {
    state.losses.note(LossKind::kOption, "the least length " + std::to_string(shortest) + " of " +
                                             titleOf(option, parameter.name));
  }
  return featureOf("TextEntry", name, attributes);
}

ImportedElement parameterFeature(ImportState& state, const ppd_option_t& option,
                                 const ppd_cparam_t& parameter, const std::string& name,
                                 bool forPjl) {
  switch (parameter.type) {
    case PPD_CUSTOM_INT:
      return featureOf("IntEntry", name,
                       limits("Int", parameter.minimum.custom_int, parameter.maximum.custom_int, 0,
                              [](int value) { return std::to_string(value); }));
    case PPD_CUSTOM_PASSCODE:
    case PPD_CUSTOM_PASSWORD:
    case PPD_CUSTOM_STRING:
      return textFeature(state, option, parameter, name, forPjl);
    default:
      return featureOf("FloatEntry", name,
                       limits("Float", parameter.minimum.custom_real, parameter.maximum.custom_real,
                              0.0F, floatText));
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

// Notes the parameters to which libcups gives values of its own.
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
    state.losses.note(LossKind::kOption, titleOf(option, parameter->name) +
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
      state.losses.note(LossKind::kOption, titleOf(option, parameter->name) +
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
        limits("Float", ppd.custom_min[row.side], ppd.custom_max[row.side], row.usual, floatText)));
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
    state.losses.note(LossKind::kOption, titleOf(option, parameter->name) +
                                             ": libcups writes no values into ExitServer");
  }
}

}  // namespace driver_feature
