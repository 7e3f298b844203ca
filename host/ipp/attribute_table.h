// Which attributes of a job carry which features, and their values.
#ifndef HOST_IPP_ATTRIBUTE_TABLE_H_
#define HOST_IPP_ATTRIBUTE_TABLE_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/ipp/capabilities.h"

namespace driver_feature::ipp {

enum class Syntax : unsigned char {
  kKeyword,
  kEnum,
  kInteger,
  kBoolean,
  kResolution,
  kName,  // Texts, and decimal numbers, which IPP does not have.
};

// A value as text, such as "4" for an enum and "600x600dpi" for a resolution, and
// the choice that it means; without a choice it changes nothing.
struct WordValue {
  std::string word;
  std::string choice;
};

// An attribute that carries one feature, or none if IPP asks for it anyway.
struct JobAttribute {
  std::string name;
  Syntax syntax = Syntax::kKeyword;
  bool isMediaMember = false;  // A member of media-col.
  const FeatureCapability* feature = nullptr;
  std::vector<WordValue> values;  // Of lists.
  std::string usual;              // The default as a word; may be empty.

  const WordValue* valueNamed(const std::string& word) const;
  const WordValue* valueOfChoice(const std::string& choice) const;
};

struct MediaEntry {
  std::string keyword;
  const ChoiceCapability* choice = nullptr;  // Has a size.
  ChoiceCapability size;                     // The same, or a standard size without a choice.
  bool isSecond = false;                     // Another entry has the same size.
};

// Sizes between limits, in hundredths of a millimetre.
struct CustomSizes {
  // Null for a roll, whose widths are those of the entries.
  const FeatureCapability* width = nullptr;
  const FeatureCapability* height = nullptr;
  std::string choice;  // Of the size feature; empty when none is needed.
  double unit = 100;   // Hundredths of a millimetre in one of the features.
  int leastWidth = 0;
  int mostWidth = 0;
  int leastHeight = 0;
  int mostHeight = 0;
};

struct FinishingEntry {
  int number = 0;  // Of the IPP enum.
  const FeatureCapability* feature = nullptr;
  std::string choice;
};

struct PresetEntry {
  std::string keyword;  // Differs from others in more than case and hyphens.
  const PresetCapability* preset = nullptr;
};

struct AttributeTable {
  std::vector<JobAttribute> attributes;
  std::vector<JobAttribute> hardware;  // Of the printer, and not of jobs.
  std::vector<MediaEntry> media;
  std::size_t usualMedia = 0;
  std::optional<CustomSizes> custom;
  const FeatureCapability* size = nullptr;    // The feature of the page sizes.
  const FeatureCapability* region = nullptr;  // The same sizes, as a second feature of a PPD.
  // None is 3 and not among them.
  std::vector<FinishingEntry> finishings;
  std::map<std::string, std::string> noFinishing;  // Features to the choices for none.
  const FeatureCapability* copies = nullptr;
  const FeatureCapability* password = nullptr;
  std::vector<PresetEntry> presets;

  const JobAttribute* find(const std::string& name) const;
};

// The capabilities must outlive the table.
AttributeTable attributeTableOf(const Capabilities& all);

// A choice that imported descriptions have for an option without a mark.
inline constexpr const char* kNotSet = "not set";

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_ATTRIBUTE_TABLE_H_
