#include "host/rules/number_cells.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace driver_feature::rules {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Numbers beyond the floats become the greatest ones.
double asFloat(double number) {
  constexpr double kGreatest = std::numeric_limits<float>::max();
  return static_cast<double>(static_cast<float>(std::clamp(number, -kGreatest, kGreatest)));
}

double after(double number, Domain::Kind kind) {
  if (kind == Domain::Kind::kWhole) return number + 1;
  return static_cast<double>(
      std::nextafter(static_cast<float>(number), std::numeric_limits<float>::infinity()));
}

double before(double number, Domain::Kind kind) {
  return -after(-number, kind);
}

}  // namespace

double thresholdOf(const host::Condition& condition, Domain::Kind kind) {
  if (kind == Domain::Kind::kDecimal) return asFloat(condition.number);
  return condition.kind == host::Condition::Kind::kAbove ? std::floor(condition.number)
                                                         : std::ceil(condition.number);
}

NumberCells::NumberCells(const Domain& domain, std::vector<double> thresholds)
    : points_(std::move(thresholds)),
      kind_(domain.kind),
      lowest_(domain.lowest),
      highest_(domain.highest) {
  std::sort(points_.begin(), points_.end());
  points_.erase(std::unique(points_.begin(), points_.end()), points_.end());
}

int NumberCells::cellOf(double number) const {
  const auto found = std::lower_bound(points_.begin(), points_.end(), number);
  const int position = static_cast<int>(found - points_.begin());
  return found != points_.end() && *found == number ? 2 * position + 1 : 2 * position;
}

std::optional<double> NumberCells::nearest(int cell, double from) const {
  const int position = cell / 2;
  const auto point = [&](int at) { return points_[static_cast<std::size_t>(at)]; };
  double first = -kInfinity;
  double last = kInfinity;
  if (cell % 2 == 1) {
    first = last = point(position);
  } else {
    if (position > 0) first = after(point(position - 1), kind_);
    if (position < static_cast<int>(points_.size())) last = before(point(position), kind_);
  }
  first = std::max(first, lowest_);
  last = std::min(last, highest_);
  if (first > last) return std::nullopt;
  return std::clamp(from, first, last);
}

}  // namespace driver_feature::rules
