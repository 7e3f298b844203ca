#include "host/ppd/queue/made_options.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "host/base/text.h"
#include "host/ppd/queue/choice_names.h"
#include "host/ppd/queue/ppd_names.h"
#include "host/settings/settings_file.h"

namespace driver_feature::ppd {

namespace {

// The group of a PPD whose options say what the printer has.
constexpr const char* kHardwareGroup = "InstallableOptions";

std::string intLimits(const host::FeatureLimits& limits) {
  using Limits = std::numeric_limits<int>;
  return "int " + std::to_string(limits.intMin.value_or(Limits::min())) + " " +
         std::to_string(limits.intMax.value_or(Limits::max()));
}

std::string realLimits(const host::FeatureLimits& limits) {
  return "real " + (limits.floatMin ? host::numberText(*limits.floatMin) : "-1000000") + " " +
         (limits.floatMax ? host::numberText(*limits.floatMax) : "1000000");
}

}  // namespace

MadeOptionWriter::MadeOptionWriter(const host::Model& model, const host::Additions& additions,
                                   std::vector<std::string>& losses)
    : model_(model),
      losses_(losses),
      panels_(additions.panels),
      texts_(additions.texts, losses),
      names_{host::toLower(kPageSize), host::toLower(kPageRegion)} {
  if (additions.media.feature == kPageSize) {
    usualSize_ = additions.media.usual;
    for (const host::MediaSize& size : additions.media.sizes) media_.emplace(size.option, size);
  }
  for (const host::HardwareFeature& feature : additions.rules.hardware) {
    hardware_.insert(feature.name);
  }
}

void MadeOptionWriter::addAll() {
  std::unordered_map<std::string, std::vector<std::string>> members = membersOfPanels();
  if (!placed_.contains(kPageSize) || !model_.features.contains(kPageSize)) addPageSizes();
  for (const auto& [name, feature] : model_.features) {
    if (!placed_.contains(name)) add(name, feature);
  }
  for (const host::Panel& panel : panels_) {
    const auto found = members.extract(panel.name);
    if (!found.empty()) addGroup(panel.name, panel.text, found.mapped());
  }
  std::vector<std::string> hardware;
  for (const auto& [name, feature] : model_.features) {
    if (hardware_.contains(name)) hardware.push_back(name);
  }
  const auto own = std::find_if(panels_.begin(), panels_.end(), [](const host::Panel& panel) {
    return panel.name == kHardwareGroup;
  });
  addGroup(kHardwareGroup, own != panels_.end() ? own->text : "Installable Options", hardware);
}

// The features of each panel that becomes a group, without hardware, which has a
// group of its own. All of them count as placed.
std::unordered_map<std::string, std::vector<std::string>> MadeOptionWriter::membersOfPanels() {
  std::unordered_map<std::string, std::vector<std::string>> members;
  placed_ = hardware_;
  for (const host::Panel& panel : panels_) {
    if (panel.name == kHardwareGroup) continue;
    if (!isChoiceName(panel.name)) {
      lose("panel " + panel.name, "a PPD cannot have this name");
      continue;
    }
    for (const host::PanelMember& member : panel.members) {
      if (!model_.features.contains(member.feature)) continue;
      if (placed_.insert(member.feature).second) members[panel.name].push_back(member.feature);
    }
  }
  return members;
}

// `text` counts if the description's own language has none. Nothing is written of a
// group without options.
void MadeOptionWriter::addGroup(const std::string& name, const std::string& text,
                                const std::vector<std::string>& features) {
  const std::string before = std::exchange(text_, "");
  for (const std::string& feature : features) {
    if (feature == kPageSize) addPageSizes();
    add(feature, model_.features.at(feature));
  }
  if (!text_.empty()) {
    const std::string shown = texts_.textFor("Translation " + name, host::panelKey(name), text);
    text_ = "*OpenGroup: " + name + shown + "\n" + text_ + "*CloseGroup: " + name + "\n";
  }
  text_ = before + text_;
}

void MadeOptionWriter::add(const std::string& name, const host::FeatureView& feature) {
  if (!feature.hasValue() || !feature.isVisible() || feature.isEncrypted() || name == "Copies") {
    return;
  }
  const bool isList = feature.kind() == host::FeatureKind::kMultiSelect;
  const std::string records = model_.index.recordsOf(name);
  if (!records.empty()) {
    lose(name, "the options of a job do not reach the records of " + records);
  } else if (feature.kind() == host::FeatureKind::kTextEntry) {
    lose(name, "a PPD has no options for texts");
  } else if ((name == kPageSize || name == kPageRegion)) {
    if (!isPageSizeList(feature)) lose(name, "a PPD has this name for the sizes of sheets");
  } else if (const auto parts = switchOf(name, feature)) {
    addSwitches(name, parts->thing);
  } else if (!isOptionName(name, isList)) {
    lose(name, "a PPD cannot have this name");
  } else if (!names_.insert(host::toLower(name)).second) {
    lose(name, kSameNameInPpd);
  } else if (isList) {
    addList(name, feature);
  } else {
    addNumber(name, feature);
  }
}

void MadeOptionWriter::lose(const std::string& what, const std::string& reason) {
  losses_.push_back(what + ": " + reason);
}

void MadeOptionWriter::open(const std::string& name, const std::string& value,
                            const std::string& textOf, const char* type) {
  line("*OpenUI *", name, texts_.textFor("Translation " + name, textOf), ": ", type);
  line("*OrderDependency: 10 AnySetup *" + name);
  line("*Default" + name + ": " + value);
}

void MadeOptionWriter::addList(const std::string& name, const host::FeatureView& feature) {
  const std::vector<NamedChoice> choices = namedChoices(model_, name, feature, losses_);
  if (choices.empty()) return;
  if (name == "Duplex" && !hasName(choices, "None")) {
    return lose(name, "a PPD has this name only for an option with a choice None");
  }
  const std::string selected = feature.currentChoice().value_or("");
  const auto current =
      std::find_if(choices.begin(), choices.end(),
                   [&selected](const NamedChoice& choice) { return choice.option == selected; });
  for (const NamedChoice& choice : choices) {
    if (choice.name == choice.option) continue;
    line("*DriverFeatureChoice: \"", name, " ", choice.name, " ", choice.option, "\"");
  }
  writeList(name, choices, current != choices.end() ? current->name : kUnknown, name);
}

// `textsOf` is the feature that has the texts.
void MadeOptionWriter::writeList(const std::string& name, const std::vector<NamedChoice>& choices,
                                 const std::string& current, const std::string& textsOf) {
  open(name, current, textsOf);
  for (const NamedChoice& choice : choices) {
    line("*", name, " ", choice.name,
         texts_.textFor(name + " " + choice.name, host::optionKey(textsOf, choice.option)),
         ": \"\"");
  }
  line("*CloseUI: *" + name);
  options_[name] = {name, choices};
}

void MadeOptionWriter::addNumber(const std::string& name, const host::FeatureView& feature) {
  if (hasFixedNames(name)) return lose(name, "a PPD has this name for an option with choices");
  const std::string current = settingText(feature).value_or("0");
  const host::FeatureLimits& limits = model_.index.limitsOf(name);
  open(name, current, name);
  line("*" + name + " " + current + ": \"\"");
  line("*CloseUI: *" + name);
  // libcups takes a default such as Custom.5 when this comes after the option.
  const bool isInt = feature.kind() == host::FeatureKind::kIntEntry;
  line("*Custom" + name + " True: \"\"");
  line("*ParamCustom", name, " Value", texts_.textFor("ParamCustom" + name + " Value", name),
       ": 1 ", isInt ? intLimits(limits) : realLimits(limits));
}

}  // namespace driver_feature::ppd
