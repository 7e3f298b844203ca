// Finds positions by name, in a time that hardly grows with their number.
#ifndef MODEL_NAME_INDEX_H_
#define MODEL_NAME_INDEX_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace driver_feature {

// Keeps positions and no names: looking for one gets a function that returns the
// name at a position. Names that are listed must not change.
class NameIndex {
 public:
  // How many positions are listed, from 0 on.
  std::size_t count() const { return count_; }

  // Lists the next position. Of several with the same name the first is found.
  template <class NameAt>
  void add(const NameAt& nameAt) {
    reserve(count_ + 1);
    const std::string_view name = nameAt(count_);
    const std::uint32_t hash = hashOf(name);
    Slot& slot = slots_[slotOf(name, hash, nameAt)];
    ++count_;
    if (slot.number == kFree) slot = {hash, static_cast<std::uint32_t>(count_)};
  }

  // Gets the memory for so many positions.
  void reserve(std::size_t count) {
    if (2 * count <= slots_.size()) return;
    std::size_t size = std::max<std::size_t>(2 * slots_.size(), kFewestSlots);
    while (size < 2 * count) size *= 2;
    std::vector<Slot> before(size);
    before.swap(slots_);
    for (const Slot& slot : before) {
      if (slot.number == kFree) continue;
      std::size_t at = slot.hash & (size - 1);
      while (slots_[at].number != kFree) at = (at + 1) & (size - 1);
      slots_[at] = slot;
    }
  }

  // The first position of that name, or -1.
  template <class NameAt>
  int find(std::string_view name, const NameAt& nameAt) const {
    if (slots_.empty()) return -1;
    return static_cast<int>(slots_[slotOf(name, hashOf(name), nameAt)].number) - 1;
  }

  // Lists no position any longer, and keeps the memory.
  void clear() {
    std::fill(slots_.begin(), slots_.end(), Slot{});
    count_ = 0;
  }

 private:
  static constexpr std::uint32_t kFree = 0;
  static constexpr std::size_t kFewestSlots = 16;

  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t number = kFree;  // The position, counted from 1.
  };

  static std::uint32_t hashOf(std::string_view name) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
  }

  // The slot with the position of that name, or the free one where it would be.
  // At least half of them are free.
  template <class NameAt>
  std::size_t slotOf(std::string_view name, std::uint32_t hash, const NameAt& nameAt) const {
    const std::size_t last = slots_.size() - 1;  // One less than a power of 2.
    std::size_t at = hash & last;
    for (; slots_[at].number != kFree; at = (at + 1) & last) {
      const Slot& slot = slots_[at];
      if (slot.hash == hash && nameAt(slot.number - 1) == name) break;
    }
    return at;
  }

  std::vector<Slot> slots_;
  std::size_t count_ = 0;
};

}  // namespace driver_feature

#endif  // MODEL_NAME_INDEX_H_
