// What libcups' sorting does to the order of entries. It exchanges any two of
// a list that are in the wrong order, the first entry with all others, then the
// second, and so on. That does not keep equal entries in the order of the list.
#ifndef HOST_PPD_IMPORT_EXCHANGE_SORT_H_
#define HOST_PPD_IMPORT_EXCHANGE_SORT_H_

#include <cstddef>
#include <vector>

namespace driver_feature::ppd {

// How many places before a given one have been marked.
class Tally {
 public:
  explicit Tally(std::size_t places) : sums_(places + 1, 0) {}

  void mark(std::size_t place);

  // Of the places in front of `place`.
  std::size_t before(std::size_t place) const;

  std::size_t all() const { return before(sums_.size() - 1); }

 private:
  std::vector<std::size_t> sums_;  // A binary indexed tree.
};

// Entries of one order as the sorting leaves them.
//
// The sorting has the same result as one that adds the entries of the list one
// by one: each goes after those of its order, and to make room for it, the
// first entry of every higher order goes to that order's end.
class EqualEntries {
 public:
  // Adds an entry at the end; `lower` is the number of entries of lower orders
  // in front of it in the list.
  void add(std::size_t entry, std::size_t lower);

  // The entries in their final order; `lower` is the number of all entries of
  // lower orders.
  std::vector<std::size_t> settled(std::size_t lower);

 private:
  void turn(std::size_t lower);

  std::vector<std::size_t> ring_;
  std::size_t first_ = 0;   // Where the ring begins.
  std::size_t turned_ = 0;  // The number of lower entries that it has been turned for.
};

// Where one entry more goes among entries of its order.
struct EqualPlace {
  std::size_t position = 0;
  bool unsettles = false;    // Whether it changes the order of the others.
  std::size_t previous = 0;  // Then the number of the one in front of it, if there is one.
};

// `lower` holds for each of the others, in the order of the list, the number of
// entries of lower orders in front of it. In front of the entry itself are
// `before` of the others and `ownLower` entries of lower orders, of which there
// are `allLower` in all.
EqualPlace placeAmongEquals(const std::vector<std::size_t>& lower, std::size_t before,
                            std::size_t ownLower, std::size_t allLower);

// The places of the list, from 0, in the order in which the sorting leaves
// their entries. `orders` are those of the entries, none of them NaN.
std::vector<std::size_t> exchangeSorted(const std::vector<float>& orders);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_EXCHANGE_SORT_H_
