// The properties that few objects have, in one piece of memory.
//
// An object of the model has up to thirty properties, and most of them are empty
// or 0 in nearly every object. Only the others take memory here.
#ifndef MODEL_PROPERTY_STORE_H_
#define MODEL_PROPERTY_STORE_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "model/property_room.h"

namespace driver_feature {

// A property is known by the number of its name. A text that was never set is
// empty, a number 0.
class PropertyStore {
 public:
  PropertyStore() = default;
  ~PropertyStore() { freeOwn(); }
  PropertyStore(const PropertyStore&) = delete;
  PropertyStore& operator=(const PropertyStore&) = delete;

  // Valid until the next change of any property in this store.
  std::string_view text(std::size_t property) const {
    return find(static_cast<unsigned char>(property)).content;
  }
  template <class Number>
  Number number(std::size_t property) const {
    Number number{};
    const std::string_view bytes = text(property);
    if (!bytes.empty()) std::memcpy(&number, bytes.data(), sizeof number);
    return number;
  }

  // When there is no memory, what was set before stays. All properties together
  // have less than 4 GiB.
  void setText(std::size_t property, std::string_view text);
  template <class Number>
  void setNumber(std::size_t property, Number number) {
    const char zeros[sizeof number] = {};
    char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    const bool isUnset = std::memcmp(bytes, zeros, sizeof number) == 0;
    setText(property, isUnset ? std::string_view() : std::string_view(bytes, sizeof number));
  }

  // Moves all properties into the room, which must outlive the store. It is for
  // those that will hardly change: a change of a size takes memory of its own.
  void moveTo(PropertyRoom& room);

 private:
  struct Entry {
    const char* begin;
    std::string_view content;
  };

  void grow(std::size_t capacity, const char* begin, const char* after);
  void freeOwn() {
    if (capacity_ > 0) delete[] entries_;
  }

  // Without an entry of that property: nothing at the end.
  Entry find(unsigned char property) const {
    const char* at = entries_;
    const char* const end = at + size_;
    while (at != end) {
      const char* const begin = at;
      const bool isWanted = static_cast<unsigned char>(*at++) == property;
      const std::size_t size = takeSize(at);
      if (isWanted) return {begin, {at, size}};
      at += size;
    }
    return {end, std::string_view(end, end)};
  }

  // Sizes are in groups of seven bits, the lowest first. All but the last have
  // the eighth bit.
  static std::size_t takeSize(const char*& at) {
    std::size_t size = static_cast<unsigned char>(*at++);
    if (size < 0x80U) return size;  // Nearly always.
    size &= 0x7FU;
    for (unsigned shift = 7;; shift += 7) {
      const auto group = static_cast<unsigned char>(*at++);
      size |= static_cast<std::size_t>(group & 0x7FU) << shift;
      if (group < 0x80U) return size;
    }
  }

  // One entry after another: the property's number, the size, the content.
  // Smaller than a std::string, for there are many stores.
  char* entries_ = nullptr;
  std::uint32_t size_ = 0;
  std::uint32_t capacity_ = 0;  // 0 in a room.
};

}  // namespace driver_feature

#endif  // MODEL_PROPERTY_STORE_H_
