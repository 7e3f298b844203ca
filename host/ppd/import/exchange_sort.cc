#include "host/ppd/import/exchange_sort.h"

#include <algorithm>
#include <map>

namespace driver_feature::ppd {

namespace {

std::ptrdiff_t offset(std::size_t place) {
  return static_cast<std::ptrdiff_t>(place);
}

// The number of the entry that ends at `position`, other than the one that is
// added; see placeAmongEquals(). Goes back to when it was the last one.
std::size_t entryAt(std::size_t position, const std::vector<std::size_t>& lower, std::size_t before,
                    std::size_t ownLower, std::size_t allLower) {
  std::size_t until = allLower;
  const auto takeBack = [&position, &until](std::size_t since, std::size_t entries) {
    position = (position + until - since) % entries;
    until = since;
    return position + 1 == entries;
  };
  for (std::size_t others = lower.size(); others > before; --others) {
    if (takeBack(lower[others - 1], others + 1)) return others - 1;
  }
  takeBack(ownLower, before + 1);
  std::size_t others = before;
  while (others > 1 && !takeBack(lower[others - 1], others)) --others;
  return others - 1;
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

EqualPlace placeAmongEquals(const std::vector<std::size_t>& lower, std::size_t before,
                            std::size_t ownLower, std::size_t allLower) {
  EqualPlace place{before, false, 0};
  std::size_t turned = ownLower;
  for (std::size_t others = before; others <= lower.size(); ++others) {
    const std::size_t until = others < lower.size() ? lower[others] : allLower;
    const std::size_t turns = until - turned;
    turned = until;
    // The turns that move the entry itself do not move the others.
    const std::size_t own =
        turns > place.position ? (turns - 1 - place.position) / (others + 1) + 1 : 0;
    place.position = place.position + own * (others + 1) - turns;
    if (others > 1 && own % others != 0) place.unsettles = true;
  }
  if (place.unsettles && place.position > 0) {
    place.previous = entryAt(place.position - 1, lower, before, ownLower, allLower);
  }
  return place;
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

}  // namespace driver_feature::ppd
