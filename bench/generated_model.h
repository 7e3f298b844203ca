// The models that are measured, as texts made from one source: a description
// for the library and a PPD file for the peer, libcups.
//
// They have N list features with five choices each. Each feature is written as
// 109 bytes, the same by both.
#ifndef BENCH_GENERATED_MODEL_H_
#define BENCH_GENERATED_MODEL_H_

#include <cstddef>
#include <string>
#include <vector>

namespace driver_feature::bench {

inline constexpr int kChoices = 5;

// "Feature00042": names whose order is that of their numbers.
std::string featureName(int number);

// Names of features, one after another, far apart: finding the same thing again
// is faster than the look-ups of a host.
class NamesInTurn {
 public:
  // The features `first`, `first` + `step` and so on below `features`.
  explicit NamesInTurn(int features, int first = 0, int step = 1);

  std::string& next() {
    position_ = (position_ + kStride) % names_.size();
    ++given_;
    return names_[position_];
  }

  // How often every name has had its turn.
  std::size_t rounds() const { return given_ / names_.size(); }

 private:
  static constexpr std::size_t kStride = 7919;  // A prime, so that all get their turn.

  std::vector<std::string> names_;
  std::size_t position_ = 0;
  std::size_t given_ = 0;
};

// "ChoiceA" to "ChoiceZ", and then "Choice26" and so on.
std::string choiceName(int number);

std::string ppdText(int features, int choices = kChoices);

// One list, "List", of this many choices, which have the names of features.
std::string listPPDText(int choices);

// The attributes in which a description keeps the commands of features and
// options.
struct Carrier {
  const char* kind;  // Of the model's file.
  const char* featureCommand;
  const char* optionCommand;
};
inline constexpr Carrier kPSCarrier = {"ps", "PSCommand", "PSCommand"};
inline constexpr Carrier kPJLCarrier = {"pjl", "PJLCommand", "PJLCommand"};
inline constexpr Carrier kTicketCarrier = {"ticket", "TESKJTAttributeName", "TESKCommand"};

// What a choice adds to the output.
std::string optionCommand(const std::string& feature, int choice, const Carrier& carrier);

// The features of the PPD file, their output in the carrier's attributes.
std::string descriptionText(int features, const Carrier& carrier, int choices = kChoices);

// A third each of integer, float and text features.
std::string typedDescriptionText(int features);

// A dynamic group "Records" whose records hold a text and an integer. Its sort
// routine is benchCompareRecords.
std::string recordDescriptionText();

// The same with five members: two texts, a number, a fraction and a list.
std::string fiveMembersDescriptionText();

}  // namespace driver_feature::bench

#endif  // BENCH_GENERATED_MODEL_H_
