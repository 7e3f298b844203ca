#include "host/queue/minimal_ppd.h"

#include <cups/cups.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "host/queue/ppd_names.h"
#include "host/settings_file.h"
#include "model/core_feature.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

namespace driver_feature {

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

// In points.
struct PaperSize {
  std::string width;
  std::string length;
};

// The size that a choice's name or its name in tickets stands for; nothing
// when libcups knows neither.
std::optional<PaperSize> paperSizeOf(const Model& model, const std::string& choice) {
  const pwg_media_t* media = pwgMediaForPPD(choice.c_str());
  CoreFeature* feature = model.set->FindFeatureInFeatureList(kPageSize);
  CoreOption* option = feature->fetchOptionByName(std::string("Name"), choice);
  std::string name;
  if (media == nullptr && option != nullptr &&
      option->getOptionProperty(std::string("TESKCommand"), name)) {
    media = pwgMediaForPWG(name.c_str());
  }
  if (media == nullptr || media->width <= 0 || media->length <= 0) return std::nullopt;
  const auto points = [](int hundredths) {
    return std::to_string((static_cast<long long>(hundredths) * 72 + 1270) / 2540);
  };
  return PaperSize{points(media->width), points(media->length)};
}

class Writer {
 public:
  explicit Writer(const Model& model) : model_(model) {}

  void add(const std::string& name, const FeatureView& feature) {
    if (!feature.hasValue() || !feature.isVisible() || feature.isEncrypted() || name == "Copies") {
      return;
    }
    const bool isList = feature.kind() == FeatureKind::kMultiSelect;
    if (feature.kind() == FeatureKind::kTextEntry) {
      lose(name, "a PPD has no options for texts");
    } else if (!isOptionName(name, isList)) {
      lose(name, "a PPD cannot have this name");
    } else if (!names_.insert(smallLetters(name)).second) {
      lose(name, kSameName);
    } else if (name == kPageRegion && hasPageSizes()) {
      return;  // It stands with them.
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

  // Whether addPageSizes() writes the page sizes.
  bool hasPageSizes() const {
    const auto size = model_.features.find(kPageSize);
    return size != model_.features.end() && size->second.isVisible() &&
           size->second.kind() == FeatureKind::kMultiSelect;
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

  void addList(const std::string& name, const FeatureView& feature) {
    std::vector<std::string> choices;
    std::set<std::string> names;
    for (const Choice& choice : feature.choices()) {
      if (!choice.visible) continue;
      if (choice.name == "Custom") {
        lose(name + "=Custom", "a PPD has this name for values of any size");
      } else if (!isChoiceName(choice.name)) {
        lose(name + "=" + choice.name, "a PPD cannot have this name");
      } else if (name == kPageSize && !paperSizeOf(model_, choice.name)) {
        lose(name + "=" + choice.name, "libcups knows no size of this name");
      } else if (!names.insert(smallLetters(choice.name)).second) {
        lose(name + "=" + choice.name, kSameName);
      } else {
        choices.push_back(choice.name);
      }
    }
    if (choices.empty()) return;
    const std::string current = feature.currentChoice().value_or("");
    const bool isListed = std::find(choices.begin(), choices.end(), current) != choices.end();
    // Marks none of the choices, so that the description's default stands.
    const std::string usual = isListed ? current : "Unknown";
    writeList(name, choices, usual);
    if (name == kPageSize) addPageSizes(choices, usual);
  }

  void writeList(const std::string& name, const std::vector<std::string>& choices,
                 const std::string& current) {
    open(name, current);
    for (const std::string& choice : choices) line("*", name, " ", choice, ": \"\"");
    close(name);
  }

  // Programs want to know the paper sizes, and PPDs have to tell them twice.
  void addPageSizes(const std::vector<std::string>& choices, const std::string& current) {
    writeList(kPageRegion, choices, current);
    line("*DefaultImageableArea: " + current);
    for (const std::string& choice : choices) {
      const PaperSize size = paperSizeOf(model_, choice).value();
      line("*ImageableArea ", choice, ": \"0 0 ", size.width, " ", size.length, "\"");
    }
    line("*DefaultPaperDimension: " + current);
    for (const std::string& choice : choices) {
      const PaperSize size = paperSizeOf(model_, choice).value();
      line("*PaperDimension ", choice, ": \"", size.width, " ", size.length, "\"");
    }
  }

  void addNumber(const std::string& name, const FeatureView& feature) {
    const std::string current = settingText(feature).value_or("0");
    const FeatureLimits& limits = model_.index.limitsOf(name);
    open(name, current);
    line("*" + name + " " + current + ": \"\"");
    close(name);
    // libcups takes a default such as Custom.5 when this stands behind the option.
    const bool isInt = feature.kind() == FeatureKind::kIntEntry;
    line("*Custom" + name + " True: \"\"");
    line("*ParamCustom" + name + " Value: 1 " + (isInt ? intLimits(limits) : realLimits(limits)));
  }

  static std::string intLimits(const FeatureLimits& limits) {
    using Limits = std::numeric_limits<int>;
    return "int " + std::to_string(limits.intMin.value_or(Limits::min())) + " " +
           std::to_string(limits.intMax.value_or(Limits::max()));
  }

  static std::string realLimits(const FeatureLimits& limits) {
    return "real " + (limits.floatMin ? numberText(*limits.floatMin) : "-1000000") + " " +
           (limits.floatMax ? numberText(*limits.floatMax) : "1000000");
  }

  static constexpr const char* kSameName =
      "another one has this name, of which a PPD does not tell capital from small letters";

  const Model& model_;
  MinimalPpd ppd_;
  std::set<std::string> names_;  // Of features, with small letters.
};

}  // namespace

MinimalPpd minimalPpd(const Model& model, const std::string& name,
                      const std::vector<std::string>& queueLines) {
  Writer writer(model);
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

}  // namespace driver_feature
