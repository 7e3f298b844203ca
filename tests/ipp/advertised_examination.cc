#include "tests/ipp/advertised_examination.h"

#include <cups/ipp.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "host/settings/settings_file.h"

namespace driver_feature::testing {

namespace {

using driver_feature::host::FeatureView;
using driver_feature::host::Setting;
using driver_feature::ipp::Capabilities;
using driver_feature::ipp::ChoiceCapability;
using driver_feature::ipp::FeatureCapability;
using driver_feature::ipp::JobSettings;
using driver_feature::ipp::Translation;

struct IppDeleter {
  void operator()(ipp_t* ipp) const { ippDelete(ipp); }
};
using Ipp = std::unique_ptr<ipp_t, IppDeleter>;

// A request with one attribute of a job.
class Trial {
 public:
  explicit Trial(const std::string& name)
      : name_(name), request_(ippNewRequest(IPP_OP_VALIDATE_JOB)) {}
  ipp_t* request() const { return request_.get(); }
  const std::string& name() const { return name_; }

 private:
  std::string name_;
  Ipp request_;
};

class Examination {
 public:
  Examination(const driver_feature::host::Model& model, const Translation& translation)
      : model_(model), translation_(translation), printer_(ippNew()) {
    for (const auto& [name, view] : model.features) {
      if (const auto value = driver_feature::host::settingText(view)) before_[name] = *value;
    }
    translation_.addPrinterAttributes(printer_.get());
  }

  std::vector<std::string> run() {
    checkFeatures();
    for (const std::string& name : translation_.jobAttributeNames()) tryValues(name);
    checkChoices();
    return {std::to_string(features_), std::to_string(values_), faults_};
  }

 private:
  void fault(const std::string& text) { faults_ += text + "\n"; }

  const Capabilities& all() const { return translation_.capabilities(); }

  ipp_attribute_t* advertised(const std::string& name) const {
    return ippFindAttribute(printer_.get(), name.c_str(), IPP_TAG_ZERO);
  }

  void checkFeatures() {
    const std::vector<std::string> names = translation_.jobAttributeNames();
    for (const FeatureCapability& feature : all().features) {
      ++features_;
      const std::vector<std::string> carriers = translation_.attributesOf(feature.name);
      if (carriers.empty()) fault(feature.name + ": is not advertised");
      for (const std::string& carrier : carriers) {
        const bool isThere =
            feature.isHardware || std::count(names.begin(), names.end(), carrier) > 0;
        if (!isThere) fault(feature.name + ": " + carrier + " is not an attribute of a job");
      }
    }
  }

  void tryValues(const std::string& name) {
    if (name == "ipp-attribute-fidelity" || name == "overrides" ||
        name == "job-password-encryption") {
      return;
    }
    if (name == "job-password") return tryPassword();
    if (name == "media-col") return tryMediaCols();
    if (name == "finishings-col") return tryAll(name, advertised("finishings-col-database"));
    ipp_attribute_t* supported = advertised(name + "-supported");
    if (supported == nullptr) return fault(name + ": has no supported values");
    if (name == "page-ranges") return;
    const FeatureCapability* text = textFeature(name);
    if (text == nullptr) return tryAll(name, supported);
    // The limits of a text are its length.
    tryWord(name, text->allowedCharacters.substr(0, 1));
  }

  const FeatureCapability* textFeature(const std::string& name) const {
    for (const FeatureCapability& feature : all().features) {
      if (feature.kind != driver_feature::host::FeatureKind::kTextEntry) continue;
      const std::vector<std::string> carriers = translation_.attributesOf(feature.name);
      if (std::count(carriers.begin(), carriers.end(), name) > 0) return &feature;
    }
    return nullptr;
  }

  void tryPassword() {
    Trial trial("job-password");
    ippAddOctetString(trial.request(), IPP_TAG_OPERATION, "job-password", "1", 1);
    judge(trial, "1");
  }

  void tryWord(const std::string& name, const std::string& word) {
    Trial trial(name);
    ippAddString(trial.request(), IPP_TAG_JOB, IPP_TAG_NAME, name.c_str(), nullptr, word.c_str());
    judge(trial, word);
  }

  void tryMediaCols() {
    ipp_attribute_t* database = advertised("media-col-database");
    for (int at = 0; at < ippGetCount(database); ++at) {
      if (!trySizeOfRange(ippGetCollection(database, at))) {
        tryOne("media-col", database, at, false);
      }
    }
    tryAll("media-col", advertised("media-col-default"));
    tryAll("media-col", advertised("media-col-ready"));
    for (const char* member : {"media-source", "media-type", "media-weight-metric"}) {
      ipp_attribute_t* values = advertised(std::string(member) + "-supported");
      for (int at = 0; values != nullptr && at < ippGetCount(values); ++at) {
        Ipp collection(ippNew());
        addValue(collection.get(), IPP_TAG_ZERO, member, values, at, false);
        Trial trial("media-col");
        ippAddCollection(trial.request(), IPP_TAG_JOB, "media-col", collection.get());
        judge(trial, member);
      }
    }
  }

  // The entry of custom sizes has ranges: the size in their middle stands for them.
  bool trySizeOfRange(ipp_t* entry) {
    ipp_attribute_t* size = ippFindAttribute(entry, "media-size", IPP_TAG_BEGIN_COLLECTION);
    ipp_t* ranges = ippGetCollection(size, 0);
    if (ippFindAttribute(ranges, "y-dimension", IPP_TAG_RANGE) == nullptr) return false;
    Ipp middle(ippNew());
    for (const char* name : {"x-dimension", "y-dimension"}) {
      ipp_attribute_t* length = ippFindAttribute(ranges, name, IPP_TAG_ZERO);
      int upper = ippGetInteger(length, 0);
      int lower = upper;
      if (ippGetValueTag(length) == IPP_TAG_RANGE) lower = ippGetRange(length, 0, &upper);
      ippAddInteger(middle.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, name, lower + (upper - lower) / 2);
    }
    Ipp collection(ippNew());
    ippAddCollection(collection.get(), IPP_TAG_ZERO, "media-size", middle.get());
    Trial trial("media-col");
    ippAddCollection(trial.request(), IPP_TAG_JOB, "media-col", collection.get());
    judge(trial, "custom size");
    return true;
  }

  void tryAll(const std::string& name, ipp_attribute_t* values) {
    for (int at = 0; at < ippGetCount(values); ++at) {
      tryOne(name, values, at, false);
      if (ippGetValueTag(values) == IPP_TAG_RANGE) tryOne(name, values, at, true);
    }
  }

  void tryOne(const std::string& name, ipp_attribute_t* values, int at, bool isUpper) {
    Trial trial(name);
    addValue(trial.request(), IPP_TAG_JOB, name.c_str(), values, at, isUpper);
    char text[2048] = "";
    ippAttributeString(ippFindAttribute(trial.request(), name.c_str(), IPP_TAG_ZERO), text,
                       sizeof text);
    judge(trial, text);
  }

  static void addValue(ipp_t* target, ipp_tag_t group, const char* name, ipp_attribute_t* values,
                       int at, bool isUpper) {
    const ipp_tag_t tag = ippGetValueTag(values);
    int upper = 0;
    ipp_res_t unit = IPP_RES_PER_INCH;
    switch (tag) {
      case IPP_TAG_INTEGER:
      case IPP_TAG_ENUM:
        ippAddInteger(target, group, tag, name, ippGetInteger(values, at));
        break;
      case IPP_TAG_RANGE: {
        const int lower = ippGetRange(values, at, &upper);
        ippAddInteger(target, group, IPP_TAG_INTEGER, name, isUpper ? upper : lower);
        break;
      }
      case IPP_TAG_BOOLEAN:
        ippAddBoolean(target, group, name, static_cast<char>(ippGetBoolean(values, at)));
        break;
      case IPP_TAG_RESOLUTION: {
        const int across = ippGetResolution(values, at, &upper, &unit);
        ippAddResolution(target, group, name, unit, across, upper);
        break;
      }
      case IPP_TAG_BEGIN_COLLECTION:
        ippAddCollection(target, group, name, ippGetCollection(values, at));
        break;
      default:
        ippAddString(target, group, tag, name, nullptr, ippGetString(values, at, nullptr));
    }
  }

  void judge(const Trial& trial, const std::string& value) {
    ++values_;
    const JobSettings job = translation_.settingsOf(trial.request());
    const std::string what = trial.name() + "=" + value;
    if (!job.unsupported.empty()) fault(what + ": is not accepted");
    for (const Setting& setting : job.settings) {
      reached_.insert({setting.name, setting.value});
      const auto applied = driver_feature::host::applySetting(model_, setting);
      if (!applied) {
        fault(what + ": " + setting.name + "=" + setting.value + ": " + applied.error().text);
      }
    }
    restore();
  }

  void restore() {
    for (int round = 0; round < 3; ++round) {
      bool isSame = true;
      for (const auto& [name, value] : before_) {
        const FeatureView& view = model_.features.at(name);
        if (driver_feature::host::settingText(view) == value) continue;
        isSame = false;
        view.setValue(value);
      }
      if (isSame) return;
    }
  }

  // Every choice of every feature is what some advertised value asks for.
  void checkChoices() {
    for (const FeatureCapability& feature : all().features) {
      if (feature.isHardware || !feature.isList()) continue;
      for (const ChoiceCapability& choice : feature.choices) {
        if (choice.name == "not set" || isInSecondList(feature, choice)) continue;
        if (!reached_.contains({feature.name, choice.name})) {
          fault(feature.name + "=" + choice.name + ": no advertised value asks for it");
        }
      }
    }
  }

  // A PPD has the page sizes twice, and a job chooses one of both.
  bool isInSecondList(const FeatureCapability& feature, const ChoiceCapability& choice) const {
    if (feature.name == "PageRegion") return reached_.contains({"PageSize", choice.name});
    if (feature.name == "PageSize") {
      // One choice means a size of one's own, whatever numbers come with it.
      return reached_.contains({"PageRegion", choice.name});
    }
    return false;
  }

  const driver_feature::host::Model& model_;
  const Translation& translation_;
  Ipp printer_;
  std::map<std::string, std::string> before_;
  std::set<std::pair<std::string, std::string>> reached_;
  long features_ = 0;
  long values_ = 0;
  std::string faults_;
};

}  // namespace

std::vector<std::string> examineAdvertised(const host::Model& model,
                                           const ipp::Translation& translation) {
  return Examination(model, translation).run();
}

}  // namespace driver_feature::testing
