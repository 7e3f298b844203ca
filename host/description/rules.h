// What a description forbids: the rules beside its features.
#ifndef HOST_DESCRIPTION_RULES_H_
#define HOST_DESCRIPTION_RULES_H_

#include <string>
#include <vector>

#include "host/base/position.h"

namespace driver_feature::host {

// Where a part of a description was read: in the description's own file or in
// a file beside it. Columns are known while the document has its text.
struct SourcePlace {
  std::string file;
  Position position;
};

// One condition of a rule on the current value of a feature.
struct Condition {
  enum class Kind : unsigned char {
    kIs,     // The feature's choice is one of `choices`.
    kIsNot,  // The feature's choice is none of `choices`.
    kAbove,  // The feature's number is greater than `number`.
    kBelow,  // The feature's number is less than `number`.
  };

  std::string feature;
  Kind kind = Kind::kIs;
  std::vector<std::string> choices;
  double number = 0;
  SourcePlace place = {};                      // Of the feature's name.
  std::vector<Position> choicePositions = {};  // Of the choices, in the same file.
};

// Whether the condition is true of a feature with this value, in the form of a
// setting. One on numbers is false for a text that is not a number.
bool isTrueOf(const Condition& condition, const std::string& value);

// Conditions that must never all hold at the same time.
struct Rule {
  std::string id;    // Names it; `check` reports one that occurs twice.
  std::string text;  // For people, in the description's own language; may be empty.
  std::vector<Condition> conditions;
  SourcePlace place = {};
};

// A feature whose value says what the printer has: a person sets it once, and
// no rule changes it.
struct HardwareFeature {
  std::string name;
  SourcePlace place = {};
};

struct Rules {
  std::vector<Rule> rules;  // In the order of the description.
  std::vector<HardwareFeature> hardware;
};

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_RULES_H_
