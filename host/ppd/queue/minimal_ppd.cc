#include "host/ppd/queue/minimal_ppd.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "host/base/text.h"
#include "host/ppd/queue/choice_names.h"
#include "host/ppd/queue/page_sizes.h"
#include "host/ppd/queue/ppd_names.h"
#include "host/settings/settings_file.h"

namespace driver_feature::ppd {

namespace {

constexpr const char* kPageSize = "PageSize";
constexpr const char* kPageRegion = "PageRegion";

// What stays of a text where a PPD wants a name for users.
std::string plainText(const std::string& text) {
  constexpr std::string_view kAllowed = " .-+/0123456789";
  std::string plain;
  for (const char c : text) {
    const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    plain += isLetter || kAllowed.find(c) != std::string_view::npos ? c : ' ';
  }
  if (plain.find_first_not_of(' ') == std::string::npos) return "Printer";
  return plain.substr(0, 30);
}

class Writer {
 public:
  explicit Writer(const host::Model& model) : model_(model) {}

  // The page sizes: a PPD must have some. Programs want to know them, and PPDs
  // have to give them twice.
  void addPageSizes() {
    names_ = {host::toLower(kPageSize), host::toLower(kPageRegion)};
    const auto feature = model_.features.find(kPageSize);
    const bool isOffered = feature != model_.features.end() && isPageSizeList(feature->second);
    std::vector<PageSize> sizes = isOffered ? sizesOf(feature->second) : std::vector<PageSize>();
    // The choice until the user makes one: that of the description.
    std::string usual = isOffered ? feature->second.currentChoice().value_or("") : "";
    if (sizes.empty()) sizes = standardPageSizes();
    if (feature == model_.features.end()) usual = sizes.front().name;
    writePageSizes(sizes, usual);
  }

  void add(const std::string& name, const host::FeatureView& feature) {
    if (!feature.hasValue() || !feature.isVisible() || feature.isEncrypted() || name == "Copies") {
      return;
    }
    const bool isList = feature.kind() == host::FeatureKind::kMultiSelect;
    const std::string records = recordsOf(name);
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

  MinimalPpd take() { return std::move(ppd_); }

 private:
  void lose(const std::string& what, const std::string& reason) {
    ppd_.losses.push_back(what + ": " + reason);
  }

  static bool isPageSizeName(const std::string& name) {
    return name == kPageSize || name == kPageRegion;
  }

  // Whether addPageSizes() writes the choices of the feature.
  static bool isPageSizeList(const host::FeatureView& feature) {
    return feature.kind() == host::FeatureKind::kMultiSelect && feature.isVisible() &&
           !feature.isEncrypted();
  }

  // The dynamic group of whose records the feature is a member; empty when it
  // is none.
  std::string recordsOf(const std::string& feature) const {
    const std::vector<std::string> around = model_.index.groupsAround(feature);
    for (const host::GroupEntry& group : model_.index.groups()) {
      if (group.kind != host::GroupKind::kDynamic) continue;
      const std::string members = model_.index.templateOf(group.name);
      if (std::find(around.begin(), around.end(), members) != around.end()) return group.name;
    }
    return "";
  }

  template <class... Texts>
  void line(const Texts&... texts) {
    ((ppd_.text += texts), ...) += '\n';
  }

  void open(const std::string& name, const std::string& value) {
    line("*OpenUI *" + name + ": PickOne");
    line("*OrderDependency: 10 AnySetup *" + name);
    line("*Default" + name + ": " + value);
  }

  void close(const std::string& name) { line("*CloseUI: *" + name); }

  std::vector<NamedChoice> choicesOf(const std::string& name, const host::FeatureView& feature) {
    return namedChoices(model_, name, feature, ppd_.losses);
  }

  void addList(const std::string& name, const host::FeatureView& feature) {
    const std::vector<NamedChoice> choices = choicesOf(name, feature);
    if (choices.empty()) return;
    const auto has = [&choices](const std::string& wanted, std::string NamedChoice::*member) {
      return std::find_if(choices.begin(), choices.end(),
                          [&](const NamedChoice& choice) { return choice.*member == wanted; });
    };
    if (name == "Duplex" && has("None", &NamedChoice::name) == choices.end()) {
      return lose(name, "a PPD has this name only for an option with a choice None");
    }
    const auto current = has(feature.currentChoice().value_or(""), &NamedChoice::option);
    std::vector<std::string> inPpd;
    inPpd.reserve(choices.size());
    for (const NamedChoice& choice : choices) {
      inPpd.push_back(choice.name);
      if (choice.name == choice.option) continue;
      line("*DriverFeatureChoice: \"", name, " ", choice.name, " ", choice.option, "\"");
    }
    writeList(name, inPpd, current != choices.end() ? current->name : kUnknown);
  }

  void writeList(const std::string& name, const std::vector<std::string>& choices,
                 const std::string& current) {
    open(name, current);
    for (const std::string& choice : choices) line("*", name, " ", choice, ": \"\"");
    close(name);
  }

  std::vector<PageSize> sizesOf(const host::FeatureView& feature) {
    std::vector<PageSize> sizes;
    for (const NamedChoice& choice : choicesOf(kPageSize, feature)) {
      if (const std::optional<PageSize> size = pageSizeOf(model_, choice.option)) {
        sizes.push_back(*size);
      } else {
        lose(std::string(kPageSize) + "=" + choice.option,
             "its size is not known; give it a name such as A4 or w612h792, or a PSCommand with "
             "/PageSize [WIDTH LENGTH]");
      }
    }
    return sizes;
  }

  void writePageSizes(const std::vector<PageSize>& sizes, const std::string& usual) {
    std::vector<std::string> names;
    names.reserve(sizes.size());
    for (const PageSize& size : sizes) names.push_back(size.name);
    const bool isListed = std::find(names.begin(), names.end(), usual) != names.end();
    const std::string current = isListed ? usual : kUnknown;
    writeList(kPageSize, names, current);
    writeList(kPageRegion, names, current);
    line("*DefaultImageableArea: " + current);
    for (const PageSize& size : sizes) {
      const std::string margin = host::numberText(size.margin);
      line("*ImageableArea ", size.name, ": \"", margin, " ", margin, " ",
           host::numberText(size.width - size.margin), " ",
           host::numberText(size.length - size.margin), "\"");
    }
    line("*DefaultPaperDimension: " + current);
    for (const PageSize& size : sizes) {
      line("*PaperDimension ", size.name, ": \"", host::numberText(size.width), " ",
           host::numberText(size.length), "\"");
    }
  }

  void addNumber(const std::string& name, const host::FeatureView& feature) {
    if (hasFixedNames(name)) return lose(name, "a PPD has this name for an option with choices");
    const std::string current = settingText(feature).value_or("0");
    const host::FeatureLimits& limits = model_.index.limitsOf(name);
    open(name, current);
    line("*" + name + " " + current + ": \"\"");
    close(name);
    // libcups takes a default such as Custom.5 when this comes after the option.
    const bool isInt = feature.kind() == host::FeatureKind::kIntEntry;
    line("*Custom" + name + " True: \"\"");
    line("*ParamCustom" + name + " Value: 1 " + (isInt ? intLimits(limits) : realLimits(limits)));
  }

  static std::string intLimits(const host::FeatureLimits& limits) {
    using Limits = std::numeric_limits<int>;
    return "int " + std::to_string(limits.intMin.value_or(Limits::min())) + " " +
           std::to_string(limits.intMax.value_or(Limits::max()));
  }

  static std::string realLimits(const host::FeatureLimits& limits) {
    return "real " + (limits.floatMin ? host::numberText(*limits.floatMin) : "-1000000") + " " +
           (limits.floatMax ? host::numberText(*limits.floatMax) : "1000000");
  }

  // Marks none of the choices, so that the description's default is used.
  static constexpr const char* kUnknown = "Unknown";

  const host::Model& model_;
  MinimalPpd ppd_;
  std::set<std::string> names_;  // Of features, with small letters.
};

}  // namespace

MinimalPpd minimalPpd(const host::Model& model, const std::string& name,
                      const std::vector<std::string>& queueLines) {
  Writer writer(model);
  writer.addPageSizes();
  for (const auto& [feature, view] : model.features) writer.add(feature, view);
  MinimalPpd ppd = writer.take();
  const std::string plain = plainText(name);
  std::string head = "*PPD-Adobe: \"4.3\"\n";
  for (const std::string& line : queueLines) head += line + "\n";
  head +=
      "*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n*LanguageVersion: English\n"
      "*LanguageEncoding: ISOLatin1\n*PCFileName: \"QUEUE.PPD\"\n*Manufacturer: \"Generic\"\n"
      "*Product: \"(" +
      plain +
      ")\"\n*PSVersion: \"(3010.000) 0\"\n"
      "*ModelName: \"" +
      plain + "\"\n*ShortNickName: \"" + plain +
      "\"\n"
      "*NickName: \"" +
      plain +
      " with driver-feature\"\n"
      "*LanguageLevel: \"3\"\n*ColorDevice: True\n*DefaultColorSpace: RGB\n"
      "*FileSystem: False\n*Throughput: \"1\"\n*LandscapeOrientation: Plus90\n"
      "*TTRasterizer: Type42\n*DefaultFont: Courier\n"
      "*Font Courier: Standard \"(1.0)\" Standard ROM\n";
  ppd.text = head + ppd.text;
  return ppd;
}

}  // namespace driver_feature::ppd
