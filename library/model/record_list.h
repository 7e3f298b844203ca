// The records of a dynamic group, in their order.
#ifndef MODEL_RECORD_LIST_H_
#define MODEL_RECORD_LIST_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace driver_feature {

class DynamicRecord;

// Finds and removes a record at any position in a time that hardly grows with
// their number: removing one leaves a hole and moves no other. Holds plain
// pointers, which may be null, and frees none.
class RecordList {
 public:
  std::size_t size() const { return size_; }

  // The record at a position, which there must be.
  DynamicRecord*& operator[](std::size_t position) {
    return slots_[hasHoles() ? findSlot(position) : position].record;
  }

  // Appends null, for the caller to replace. When there is no memory, nothing has
  // changed.
  void grow();

  // Later records move up by one position, which there must be.
  void erase(std::size_t position) noexcept;

  void clear() noexcept;

  // To be called before looking at all records, which is faster without holes.
  void closeHoles() noexcept;

 private:
  // A record or a hole. The slots are a binary indexed tree: each one knows how
  // many records are in the slots that end with it, of which there are as many as
  // the lowest bit of its own number, counted from 1.
  struct Slot {
    DynamicRecord* record;
    std::uint32_t count;
    bool isHole;
  };

  bool hasHoles() const { return size_ < slots_.size(); }
  std::size_t findSlot(std::size_t position) const;

  std::vector<Slot> slots_;
  std::size_t size_ = 0;  // Without the holes.
};

}  // namespace driver_feature

#endif  // MODEL_RECORD_LIST_H_
