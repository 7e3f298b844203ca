// The numbers of a feature, cut where its rules begin and end: within a cell
// no rule can distinguish two numbers.
#ifndef HOST_RULES_NUMBER_CELLS_H_
#define HOST_RULES_NUMBER_CELLS_H_

#include <optional>
#include <vector>

#include "host/rules/domain.h"

namespace driver_feature::rules {

// The threshold as the feature's numbers see it: a whole one, or a float. Above
// 10.5 is above 10 for whole numbers, and below 10.5 is below 11.
double thresholdOf(const host::Condition& condition, Domain::Kind kind);

// Every threshold is a cell of its own; between two of them, before the first
// and after the last are the others.
class NumberCells {
 public:
  NumberCells() = default;
  // The thresholds, in any order, repeated or not.
  NumberCells(const Domain& domain, std::vector<double> thresholds);

  int count() const { return 2 * static_cast<int>(points_.size()) + 1; }
  int cellOf(double number) const;

  // The number of a cell that is nearest to `from` and within the feature's
  // limits; nothing when the cell has none.
  std::optional<double> nearest(int cell, double from) const;

 private:
  std::vector<double> points_;
  Domain::Kind kind_ = Domain::Kind::kWhole;
  double lowest_ = 0;
  double highest_ = 0;
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_NUMBER_CELLS_H_
