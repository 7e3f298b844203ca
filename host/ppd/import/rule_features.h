// The features in the rules of an import, and their choices.
#ifndef HOST_PPD_IMPORT_RULE_FEATURES_H_
#define HOST_PPD_IMPORT_RULE_FEATURES_H_

#include <cups/ppd.h>

#include <cstddef>
#include <compare>
#include <deque>
#include <limits>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/description/rules.h"

namespace driver_feature::ppd {

// A condition on one feature: a choice of it, by its place; or any but those
// that say "off".
struct Term {
  static constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();

  std::size_t feature = 0;
  std::size_t choice = kAny;

  // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy 14 finds a 0 inside the comparison.
  auto operator<=>(const Term&) const = default;
};

// Terms of which at least one must hold. Empty: the condition never holds.
using Alternatives = std::vector<Term>;

class RuleFeatures {
 public:
  explicit RuleFeatures(ppd_file_t& ppd) : ppd_(ppd) {}

  // The condition that the option has the choice; an empty choice means any.
  // Nothing when the file has no such option or choice.
  std::optional<Alternatives> condition(const std::string& option, const std::string& choice);

  // The terms as one, if they are about the same feature; nothing when they
  // never hold together.
  std::optional<Term> both(const Term& one, const Term& other) const;

  const std::string& nameOf(std::size_t feature) const { return features_[feature].name; }

  // The condition that a feature has one of several choices, or any.
  host::Condition anyOf(std::size_t feature) const;
  host::Condition oneOf(std::size_t feature, const std::vector<std::size_t>& choices) const;

 private:
  struct RuleFeature {
    std::string name;
    std::vector<std::string> choices;
    std::vector<bool> isOff;  // Of each choice.
  };

  struct RuleOption {
    ppd_option_t* option = nullptr;
    std::unordered_map<std::string, std::size_t> places;  // Of choices, in small letters.
    std::size_t first = 0;  // Its feature, or that of its first choice.
  };

  RuleOption* find(const std::string& keyword);
  void addFeatures(RuleOption& added);
  Alternatives termsOf(const RuleOption& option, std::size_t place) const;
  Alternatives anyTerms(const RuleOption& option) const;
  Alternatives sizeTerms(const std::string& name);

  ppd_file_t& ppd_;
  std::deque<RuleFeature> features_;
  std::unordered_map<const ppd_option_t*, RuleOption> options_;
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_RULE_FEATURES_H_
