// What both sides write for a job, and a choice that is made on both.
#ifndef EQUIVALENCE_PPD_TEXT_H_
#define EQUIVALENCE_PPD_TEXT_H_

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace driver_feature::equivalence {

// The sections of PostScript in the order in which a description holds them.
constexpr std::array<const char*, 5> kSectionNames = {"ExitServer", "Prolog", "DocumentSetup",
                                                      "AnySetup", "PageSetup"};

// The texts of a job, byte for byte.
struct JobTexts {
  std::array<std::string, kSectionNames.size()> sections;
  std::string jcl;     // Before the PostScript: the start, the options, the change of language.
  std::string jclEnd;  // After the job.
};

// A parameter of a custom choice: a number as text, or the text itself.
struct CustomValue {
  std::string parameter;
  std::string value;
};

// One choice of a PPD's option.
struct Mark {
  std::string option;
  std::string choice;
  std::vector<CustomValue> values;  // Of the choice "Custom".
};

using Marks = std::vector<Mark>;

// The same in our features: a feature and the text of its value.
struct FeatureValue {
  std::string feature;
  std::string value;
};

using FeatureValues = std::vector<FeatureValue>;

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_PPD_TEXT_H_
