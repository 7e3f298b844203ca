#include "host/ppd/exchange_sort.h"

#include <algorithm>
#include <map>

namespace driver_feature {

namespace {

std::ptrdiff_t offset(std::size_t place) {
  return static_cast<std::ptrdiff_t>(place);
}

}  // namespace

void Tally::mark(std::size_t place) {
  for (++place; place < sums_.size(); place += place & (~place + 1)) ++sums_[place];
}

std::size_t Tally::before(std::size_t place) const {
  std::size_t sum = 0;
  for (; place > 0; place &= place - 1) sum += sums_[place];
  return sum;
}

void EqualEntries::turn(std::size_t lower) {
  if (!ring_.empty()) first_ = (first_ + (lower - turned_)) % ring_.size();
  turned_ = lower;
}

void EqualEntries::add(std::size_t entry, std::size_t lower) {
  turn(lower);
  ring_.insert(ring_.begin() + offset(first_), entry);
  first_ = (first_ + 1) % ring_.size();
}

std::vector<std::size_t> EqualEntries::settled(std::size_t lower) {
  turn(lower);
  std::vector<std::size_t> entries(ring_);
  std::rotate(entries.begin(), entries.begin() + offset(first_), entries.end());
  return entries;
}

std::vector<std::size_t> exchangeSorted(const std::vector<float>& orders) {
  std::map<float, std::vector<std::size_t>> byOrder;
  for (std::size_t place = 0; place < orders.size(); ++place) {
    byOrder[orders[place]].push_back(place);
  }
  Tally lower(orders.size());
  std::vector<std::size_t> sorted;
  sorted.reserve(orders.size());
  for (const auto& [order, places] : byOrder) {
    EqualEntries entries;
    for (const std::size_t place : places) entries.add(place, lower.before(place));
    const std::vector<std::size_t> settled = entries.settled(sorted.size());
    sorted.insert(sorted.end(), settled.begin(), settled.end());
    for (const std::size_t place : places) lower.mark(place);
  }
  return sorted;
}

}  // namespace driver_feature
