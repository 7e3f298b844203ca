#include "host/ipp/capabilities.h"

#include <cups/cups.h>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "host/ipp/enablers.h"
#include "host/ppd/queue/page_sizes.h"
#include "host/settings/settings_file.h"
#include "host/settings/settings_text.h"
#include "model/core_feature.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

namespace driver_feature::ipp {

namespace {

constexpr const char* kPageSize = "PageSize";

std::string textOf(CoreFeature& feature, const char* property) {
  std::string text;
  feature.getFeatureProperty(std::string(property), text);
  return text;
}

std::string textOf(CoreOption& option, const char* property) {
  std::string text;
  option.getOptionProperty(std::string(property), text);
  return text;
}

int hundredthsOfPoints(float points) {
  return static_cast<int>(std::lround(static_cast<double>(points) * 2540 / 72));
}

int hundredthsOfMillimetres(double millimetres) {
  return static_cast<int>(std::lround(millimetres * 100));
}

// Most sizes come from whole points, which are coarse: they are taken for the standard
// ones that they round to.
void setSize(ChoiceCapability& choice, int width, int height) {
  const pwg_media_t* standard = pwgMediaForSize(width, height);
  const bool isKnown = standard != nullptr && standard->pwg != nullptr &&
                       !std::string_view(standard->pwg).starts_with("custom_");
  choice.width = isKnown ? standard->width : width;
  choice.height = isKnown ? standard->length : height;
}

void addDescribedSize(ChoiceCapability& choice, const host::MediaSizes& media) {
  for (const host::MediaSize& size : media.sizes) {
    if (size.option != choice.name) continue;
    setSize(choice, hundredthsOfMillimetres(size.width), hundredthsOfMillimetres(size.height));
    choice.left = hundredthsOfMillimetres(size.left);
    choice.bottom = hundredthsOfMillimetres(size.bottom);
    choice.right = hundredthsOfMillimetres(size.right);
    choice.top = hundredthsOfMillimetres(size.top);
  }
}

void addSizeOfNames(ChoiceCapability& choice, const host::Model& model,
                    const std::string& feature) {
  if (feature == kPageSize) {
    const auto size = ppd::pageSizeOf(model, nullptr, choice.name);
    if (!size) return;
    setSize(choice, hundredthsOfPoints(size->width), hundredthsOfPoints(size->length));
    choice.left = hundredthsOfPoints(size->left);
    choice.bottom = hundredthsOfPoints(size->bottom);
    choice.right = hundredthsOfPoints(size->width - size->right);
    choice.top = hundredthsOfPoints(size->length - size->top);
    return;
  }
  const pwg_media_t* media = pwgMediaForPWG(choice.ticketName.c_str());
  if (media == nullptr) media = pwgMediaForPPD(choice.name.c_str());
  if (media == nullptr || media->width <= 0 || media->length <= 0) return;
  choice.width = media->width;
  choice.height = media->length;
  const int quarterOfAnInch = 635;
  choice.left = choice.bottom = choice.right = choice.top = quarterOfAnInch;
}

std::vector<ChoiceCapability> choicesOf(CoreFeature& feature, const host::FeatureView& view) {
  std::vector<ChoiceCapability> choices;
  for (const host::Choice& each : view.choices()) {
    if (!each.visible) continue;
    CoreOption* option = feature.fetchOptionByName(std::string("Name"), each.name);
    if (option == nullptr) continue;
    ChoiceCapability choice;
    choice.name = each.name;
    choice.key = textOf(*option, "CLOKey");
    choice.ticketName = textOf(*option, "TESKCommand");
    choices.push_back(std::move(choice));
  }
  return choices;
}

void addTicketName(FeatureCapability& capability, CoreFeature& feature) {
  for (const char* property :
       {"TESKJTAttributeName", "TESKOAAttributeName", "NonVORNAttributeName"}) {
    capability.ticketName = textOf(feature, property);
    if (!capability.ticketName.empty()) return;
  }
  capability.isHardware = !textOf(feature, "InstOptAttributeName").empty();
}

void addLimits(FeatureCapability& capability, const host::FeatureLimits& limits) {
  capability.intMin = limits.intMin;
  capability.intMax = limits.intMax;
  capability.floatMin = limits.floatMin;
  capability.floatMax = limits.floatMax;
  capability.maxTextLength = limits.maxTextLength;
  capability.allowedCharacters = limits.allowedCharacters;
  capability.group = limits.group;
}

FeatureCapability featureOf(const host::Model& model, const std::string& name,
                            const host::FeatureView& view, CoreFeature& feature) {
  FeatureCapability capability;
  capability.name = name;
  capability.kind = view.kind();
  capability.key = textOf(feature, "CLOKey");
  capability.syntax = textOf(feature, "TESKAttributeSyntax");
  capability.isEncrypted = view.isEncrypted();
  addTicketName(capability, feature);
  addLimits(capability, model.index.limitsOf(name));
  capability.value = host::settingText(view).value_or("");
  if (capability.isList()) capability.choices = choicesOf(feature, view);
  return capability;
}

std::vector<FeatureCapability> featuresOf(const host::Model& model) {
  std::vector<FeatureCapability> features;
  for (const auto& [name, view] : model.features) {
    CoreFeature* feature = model.set->FindFeatureInFeatureList(name);
    if (feature == nullptr || !view.hasValue() || !view.isVisible()) continue;
    if (!model.index.recordsOf(name).empty()) continue;
    features.push_back(featureOf(model, name, view, *feature));
  }
  return features;
}

// The list that chooses the page size: the one with sizes, PageSize, or the one that
// tickets call "media".
std::string sizeFeatureOf(const Capabilities& all, const host::MediaSizes& media) {
  for (const std::string& name : {media.feature, std::string(kPageSize)}) {
    const FeatureCapability* feature = all.find(name);
    if (feature != nullptr && feature->isList()) return name;
  }
  for (const FeatureCapability& feature : all.features) {
    if (feature.isList() && feature.ticketName == "media") return feature.name;
  }
  return "";
}

void addSizes(Capabilities& all, const host::Model& model, const host::MediaSizes& media) {
  all.sizeFeature = sizeFeatureOf(all, media);
  for (FeatureCapability& feature : all.features) {
    if (feature.name != all.sizeFeature) continue;
    for (ChoiceCapability& choice : feature.choices) {
      if (feature.name == media.feature) addDescribedSize(choice, media);
      if (!choice.hasSize()) addSizeOfNames(choice, model, feature.name);
    }
  }
}

void addRules(Capabilities& all, const host::Rules& rules) {
  for (const host::HardwareFeature& hardware : rules.hardware) {
    for (FeatureCapability& feature : all.features) {
      if (feature.name == hardware.name) feature.isHardware = true;
    }
  }
  for (const host::Rule& rule : rules.rules) {
    RuleCapability capability{rule.id, {}};
    for (const host::Condition& each : rule.conditions) {
      capability.conditions.push_back({each.feature, each.kind, each.choices, each.number});
    }
    all.rules.push_back(std::move(capability));
  }
}

void addPresets(Capabilities& all, const std::vector<host::Preset>& presets) {
  for (const host::Preset& preset : presets) {
    PresetCapability capability{preset.name, {}};
    for (const host::SettingsLine& line : host::parseSettings(preset.settings).features) {
      capability.settings.push_back(line.setting);
    }
    all.presets.push_back(std::move(capability));
  }
}

void addOptionTexts(std::map<std::string, std::string>& texts, const FeatureCapability& capability,
                    CoreFeature& feature) {
  for (const ChoiceCapability& choice : capability.choices) {
    CoreOption* option = feature.fetchOptionByName(std::string("Name"), choice.name);
    if (option == nullptr) continue;
    const std::string text = textOf(*option, "DisplayText");
    if (!text.empty()) texts[capability.name + "." + choice.name] = text;
  }
}

void addTexts(Capabilities& all, const host::Model& model, const host::Additions& additions) {
  std::map<std::string, std::string> own;
  for (const FeatureCapability& capability : all.features) {
    CoreFeature* feature = model.set->FindFeatureInFeatureList(capability.name);
    if (feature != nullptr) addOptionTexts(own, capability, *feature);
  }
  for (const host::Rule& rule : additions.rules.rules) {
    if (!rule.text.empty()) own["rule:" + rule.id] = rule.text;
  }
  for (const host::Preset& preset : additions.presets) {
    if (!preset.text.empty()) own["preset:" + preset.name] = preset.text;
  }
  all.languages.push_back({"", std::move(own)});
  for (const host::TextsOfLanguage& language : additions.texts) {
    LanguageCapability capability{language.language, {}};
    for (const host::Text& text : language.texts) capability.texts[text.key] = text.text;
    all.languages.push_back(std::move(capability));
  }
}

}  // namespace

const FeatureCapability* Capabilities::find(const std::string& feature) const {
  const auto found =
      std::find_if(features.begin(), features.end(),
                   [&feature](const FeatureCapability& each) { return each.name == feature; });
  return found != features.end() ? &*found : nullptr;
}

std::vector<std::string> hardwareLists(const host::Model& model, const host::Additions& additions) {
  std::vector<std::string> names;
  for (const auto& [name, view] : model.features) {
    CoreFeature* feature = model.set->FindFeatureInFeatureList(name);
    const bool isList = view.kind() == host::FeatureKind::kMultiSelect && view.isVisible();
    if (feature == nullptr || !isList) continue;
    const auto& hardware = additions.rules.hardware;
    const bool isOfRules = std::any_of(
        hardware.begin(), hardware.end(),
        [&feature = name](const host::HardwareFeature& one) { return one.name == feature; });
    if (isOfRules || !textOf(*feature, "InstOptAttributeName").empty()) names.push_back(name);
  }
  return names;
}

Capabilities capabilitiesOf(const host::Model& model, const host::Additions& additions) {
  Capabilities all;
  all.features = featuresOf(model);
  addSizes(all, model, additions.media);
  addRules(all, additions.rules);
  addPresets(all, additions.presets);
  addTexts(all, model, additions);
  addEnablers(all, model);
  return all;
}

}  // namespace driver_feature::ipp
