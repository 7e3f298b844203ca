// A small printer and a book of its rules.
#ifndef SUPPORT_BOOK_H_
#define SUPPORT_BOOK_H_

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "host/rules/rulebook.h"
#include "support/rule_notation.h"

namespace driver_feature::rules {

inline void PrintTo(const Change& change, std::ostream* out) {
  *out << change.feature << ": " << change.from << " -> " << change.to;
}

inline Domains printer() {
  return {choicesOf("Media", {"Plain", "Film", "Card"}),
          choicesOf("Duplex", {"None", "Long", "Short"}),
          choicesOf("Staple", {"Off", "On"}),
          choicesOf("Finisher", {"Missing", "Installed"}),
          choicesOf("Unit", {"Missing", "Installed"}),
          numbersOf("Copies", 1, 99)};
}

// A book whose person has made these settings, one after the other.
class Book : public Rulebook {
 public:
  Book(const std::vector<std::string>& texts, const std::vector<Assignment>& settings = {},
       Domains domains = printer())
      : Rulebook(std::move(domains), rulesOf(texts, {"Finisher", "Unit"})) {
    for (const Assignment& setting : settings) {
      set(setting);
      noteSet(setting.feature);
    }
  }
};

inline std::vector<int> placesOf(const std::vector<BrokenRule>& rules) {
  std::vector<int> numbers;
  for (const BrokenRule& rule : rules) numbers.push_back(rule.rule);
  return numbers;
}

}  // namespace driver_feature::rules

#endif  // SUPPORT_BOOK_H_
