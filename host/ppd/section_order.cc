#include "host/ppd/section_order.h"

#include <algorithm>
#include <utility>

namespace driver_feature {

namespace {

using Entries = std::vector<SectionEntry>;

// Of an option that takes several choices, the defaults have been marked first.
bool comesBefore(const SectionEntry& left, const SectionEntry& right) {
  if (left.keyword != right.keyword) return left.keyword < right.keyword;
  if (left.usual != right.usual) return left.usual;
  return left.item < right.item;
}

// libcups takes the marked choices by keyword and then exchanges any two that
// are in the wrong order. Entries with equal orders may change places.
Entries sortedAsMarked(Entries entries) {
  std::sort(entries.begin(), entries.end(), comesBefore);
  for (std::size_t i = 0; i + 1 < entries.size(); ++i) {
    for (std::size_t j = i + 1; j < entries.size(); ++j) {
      if (entries[i].order > entries[j].order) std::swap(entries[i], entries[j]);
    }
  }
  return entries;
}

// Where an unusual entry belongs among the usual ones.
struct Place {
  std::size_t position = 0;
  bool unsettles = false;
};

Entries withoutKeyword(const Entries& entries, const std::string& keyword) {
  Entries others;
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(others),
               [&keyword](const SectionEntry& entry) { return entry.keyword != keyword; });
  return others;
}

bool isSame(const SectionEntry& left, const SectionEntry& right) {
  return left.item == right.item;
}

// Whether the order of the others is another without the entry.
bool unsettlesByLeaving(const SectionEntry& entry, const Entries& usual) {
  Entries others;
  std::copy_if(usual.begin(), usual.end(), std::back_inserter(others),
               [&entry](const SectionEntry& other) { return !isSame(other, entry); });
  const Entries marked = sortedAsMarked(others);
  return !std::equal(marked.begin(), marked.end(), others.begin(), others.end(), isSame);
}

Place placeOf(const SectionEntry& entry, const Entries& usual) {
  const Entries others = withoutKeyword(usual, entry.replaces);
  Entries marked = others;
  marked.push_back(entry);
  marked = sortedAsMarked(std::move(marked));
  const auto isItem = [](std::size_t item) {
    return [item](const SectionEntry& other) { return other.item == item; };
  };
  const auto own = std::find_if(marked.begin(), marked.end(), isItem(entry.item));
  auto position = usual.begin();
  if (own != marked.begin()) {
    position = std::find_if(usual.begin(), usual.end(), isItem((own - 1)->item)) + 1;
  }
  // Next to what it replaces, the two have no order.
  if (position != usual.end() && position->keyword == entry.replaces) ++position;
  marked.erase(own);
  return {static_cast<std::size_t>(position - usual.begin()),
          !std::equal(marked.begin(), marked.end(), others.begin(), others.end(), isSame)};
}

}  // namespace

SectionOrder orderOfSection(const std::vector<SectionEntry>& entries) {
  Entries usual;
  Entries unusual;
  for (const SectionEntry& entry : entries) (entry.usual ? usual : unusual).push_back(entry);
  usual = sortedAsMarked(std::move(usual));
  std::stable_sort(unusual.begin(), unusual.end(),
                   [](const SectionEntry& left, const SectionEntry& right) {
                     if (left.order != right.order) return left.order < right.order;
                     return comesBefore(left, right);
                   });
  SectionOrder order;
  std::vector<std::vector<std::size_t>> before(usual.size() + 1);
  for (const SectionEntry& entry : unusual) {
    const Place place = placeOf(entry, usual);
    before[place.position].push_back(entry.item);
    if (place.unsettles) order.unsettling.push_back(entry.keyword);
  }
  for (const SectionEntry& entry : usual) {
    if (entry.vanishes && unsettlesByLeaving(entry, usual)) {
      order.unsettling.push_back(entry.keyword);
    }
  }
  for (std::size_t i = 0; i <= usual.size(); ++i) {
    order.items.insert(order.items.end(), before[i].begin(), before[i].end());
    if (i < usual.size()) order.items.push_back(usual[i].item);
  }
  return order;
}

}  // namespace driver_feature
