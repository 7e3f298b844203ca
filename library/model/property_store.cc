#include "model/property_store.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

namespace driver_feature {

namespace {

// What goes before the content: the property's number and the size.
std::size_t headSize(std::size_t size) {
  std::size_t bytes = 2;
  for (; size >= 0x80U; size >>= 7U) ++bytes;
  return bytes;
}

// Returns the place of the content.
char* writeHead(std::size_t property, std::size_t size, char* at) {
  *at++ = static_cast<char>(property);
  for (; size >= 0x80U; size >>= 7U) *at++ = static_cast<char>((size & 0x7FU) | 0x80U);
  *at++ = static_cast<char>(size);
  return at;
}

}  // namespace

// A text of another size goes to the end, so that one that changes again and
// again does not move the others.
void PropertyStore::setText(std::size_t property, std::string_view text) {
  const Entry old = find(static_cast<unsigned char>(property));
  char* const begin = entries_ + (old.begin - entries_);
  char* const content = begin + (old.content.data() - begin);
  if (text.size() == old.content.size()) {
    std::copy(text.begin(), text.end(), content);
    return;
  }
  const char* const after = content + old.content.size();
  const char* const end = entries_ + size_;
  const std::size_t left = size_ - static_cast<std::size_t>(after - begin);
  const std::size_t added = text.empty() ? 0 : headSize(text.size()) + text.size();
  if (left + added > capacity_) {
    grow(left + added, begin, after);
  } else {
    std::copy(after, end, begin);
  }
  size_ = static_cast<std::uint32_t>(left);
  if (text.empty()) return;
  char* const place = writeHead(property, text.size(), entries_ + size_);
  std::copy(text.begin(), text.end(), place);
  size_ += static_cast<std::uint32_t>(added);
}

// Copies all but the entry from `begin` to `after`. Gets as much memory as is
// needed: most properties are set once.
void PropertyStore::grow(std::size_t capacity, const char* begin, const char* after) {
  if (capacity > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
  auto grown = std::make_unique_for_overwrite<char[]>(capacity);
  const char* const first = entries_;
  std::copy(after, first + size_, std::copy(first, begin, grown.get()));
  freeOwn();
  entries_ = grown.release();
  capacity_ = static_cast<std::uint32_t>(capacity);
}

void PropertyStore::moveTo(PropertyRoom& room) {
  char* const place = room.take(size_);
  if (place == nullptr) return;
  std::copy_n(entries_, size_, place);
  freeOwn();
  entries_ = place;
  capacity_ = 0;
}

}  // namespace driver_feature
