// From the attributes of a request to settings.

#include <algorithm>
#include <array>

#include "host/ipp/finishings.h"
#include "host/ipp/ipp_values.h"
#include "host/ipp/job_reader.h"
#include "host/ipp/media_reader.h"
#include "host/ipp/media_table.h"
#include "host/ipp/page_options.h"
#include "host/ipp/setting_list.h"
#include "host/ipp/word_meaning.h"
#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

// What is about the operation or the document and not about features.
bool isForOperation(const std::string& name) {
  constexpr std::array<std::string_view, 4> kNames = {"job-name", "job-priority", "overrides",
                                                      "output-device"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

class Reader {
 public:
  Reader(const Capabilities& all, const AttributeTable& table, ipp_t* request)
      : table_(table), request_(request), list_(all) {}

  JobSettings run(const std::string& preset) {
    const MediaEntry& usual = table_.media[table_.usualMedia];
    job_.sheet = {usual.size.width, usual.size.height};
    // The preset's own address has its values as defaults, which any other value replaces.
    if (const PresetEntry* entry = preset.empty() ? nullptr : presetNamed(preset)) {
      list_.set(entry->preset->settings);
      takeSheet(entry->preset->settings);
    }
    forEachAttribute([this](ipp_attribute_t* each) { findPresets(each); });
    forEachAttribute([this](ipp_attribute_t* each) { read(each); });
    job_.settings = list_.take();
    // What a preset sets has stayed, whatever size the request says.
    if (list_.hasKeptFirm()) takeSheet(job_.settings);
    return std::move(job_);
  }

 private:
  template <class Visit>
  void forEachAttribute(const Visit& visit) {
    for (ipp_attribute_t* each = ippFirstAttribute(request_); each != nullptr;
         each = ippNextAttribute(request_)) {
      if (ippGetName(each) != nullptr) visit(each);
    }
  }

  // Print queues that are made of the printer write "QuickDraft" for "quick-draft".
  static bool isTemplateNamed(const std::string& keyword, const std::string& name) {
    return bareName(keyword) == bareName(name);
  }

  const PresetEntry* presetNamed(const std::string& name) const {
    for (const PresetEntry& entry : table_.presets) {
      if (entry.preset->name == name || isTemplateNamed(entry.keyword, name)) return &entry;
    }
    return nullptr;
  }

  void applyPreset(const std::string& name) {
    const PresetEntry* entry = name.empty() ? nullptr : presetNamed(name);
    if (entry == nullptr) return;
    list_.setFirmly(entry->preset->settings);
    takeSheet(entry->preset->settings);
  }

  void takeSheet(const std::vector<host::Setting>& settings) {
    const MediaEntry* media = entryOfSettings(table_, settings);
    if (media != nullptr) job_.sheet = {media->size.width, media->size.height};
  }

  static std::vector<std::string> templatesIn(ipp_attribute_t* attribute) {
    std::vector<std::string> names;
    if (ippGetValueTag(attribute) != IPP_TAG_BEGIN_COLLECTION) return names;
    for (int at = 0; at < ippGetCount(attribute); ++at) {
      ipp_t* collection = ippGetCollection(attribute, at);
      ipp_attribute_t* name = ippFindAttribute(collection, "finishing-template", IPP_TAG_ZERO);
      for (const std::string& word : wordsIn(name)) names.push_back(word);
    }
    return names;
  }

  // Presets come before all that the request says itself.
  void findPresets(ipp_attribute_t* attribute) {
    if (!isNamed(attribute, "finishings-col")) return;
    for (const std::string& name : templatesIn(attribute)) applyPreset(name);
  }

  static bool isNamed(ipp_attribute_t* attribute, std::string_view name) {
    return name == ippGetName(attribute);
  }

  void read(ipp_attribute_t* attribute) {
    const ipp_tag_t group = ippGetGroupTag(attribute);
    const std::string name = ippGetName(attribute);
    if (group == IPP_TAG_OPERATION) return readOperation(name, attribute);
    if (group != IPP_TAG_JOB) return;
    if (name == "ipp-attribute-fidelity") return readOperation(name, attribute);
    if (isForOperation(name)) return readOverrides(name, attribute);
    readJob(name, attribute);
  }

  void readOperation(const std::string& name, ipp_attribute_t* attribute) {
    if (name == "ipp-attribute-fidelity" && ippGetValueTag(attribute) == IPP_TAG_BOOLEAN) {
      job_.isFaithful = ippGetBoolean(attribute, 0) != 0;
    } else if (name == "job-password" || name == "job-password-encryption") {
      readPassword(name, attribute);
    } else if (name == "job-hold-until") {
      // Some clients put it here; a job that is to wait must not be printed.
      readHold(attribute);
    }
  }

  void readOverrides(const std::string& name, ipp_attribute_t* attribute) {
    if (name == "overrides") refuse(attribute);
  }

  void readPassword(const std::string& name, ipp_attribute_t* attribute) {
    if (table_.password == nullptr) return refuse(attribute, false);
    const std::vector<std::string> words = wordsIn(attribute);
    const std::string word = words.size() == 1 ? words.front() : "";
    if (name == "job-password-encryption") {
      if (word != "none") refuse(attribute);
      return;
    }
    const auto value = valueFor(*table_.password, word);
    if (!value || word.empty()) return refuse(attribute);
    list_.set(table_.password->name, *value);
  }

  void readJob(const std::string& name, ipp_attribute_t* attribute) {
    if (name == "media") return readMedia(attribute, mediaIn(table_, attribute));
    if (name == "media-col") return readMedia(attribute, mediaColIn(table_, attribute));
    if (name == "copies") return readCopies(attribute);
    if (name == "finishings") return readFinishings(attribute);
    if (name == "finishings-col") return readFinishingsCol(attribute);
    if (name == "job-hold-until" && readHold(attribute)) return;
    if (name == "job-password" || name == "job-password-encryption") {
      return readPassword(name, attribute);
    }
    if (const JobAttribute* known = table_.find(name)) return readFeature(*known, attribute);
    if (!isPageOption(table_, name)) return refuse(attribute, false);
    const auto option = pageOption(name, attribute);
    if (!option) return refuse(attribute);
    if (!option->name.empty()) job_.pageOptions.push_back(*option);
  }

  void readFeature(const JobAttribute& known, ipp_attribute_t* attribute) {
    if (!setFeature(known, attribute)) refuse(attribute);
  }

  bool setFeature(const JobAttribute& known, ipp_attribute_t* attribute) {
    const std::vector<std::string> words = wordsIn(attribute);
    const auto value = words.size() == 1 ? valueOf(known, words.front()) : std::nullopt;
    if (!value) return false;
    // An empty choice changes nothing; an empty text is a value.
    const bool isText =
        known.feature != nullptr && known.feature->kind == host::FeatureKind::kTextEntry;
    if (known.feature != nullptr && (isText || !value->empty())) {
      list_.set(known.feature->name, *value);
    }
    return true;
  }

  void readMedia(ipp_attribute_t* attribute, const std::optional<AskedMedia>& asked) {
    if (!asked) return refuse(attribute);
    list_.set(asked->settings);
    if (asked->sheet) job_.sheet = *asked->sheet;
    if (asked->unsupported.empty()) return;
    job_.unsupported.push_back({ippGetName(attribute), attribute, asked->unsupported});
  }

  void readCopies(ipp_attribute_t* attribute) {
    const std::vector<std::string> words = wordsIn(attribute);
    const auto copies = words.size() == 1 ? integerIn(words.front()) : std::nullopt;
    const int most = 999;
    const bool isRight =
        copies && *copies >= 1 &&
        (table_.copies != nullptr ? valueFor(*table_.copies, words.front()).has_value()
                                  : *copies <= most);
    if (!isRight) return refuse(attribute);
    job_.copies = *copies;
    if (table_.copies != nullptr) list_.set(table_.copies->name, std::to_string(*copies));
  }

  // The list says all finishings of the job: what it does not name is not wanted.
  void readFinishings(ipp_attribute_t* attribute) {
    std::vector<const FinishingEntry*> wanted;
    bool isRight = true;
    for (const std::string& word : wordsIn(attribute)) {
      const FinishingEntry* entry = finishingNumbered(integerIn(word).value_or(0));
      if (entry != nullptr) wanted.push_back(entry);
      if (entry == nullptr && word != std::to_string(kNoFinishing)) isRight = false;
    }
    for (const auto& [feature, none] : table_.noFinishing) list_.set(feature, none);
    for (const FinishingEntry* entry : wanted) list_.set(entry->feature->name, entry->choice);
    if (!isRight) refuse(attribute);
  }

  const FinishingEntry* finishingNumbered(int number) const {
    for (const FinishingEntry& entry : table_.finishings) {
      if (entry.number == number) return &entry;
    }
    return nullptr;
  }

  const FinishingEntry* finishingNamed(const std::string& name) const {
    for (const FinishingEntry& entry : table_.finishings) {
      if (isTemplateNamed(finishingKeyword(entry.number), name)) return &entry;
    }
    return nullptr;
  }

  void readFinishingsCol(ipp_attribute_t* attribute) {
    const std::vector<std::string> names = templatesIn(attribute);
    bool isRight = !names.empty();
    for (const std::string& name : names) {
      if (presetNamed(name) != nullptr) continue;
      const FinishingEntry* entry = finishingNamed(name);
      if (entry != nullptr) {
        list_.set(entry->feature->name, entry->choice);
      } else if (isTemplateNamed("none", name)) {
        for (const auto& [feature, none] : table_.noFinishing) list_.set(feature, none);
      } else {
        isRight = false;
      }
    }
    if (!isRight) refuse(attribute);
  }

  // Words of a feature are the feature's; the others are for the printer.
  bool readHold(ipp_attribute_t* attribute) {
    const std::vector<std::string> words = wordsIn(attribute);
    if (words.size() != 1) return false;
    const JobAttribute* known = table_.find("job-hold-until");
    const bool isOfFeature = known != nullptr && known->valueNamed(words.front()) != nullptr;
    if (isOfFeature) return false;
    const bool isOfPrinter = words.front() == "no-hold" || words.front() == "indefinite";
    if (!isOfPrinter) {
      refuse(attribute);
    } else if (words.front() != "no-hold") {
      job_.holdUntil = words.front();
    }
    return true;
  }

  void refuse(ipp_attribute_t* attribute, bool isKnown = true) {
    job_.unsupported.push_back({ippGetName(attribute), isKnown ? attribute : nullptr});
  }

  const AttributeTable& table_;
  ipp_t* request_;
  SettingList list_;
  JobSettings job_;
};

}  // namespace

JobSettings readJob(const Capabilities& all, const AttributeTable& table, ipp_t* request,
                    const std::string& preset) {
  return Reader(all, table, request).run(preset);
}

}  // namespace driver_feature::ipp
