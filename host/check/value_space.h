// The values of a feature that remain under conditions.
#ifndef HOST_CHECK_VALUE_SPACE_H_
#define HOST_CHECK_VALUE_SPACE_H_

#include <limits>
#include <set>
#include <string>

#include "host/check/feature_table.h"
#include "host/description/rules.h"

namespace driver_feature::check {

// Numbers between two ends, each of which may belong to them.
struct Span {
  double low = -std::numeric_limits<double>::infinity();
  double high = std::numeric_limits<double>::infinity();
  bool withoutLow = false;
  bool withoutHigh = false;

  bool isEmpty() const { return low > high || (low == high && (withoutLow || withoutHigh)); }
  bool operator==(const Span&) const = default;
};

// The limits of a feature with numbers.
Span limitsOf(const host::Element& feature);

class ValueSpace {
 public:
  // All values that the feature can have.
  explicit ValueSpace(const FeatureRow& feature);

  // Keeps only the values for which the condition, which must fit the feature, is
  // true.
  void narrow(const host::Condition& condition);

  bool isEmpty() const { return isNumber_ ? span_.isEmpty() : options_.empty(); }
  bool isWhole() const;
  const std::set<std::string>& options() const { return options_; }

 private:
  void narrowSpan(const host::Condition& condition);

  const FeatureRow& feature_;
  bool isNumber_;
  bool isInteger_;
  Span limits_;
  Span span_;
  std::set<std::string> options_;
};

}  // namespace driver_feature::check

#endif  // HOST_CHECK_VALUE_SPACE_H_
