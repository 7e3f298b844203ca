// What a printer advertises of a description.

#include <algorithm>
#include <climits>

#include "host/base/text.h"
#include "host/description/description_index.h"
#include "host/ipp/finishings.h"
#include "host/ipp/ipp_values.h"
#include "host/ipp/media_attributes.h"
#include "host/ipp/page_options.h"
#include "host/ipp/setting_attributes.h"
#include "host/ipp/translation.h"

namespace driver_feature::ipp {

namespace {

constexpr int kMostCopies = 999;
constexpr int kLongestName = 255;

std::vector<std::string> wordsOf(const JobAttribute& attribute) {
  std::vector<std::string> words;
  for (const WordValue& value : attribute.values) words.push_back(value.word);
  return words;
}

// IPP has no decimal numbers: they are names, of which the smallest and the largest
// are given.
std::vector<std::string> decimalLimits(const FeatureCapability& feature) {
  std::vector<std::string> limits;
  for (const auto& limit : {feature.floatMin, feature.floatMax}) {
    if (limit) limits.push_back(host::numberText(*limit));
  }
  if (limits.empty()) limits.push_back(feature.value);
  return limits;
}

void addSupported(ipp_t* printer, const JobAttribute& attribute) {
  const std::string name = attribute.name + "-supported";
  if (attribute.feature == nullptr || attribute.feature->isList()) {
    return addWords(printer, kPrinter, name, attribute.syntax, wordsOf(attribute));
  }
  const FeatureCapability& feature = *attribute.feature;
  if (feature.kind == host::FeatureKind::kIntEntry) {
    const IntegerRange range = rangeOf(feature);
    ippAddRange(printer, kPrinter, name.c_str(), range.least, range.most);
  } else if (feature.kind == host::FeatureKind::kFloatEntry) {
    addWords(printer, kPrinter, name, Syntax::kName, decimalLimits(feature));
  } else {
    // The length of the longest text.
    const int length = std::min(feature.maxTextLength.value_or(kLongestName), kLongestName);
    ippAddRange(printer, kPrinter, name.c_str(), 0, length > 0 ? length : kLongestName);
  }
}

void addDefault(ipp_t* printer, const JobAttribute& attribute) {
  const std::string name = attribute.name + "-default";
  const bool isSecret = attribute.feature != nullptr && attribute.feature->isEncrypted;
  if (!attribute.usual.empty() && !isSecret) {
    return addWords(printer, kPrinter, name, attribute.syntax, {attribute.usual});
  }
  ippAddOutOfBand(printer, kPrinter, IPP_TAG_NOVALUE, name.c_str());
}

// Printers hold jobs themselves, whatever a feature does.
void addHold(ipp_t* printer, const JobAttribute* attribute) {
  std::vector<std::string> words = {"no-hold", "indefinite"};
  std::string usual = "no-hold";
  if (attribute != nullptr) {
    for (const std::string& word : wordsOf(*attribute)) {
      if (word != "no-hold" && word != "indefinite") words.push_back(word);
    }
    if (!attribute->usual.empty()) usual = attribute->usual;
  }
  addKeywords(printer, kPrinter, "job-hold-until-supported", words);
  addKeywords(printer, kPrinter, "job-hold-until-default", {usual});
}

void addCopies(ipp_t* printer, const FeatureCapability* copies) {
  const IntegerRange range = copies != nullptr ? rangeOf(*copies) : IntegerRange{1, kMostCopies};
  const int most = range.most == INT_MAX ? kMostCopies : range.most;
  ippAddRange(printer, kPrinter, "copies-supported", std::max(range.least, 1), std::max(most, 1));
  ippAddInteger(printer, kPrinter, IPP_TAG_INTEGER, "copies-default", 1);
}

ipp_t* templateCollection(const std::string& keyword) {
  ipp_t* collection = ippNew();
  addKeywords(collection, IPP_TAG_ZERO, "finishing-template", {keyword});
  return collection;
}

void addFinishingAttributes(ipp_t* printer, const AttributeTable& table) {
  std::vector<int> numbers = {kNoFinishing};
  std::vector<std::string> templates = {"none"};
  std::vector<int> usual;
  for (const FinishingEntry& entry : table.finishings) {
    numbers.push_back(entry.number);
    templates.push_back(finishingKeyword(entry.number));
    if (entry.choice == entry.feature->value) usual.push_back(entry.number);
  }
  for (const PresetEntry& preset : table.presets) templates.push_back(preset.keyword);
  if (usual.empty()) usual.push_back(kNoFinishing);
  std::vector<ipp_t*> database;
  database.reserve(templates.size());
  for (const std::string& keyword : templates) database.push_back(templateCollection(keyword));
  std::vector<ipp_t*> initial;
  initial.reserve(usual.size());
  for (const int number : usual) initial.push_back(templateCollection(finishingKeyword(number)));
  addIntegers(printer, kPrinter, "finishings-supported", IPP_TAG_ENUM, numbers);
  addIntegers(printer, kPrinter, "finishings-ready", IPP_TAG_ENUM, numbers);
  addIntegers(printer, kPrinter, "finishings-default", IPP_TAG_ENUM, usual);
  addKeywords(printer, kPrinter, "finishing-template-supported", templates);
  addKeywords(printer, kPrinter, "finishings-col-supported", {"finishing-template"});
  // The same: collections belong to one attribute only.
  std::vector<ipp_t*> ready;
  ready.reserve(templates.size());
  for (const std::string& keyword : templates) ready.push_back(templateCollection(keyword));
  addCollections(printer, kPrinter, "finishings-col-database", std::move(database));
  addCollections(printer, kPrinter, "finishings-col-ready", std::move(ready));
  addCollections(printer, kPrinter, "finishings-col-default", std::move(initial));
}

void addPassword(ipp_t* printer, const FeatureCapability& feature,
                 std::vector<std::string>& names) {
  const int length = std::clamp(feature.maxTextLength.value_or(kLongestName), 1, kLongestName);
  ippAddInteger(printer, kPrinter, IPP_TAG_INTEGER, "job-password-supported", length);
  ippAddRange(printer, kPrinter, "job-password-length-supported", 1, length);
  addKeywords(printer, kPrinter, "job-password-encryption-supported", {"none"});
  names.insert(names.end(), {"job-password", "job-password-encryption"});
}

// A preset is called by its keyword here, too, as its template is.
void addPresets(ipp_t* printer, const AttributeTable& table) {
  std::vector<ipp_t*> presets;
  for (const PresetEntry& entry : table.presets) {
    ipp_t* preset = ippNew();
    addKeywords(preset, IPP_TAG_ZERO, "preset-name", {entry.keyword});
    addSettingAttributes(preset, IPP_TAG_ZERO, table, entry.preset->settings);
    presets.push_back(preset);
  }
  addCollections(printer, kPrinter, "job-presets-supported", std::move(presets));
}

void addHardware(ipp_t* printer, const AttributeTable& table) {
  for (const JobAttribute& attribute : table.hardware) {
    if (attribute.usual.empty()) continue;
    addWords(printer, kPrinter, attribute.name, attribute.syntax, {attribute.usual});
  }
}

}  // namespace

void addAllAttributes(ipp_t* printer, const AttributeTable& table,
                      std::vector<std::string>& names) {
  addCopies(printer, table.copies);
  addMediaAttributes(printer, table, names);
  for (const JobAttribute& attribute : table.attributes) {
    if (attribute.isMediaMember || attribute.name == "job-hold-until") continue;
    addSupported(printer, attribute);
    addDefault(printer, attribute);
    names.push_back(attribute.name);
  }
  addHold(printer, table.find("job-hold-until"));
  addFinishingAttributes(printer, table);
  addPageOptions(printer, table, names);
  if (table.password != nullptr) addPassword(printer, *table.password, names);
  names.insert(names.end(), {"copies", "finishings", "finishings-col", "ipp-attribute-fidelity",
                             "job-hold-until", "overrides"});
  addPresets(printer, table);
  addHardware(printer, table);
  // The pages of a job are all printed alike: these are only what must be named. The
  // tests of IPP Everywhere and of IPP/2.2 ask for one of two spellings each.
  addKeywords(printer, kPrinter, "overrides-supported",
              {"document-number", "document-numbers", "pages"});
  ippAddBoolean(printer, kPrinter, "preferred-attributes-supported", 1);
  std::sort(names.begin(), names.end());
  addKeywords(printer, kPrinter, "job-creation-attributes-supported", names);
}

}  // namespace driver_feature::ipp
