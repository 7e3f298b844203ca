#include "host/rules/tables.h"

#include <algorithm>

#include "host/rules/table_builder.h"

namespace driver_feature::rules {

Tables::Tables(const host::Rules& rules, Domains domains) : domains_(std::move(domains)) {
  TableBuilder(*this).build(rules);
}

std::optional<int> Tables::find(const std::string& feature) const {
  const auto found = names_.find(feature);
  if (found == names_.end()) return std::nullopt;
  return found->second;
}

int Tables::valueOf(int feature, const std::string& choice) const {
  const Feature& entry = features_[at(feature)];
  const auto found = entry.values.find(choice);
  return found == entry.values.end() ? entry.valueCount - 1 : found->second;
}

std::span<const int> Tables::preferred(int feature) const {
  return {preferred_.data() + slot(feature, 0),
          static_cast<std::size_t>(preferredCount_[at(feature)])};
}

void Tables::setTargets(int feature, const std::vector<char>& isTarget) {
  const int first = valueOf(feature, domain(feature).defaultChoice);
  int& count = preferredCount_[at(feature)];
  count = 0;
  const auto prefer = [&](int value) { preferred_[slot(feature, count++)] = value; };
  for (std::size_t value = 0; value < domain(feature).choices.size(); ++value) {
    isTarget_[slot(feature, static_cast<int>(value))] = isTarget[value];
  }
  if (this->isTarget(feature, first)) prefer(first);
  for (int value = 0; value < valueCount(feature); ++value) {
    if (value != first && this->isTarget(feature, value)) prefer(value);
  }
}

bool Tables::isTrue(const ConditionRow& row, int value) const {
  if (row.isRange) return row.first <= value && value <= row.last;
  const bool isException =
      std::binary_search(exceptions_.begin() + row.first, exceptions_.begin() + row.last, value);
  return isException != row.usually;
}

}  // namespace driver_feature::rules
