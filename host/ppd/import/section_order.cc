#include "host/ppd/import/section_order.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

#include "host/ppd/import/exchange_sort.h"

namespace driver_feature::ppd {

namespace {

using List = std::vector<const SectionEntry*>;

// Of an option that takes several choices, the defaults have been marked first.
bool comesBefore(const SectionEntry* left, const SectionEntry* right) {
  if (left->keyword != right->keyword) return left->keyword < right->keyword;
  if (left->usual != right->usual) return left->usual;
  return left->item < right->item;
}

// As libcups writes the entries of a list by keyword.
List sortedAsMarked(const List& listed) {
  std::vector<float> orders;
  orders.reserve(listed.size());
  for (const SectionEntry* entry : listed) orders.push_back(entry->order);
  List sorted;
  sorted.reserve(listed.size());
  for (const std::size_t place : exchangeSorted(orders)) sorted.push_back(listed[place]);
  return sorted;
}

List without(const List& list, const SectionEntry* entry) {
  List others;
  std::remove_copy(list.begin(), list.end(), std::back_inserter(others), entry);
  return others;
}

// Where an unusual entry belongs among the usual ones.
struct Place {
  std::size_t position = 0;
  bool unsettles = false;
};

// The usual entries of a section, and the places of others among them.
class UsualEntries {
 public:
  explicit UsualEntries(List usual) : listed_(std::move(usual)), lower_(listed_.size()) {
    std::sort(listed_.begin(), listed_.end(), comesBefore);
    sorted_ = sortedAsMarked(listed_);
    for (std::size_t place = 0; place < listed_.size(); ++place) {
      blocks_[listed_[place]->order].places.push_back(place);
    }
    std::size_t first = listed_.size();
    std::size_t second = kNone;
    // NOLINTNEXTLINE(modernize-loop-convert): clang 14 has no reversing view.
    for (auto block = blocks_.rbegin(); block != blocks_.rend(); ++block) {
      const std::vector<std::size_t>& places = block->second.places;
      block->second.first = first -= places.size();
      if (places.size() > 1) second = std::min(second, places[1]);
      block->second.secondOfEquals = second;
    }
    nextLower_ = blocks_.begin();
  }

  const List& sorted() const { return sorted_; }

  // Not below the order of the entry that was asked for before.
  Place placeOf(const SectionEntry& entry) {
    const auto [begin, end] =
        std::equal_range(listed_.begin(), listed_.end(), entry.replaces, KeywordOrder());
    if (begin == end) return placeAmongAll(entry);
    const bool isReplacement = end - begin == 1 && entry.keyword == entry.replaces;
    if (isReplacement && entry.order == (*begin)->order) {
      // Of the two, whichever is marked has the same place, and no order.
      const auto replaced = std::find(sorted_.begin(), sorted_.end(), *begin);
      return {static_cast<std::size_t>(replaced - sorted_.begin()) + 1, false};
    }
    return placeWithout(entry, {begin, end});
  }

  // Whether the order of the others is another without the entry.
  bool unsettlesByLeaving(const SectionEntry& entry) const {
    return sortedAsMarked(without(listed_, &entry)) != without(sorted_, &entry);
  }

 private:
  static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

  struct KeywordOrder {
    bool operator()(const SectionEntry* entry, const std::string& keyword) const {
      return entry->keyword < keyword;
    }
    bool operator()(const std::string& keyword, const SectionEntry* entry) const {
      return keyword < entry->keyword;
    }
  };

  // Entries of equal orders.
  struct Block {
    std::vector<std::size_t> places;  // In the list.
    std::vector<std::size_t> lower;   // The entries of lower orders before each place.
    std::size_t first = 0;            // Where they begin among the sorted ones.
    // The least place of any that is not the first of its order, from this
    // order on.
    std::size_t secondOfEquals = kNone;
  };

  // The place of an entry that replaces none.
  Place placeAmongAll(const SectionEntry& entry) {
    for (; nextLower_ != blocks_.end() && nextLower_->first < entry.order; ++nextLower_) {
      for (const std::size_t place : nextLower_->second.places) lower_.mark(place);
    }
    const auto listPlace = static_cast<std::size_t>(
        std::lower_bound(listed_.begin(), listed_.end(), &entry, comesBefore) - listed_.begin());
    const auto higher = blocks_.upper_bound(entry.order);
    // It sends the first of several to their end.
    const bool unsettles = higher != blocks_.end() && higher->second.secondOfEquals < listPlace;
    const auto block = blocks_.find(entry.order);
    if (block == blocks_.end()) {
      return {higher != blocks_.end() ? higher->second.first : sorted_.size(), unsettles};
    }
    const std::vector<std::size_t>& equals = block->second.places;
    std::vector<std::size_t>& lower = block->second.lower;
    if (lower.empty()) {
      for (const std::size_t place : equals) lower.push_back(lower_.before(place));
    }
    const auto next = std::lower_bound(equals.begin(), equals.end(), listPlace);
    const EqualPlace place =
        placeAmongEquals(lower, static_cast<std::size_t>(next - equals.begin()),
                         lower_.before(listPlace), lower_.all());
    if (!place.unsettles || place.position == 0) {
      return {block->second.first + place.position, place.unsettles || unsettles};
    }
    const auto previous =
        std::find(sorted_.begin() + static_cast<std::ptrdiff_t>(block->second.first), sorted_.end(),
                  listed_[equals[place.previous]]);
    return {static_cast<std::size_t>(previous - sorted_.begin()) + 1, true};
  }

  // The place of an entry that replaces others.
  Place placeWithout(const SectionEntry& entry, const List& replaced) const {
    const auto isReplaced = [&replaced](const SectionEntry* other) {
      return std::find(replaced.begin(), replaced.end(), other) != replaced.end();
    };
    List listed(listed_);
    listed.erase(std::remove_if(listed.begin(), listed.end(), isReplaced), listed.end());
    listed.insert(std::lower_bound(listed.begin(), listed.end(), &entry, comesBefore), &entry);
    List marked = sortedAsMarked(listed);
    const auto own = std::find(marked.begin(), marked.end(), &entry);
    auto position = sorted_.begin();
    if (own != marked.begin()) {
      position = std::find(sorted_.begin(), sorted_.end(), *(own - 1)) + 1;
    }
    // Next to what it replaces, the two have no order.
    if (position != sorted_.end() && isReplaced(*position)) ++position;
    marked.erase(own);
    List others(sorted_);
    others.erase(std::remove_if(others.begin(), others.end(), isReplaced), others.end());
    return {static_cast<std::size_t>(position - sorted_.begin()), marked != others};
  }

  List listed_;  // By keyword, as libcups takes them.
  List sorted_;
  std::map<float, Block> blocks_;  // By order.
  Tally lower_;                    // The places of the orders that have been passed.
  std::map<float, Block>::const_iterator nextLower_;
};

}  // namespace

SectionOrder orderOfSection(const std::vector<SectionEntry>& entries) {
  List usual;
  List unusual;
  for (const SectionEntry& entry : entries) (entry.usual ? usual : unusual).push_back(&entry);
  std::sort(unusual.begin(), unusual.end(),
            [](const SectionEntry* left, const SectionEntry* right) {
              if (left->order != right->order) return left->order < right->order;
              return comesBefore(left, right);
            });
  UsualEntries others(std::move(usual));
  const List& sorted = others.sorted();
  SectionOrder order;
  std::vector<std::vector<std::size_t>> before(sorted.size() + 1);
  for (const SectionEntry* entry : unusual) {
    const Place place = others.placeOf(*entry);
    before[place.position].push_back(entry->item);
    if (place.unsettles) order.unsettling.push_back(entry->keyword);
  }
  for (const SectionEntry* entry : sorted) {
    if (entry->vanishes && others.unsettlesByLeaving(*entry)) {
      order.unsettling.push_back(entry->keyword);
    }
  }
  for (std::size_t i = 0; i <= sorted.size(); ++i) {
    order.items.insert(order.items.end(), before[i].begin(), before[i].end());
    if (i < sorted.size()) order.items.push_back(sorted[i]->item);
  }
  return order;
}

}  // namespace driver_feature::ppd
