#include "model/record_list.h"

#include <bit>

namespace driver_feature {

namespace {

// How many slots are counted by the slot of that number.
std::size_t countedBy(std::size_t number) {
  return number & (~number + 1);
}

}  // namespace

void RecordList::grow() {
  const std::size_t number = slots_.size() + 1;
  const std::size_t before = number - countedBy(number);
  std::uint32_t count = 1;
  for (std::size_t last = number - 1; last > before; last -= countedBy(last)) {
    count += slots_[last - 1].count;
  }
  slots_.push_back({nullptr, count, false});
  ++size_;
}

void RecordList::erase(std::size_t position) noexcept {
  const std::size_t slot = findSlot(position);
  slots_[slot].isHole = true;
  for (std::size_t number = slot + 1; number <= slots_.size(); number += countedBy(number)) {
    --slots_[number - 1].count;
  }
  --size_;
  // Rarely: what it takes is little for each of the removals since the last time.
  if (slots_.size() > 2 * size_) closeHoles();
}

void RecordList::clear() noexcept {
  slots_ = {};
  size_ = 0;
}

// The first slot up to which there are more records than `position`.
std::size_t RecordList::findSlot(std::size_t position) const {
  std::size_t slot = 0;
  for (std::size_t step = std::bit_floor(slots_.size()); step > 0; step /= 2) {
    if (slot + step > slots_.size() || slots_[slot + step - 1].count > position) continue;
    slot += step;
    position -= slots_[slot - 1].count;
  }
  return slot;
}

void RecordList::closeHoles() noexcept {
  if (!hasHoles()) return;
  std::erase_if(slots_, [](const Slot& slot) { return slot.isHole; });
  std::uint32_t number = 0;
  for (Slot& slot : slots_) slot.count = static_cast<std::uint32_t>(countedBy(++number));
  slots_.shrink_to_fit();  // As far as there is memory for it.
}

}  // namespace driver_feature
