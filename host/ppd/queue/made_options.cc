#include "host/ppd/queue/made_options.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "host/base/text.h"
#include "host/ppd/queue/choice_names.h"
#include "host/ppd/queue/ppd_names.h"
#include "host/settings/settings_file.h"

namespace driver_feature::ppd {

namespace {

constexpr const char* kPageSize = "PageSize";
constexpr const char* kPageRegion = "PageRegion";

// Marks none of the choices, so that the description's default is used.
constexpr const char* kUnknown = "Unknown";

bool isPageSizeName(const std::string& name) {
  return name == kPageSize || name == kPageRegion;
}

// Whether the choices of the feature are those of the PPD's page sizes.
bool isPageSizeList(const host::FeatureView& feature) {
  return feature.kind() == host::FeatureKind::kMultiSelect && feature.isVisible() &&
         !feature.isEncrypted();
}

std::string intLimits(const host::FeatureLimits& limits) {
  using Limits = std::numeric_limits<int>;
  return "int " + std::to_string(limits.intMin.value_or(Limits::min())) + " " +
         std::to_string(limits.intMax.value_or(Limits::max()));
}

std::string realLimits(const host::FeatureLimits& limits) {
  return "real " + (limits.floatMin ? host::numberText(*limits.floatMin) : "-1000000") + " " +
         (limits.floatMax ? host::numberText(*limits.floatMax) : "1000000");
}

bool hasName(const std::vector<NamedChoice>& choices, const std::string& name) {
  return std::any_of(choices.begin(), choices.end(),
                     [&name](const NamedChoice& choice) { return choice.name == name; });
}

}  // namespace

MadeOptionWriter::MadeOptionWriter(const host::Model& model, const host::Additions& additions,
                                   std::vector<std::string>& losses)
    : model_(model), losses_(losses), texts_(additions.texts, losses) {
  if (additions.media.feature == kPageSize) {
    usualSize_ = additions.media.usual;
    for (const host::MediaSize& size : additions.media.sizes) media_.emplace(size.option, size);
  }
  for (const host::HardwareFeature& feature : additions.rules.hardware) {
    hardware_.insert(feature.name);
  }
}

void MadeOptionWriter::addAll() {
  addPageSizes();
  for (const auto& [name, feature] : model_.features) {
    if (!hardware_.contains(name)) add(name, feature);
  }
  const std::string before = std::exchange(text_, "");
  for (const auto& [name, feature] : model_.features) {
    if (hardware_.contains(name)) add(name, feature);
  }
  if (!text_.empty()) {
    text_ = "*OpenGroup: InstallableOptions/Installable Options\n" + text_ +
            "*CloseGroup: InstallableOptions\n";
  }
  text_ = before + text_;
}

// The page sizes: a PPD must have some. Programs want to know them, and PPDs have
// to give them twice.
void MadeOptionWriter::addPageSizes() {
  names_ = {host::toLower(kPageSize), host::toLower(kPageRegion)};
  const auto feature = model_.features.find(kPageSize);
  const bool isOffered = feature != model_.features.end() && isPageSizeList(feature->second);
  std::vector<PageSize> sizes = isOffered ? sizesOf(feature->second) : std::vector<PageSize>();
  // The choice until the user makes one: that of the description.
  std::string usual = isOffered ? feature->second.currentChoice().value_or("") : "";
  if (isOffered && usual == "not set") usual = usualSize_;
  if (sizes.empty()) sizes = standardPageSizes();
  if (feature == model_.features.end()) usual = sizes.front().name;
  writePageSizes(sizes, usual);
  if (isOffered) addRegionRule(&feature->second);
}

// Where the description has no size selected, the tray says it, or the region:
// the filter is to leave that so.
void MadeOptionWriter::addRegionRule(const host::FeatureView* size) {
  if (usualSize_.empty() || size->currentChoice().value_or("") != "not set") return;
  const auto region = model_.features.find(kPageRegion);
  const bool isRegion = region != model_.features.end() && isPageSizeList(region->second) &&
                        region->second.currentChoice().value_or("not set") != "not set";
  line("*RequiresPageRegion All: ", isRegion ? "True" : "False");
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
  } else if (isPageSizeName(name)) {
    if (!isPageSizeList(feature)) lose(name, "a PPD has this name for the sizes of sheets");
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
                            const std::string& textOf) {
  line("*OpenUI *", name, texts_.textFor("Translation " + name, textOf), ": PickOne");
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
  options_[name] = choices;
}

std::vector<PageSize> MadeOptionWriter::sizesOf(const host::FeatureView& feature) {
  std::vector<PageSize> sizes;
  for (const NamedChoice& choice : namedChoices(model_, kPageSize, feature, losses_)) {
    const auto described = media_.find(choice.option);
    const host::MediaSize* known = described != media_.end() ? &described->second : nullptr;
    if (const std::optional<PageSize> size = pageSizeOf(model_, known, choice.option)) {
      sizes.push_back(*size);
    } else {
      lose(std::string(kPageSize) + "=" + choice.option,
           "its size is not known; give it a name such as A4 or w612h792, or a PSCommand with "
           "/PageSize [WIDTH LENGTH]");
    }
  }
  return sizes;
}

void MadeOptionWriter::writePageSizes(const std::vector<PageSize>& sizes,
                                      const std::string& usual) {
  std::vector<NamedChoice> names;
  names.reserve(sizes.size());
  for (const PageSize& size : sizes) names.push_back({size.name, size.name});
  const std::string current = hasName(names, usual) ? usual : kUnknown;
  writeList(kPageSize, names, current, kPageSize);
  const bool hasRegion = model_.features.contains(kPageRegion);
  writeList(kPageRegion, names, current, hasRegion ? kPageRegion : kPageSize);
  line("*DefaultImageableArea: " + current);
  for (const PageSize& size : sizes) {
    line("*ImageableArea ", size.name, ": \"", host::numberText(size.left), " ",
         host::numberText(size.bottom), " ", host::numberText(size.right), " ",
         host::numberText(size.top), "\"");
  }
  line("*DefaultPaperDimension: " + current);
  for (const PageSize& size : sizes) {
    line("*PaperDimension ", size.name, ": \"", host::numberText(size.width), " ",
         host::numberText(size.length), "\"");
  }
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
