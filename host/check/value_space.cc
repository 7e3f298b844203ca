#include "host/check/value_space.h"

#include <cmath>
#include <iterator>
#include <optional>

#include "host/check/rules.h"

namespace driver_feature::check {

Span limitsOf(const host::Element& feature) {
  Span span;
  if (feature.isKind(host::FeatureKind::kIntEntry)) {
    if (const auto low = intOf(feature, "IntMinValue")) span.low = *low;
    if (const auto high = intOf(feature, "IntMaxValue")) span.high = *high;
  } else {
    if (const auto low = doubleOf(feature, "FloatMinValue")) span.low = *low;
    if (const auto high = doubleOf(feature, "FloatMaxValue")) span.high = *high;
  }
  return span;
}

ValueSpace::ValueSpace(const FeatureRow& feature)
    : feature_(feature),
      isNumber_(feature.element->isKind(host::FeatureKind::kIntEntry) ||
                feature.element->isKind(host::FeatureKind::kFloatEntry)),
      isInteger_(feature.element->isKind(host::FeatureKind::kIntEntry)),
      options_(feature.optionSet) {
  if (isNumber_) limits_ = limitsOf(*feature.element);
  span_ = limits_;
}

bool ValueSpace::isWhole() const {
  return isNumber_ ? span_ == limits_ : options_.size() == feature_.optionSet.size();
}

void ValueSpace::narrow(const host::Condition& condition) {
  if (isNumber_) return narrowSpan(condition);
  const std::set<std::string> named(condition.choices.begin(), condition.choices.end());
  const bool wanted = condition.kind == host::Condition::Kind::kIs;
  std::erase_if(options_,
                [&](const std::string& option) { return named.contains(option) != wanted; });
}

void ValueSpace::narrowSpan(const host::Condition& condition) {
  const double number = condition.number;
  if (condition.kind == host::Condition::Kind::kAbove) {
    // The next whole number belongs to the span.
    const double low = isInteger_ ? std::floor(number) + 1 : number;
    if (low < span_.low || (low == span_.low && isInteger_)) return;
    span_.low = low;
    span_.withoutLow = !isInteger_;
  } else {
    const double high = isInteger_ ? std::ceil(number) - 1 : number;
    if (high > span_.high || (high == span_.high && isInteger_)) return;
    span_.high = high;
    span_.withoutHigh = !isInteger_;
  }
}

}  // namespace driver_feature::check
