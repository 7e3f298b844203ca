#include "diagnostics/dump.h"

#include <locale>
#include <span>
#include <sstream>
#include <string>
#include <utility>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_static_group.h"
#include "model/vocabulary.h"

namespace driver_feature {

namespace {

// A text property and the label that goes before it.
struct LabelRow {
  const char* property;
  const char* label;
};

constexpr LabelRow kLabels[] = {
    {"PJLCommand", "\nPJL Command: "},
    {"PSCommand", "\nPS Command: "},
    {"TESKJTAttributeName", "\nTESK JT Command: "},
    {"TESKOAAttributeName", "\nTESK OA Command: "},
    {"AddPJLCallbackRoutine", "\nPJL Callback: "},
    {"AddPSCallbackRoutine", "\nPS Callback: "},
    {"AddVORNCallbackRoutine", "\nVORN Callback: "},
};
constexpr std::span<const LabelRow> kCommandLabels = std::span(kLabels).first(4);

constexpr LabelRow kOptionLabels[] = {
    {"PJLCommand", "\n\t\t\"PJL Command\": \""},
    {"PSCommand", "\n\t\t\"PS Command\": \""},
    {"TESKCommand", "\n\t\t\"TESK Command\": \""},
};

const char* sensitivityWord(bool sensitive) {
  return sensitive ? "enabled" : "disabled";
}

// What a property holds; nothing where it cannot be read.
std::string readText(CoreFeature& object, const char* property) {
  std::string text;
  object.getFeatureProperty(std::string(property), text);
  return text;
}

template <class Value>
Value read(CoreFeature& object, const char* property) {
  Value value{};
  object.getFeatureProperty(std::string(property), &value);
  return value;
}

std::string nameOfObject(CoreFeature& object) {
  return readText(object, "Name");
}

class Dump {
 public:
  explicit Dump(std::ostream& out) : out_(out) {}

  void writeFeature(DriverFeature& feature);
  void writeGroup(DriverFeatureStaticGroup& group);
  void writeGroup(DriverFeatureDynamicGroup& group);
  void endSection() { out_ << '\n'; }

 private:
  void writeValue(DriverFeature& feature);
  void writeOption(CoreOption* option);
  void writeLabelled(CoreFeature& object, std::span<const LabelRow> rows);

  std::ostream& out_;
  // Of the last feature written.
  std::string sensitivity_;
  std::string visibility_;
};

void Dump::writeLabelled(CoreFeature& object, std::span<const LabelRow> rows) {
  for (const LabelRow& row : rows) {
    const std::string text = readText(object, row.property);
    if (!text.empty()) out_ << row.label << text;
  }
}

void Dump::writeFeature(DriverFeature& feature) {
  const int type = feature.getFeatureType();
  const auto typeIndex = static_cast<std::size_t>(type);
  sensitivity_ = sensitivityWord(read<bool>(feature, "Sensitivity"));
  visibility_ = read<bool>(feature, "Visibility") ? "visible" : "invisible";
  out_ << "\n\"" << nameOfObject(feature) << "\" ("
       << (typeIndex < kFeatureTypeNames.size() ? kFeatureTypeNames[typeIndex] : "") << '/'
       << sensitivity_ << '/' << visibility_ << ')';
  if (type == kUIOnly) return;
  writeValue(feature);
  out_ << " (" << (read<bool>(feature, "FeatureInGroup") ? "in a group" : "not in a group") << ')';
  writeLabelled(feature, kLabels);
  if (type != kMultiSelect) return;
  for (int i = 0; i < feature.getFeatureOptionCount(); ++i) {
    writeOption(feature.fetchOptionByIndex(i));
  }
}

void Dump::writeValue(DriverFeature& feature) {
  const int valueType = read<int>(feature, "FeatureValueType");
  out_ << kValueTypeNames[static_cast<std::size_t>(valueType)] << ':';
  if (valueType == kTextValue) out_ << readText(feature, "CurrentTextValue");
  if (valueType == kFloatValue) out_ << read<float>(feature, "CurrentFloatValue");
  if (valueType == kIntValue) out_ << read<int>(feature, "CurrentIntValue");
}

void Dump::writeOption(CoreOption* option) {
  if (option == nullptr) {
    out_ << "\n\nError: NULL option pointer\n\n";
    return;
  }
  std::string name;
  option->getOptionProperty(std::string("Name"), name);
  bool sensitive = false;
  option->getOptionProperty(std::string("Sensitivity"), &sensitive);
  out_ << "\n\t\"" << name << "\" (" << sensitivityWord(sensitive) << ')';
  for (const LabelRow& row : kOptionLabels) {
    std::string text;
    if (!option->getOptionProperty(std::string(row.property), text)) continue;
    out_ << row.label << text << '"';
  }
}

void Dump::writeGroup(DriverFeatureStaticGroup& group) {
  const bool standard = group.getFeatureType() == kStaticGroup;
  const int count = group.fetchNumberOfFeaturesInGroup();
  out_ << "\nStatic Feature Group:" << nameOfObject(group) << ':'
       << (standard ? "Static Group" : "Dynamic Group Template") << " Contains " << count
       << " Features";
  writeLabelled(group, kLabels);
  for (int i = 0; i < count; ++i) {
    CoreFeature* member = group.fetchFeatureInGroupByIndex(static_cast<unsigned>(i));
    if (member != nullptr) out_ << "\n\t" << nameOfObject(*member);
  }
}

void Dump::writeGroup(DriverFeatureDynamicGroup& group) {
  // Required: the words are the last feature's, whatever the group's own state.
  out_ << "Dynamic Feature Group:" << nameOfObject(group) << ':'
       << group.fetchNumberOfDynamicEntries() << '(' << sensitivity_ << ", " << visibility_
       << ")\n";
  writeLabelled(group, kCommandLabels);
}

}  // namespace

std::string dumpOf(CoreFeatureSet& features, const FeatureList& groups) {
  // Numbers look the same in every locale of the host.
  std::ostringstream text;
  text.imbue(std::locale::classic());
  // A stream would keep a lack of memory to itself, and print what there is.
  text.exceptions(std::ios::badbit);
  Dump dump(text);
  for (int i = 0; i < features.fetchNumberOfFeatures(); ++i) {
    if (DriverFeature* feature = features.fetchFeatureByIndex(i)) dump.writeFeature(*feature);
  }
  dump.endSection();
  for (int i = 0; i < groups.staticGroupCount(); ++i) {
    if (DriverFeatureStaticGroup* group = groups.staticGroupAt(i)) dump.writeGroup(*group);
  }
  dump.endSection();
  for (int i = 0; i < groups.dynamicGroupCount(); ++i) {
    if (DriverFeatureDynamicGroup* group = groups.dynamicGroupAt(i)) dump.writeGroup(*group);
  }
  dump.endSection();
  return std::move(text).str();
}

}  // namespace driver_feature
