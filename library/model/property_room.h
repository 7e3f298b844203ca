// Memory that the properties of many objects share: exactly as much as they
// take, in few pieces.
#ifndef MODEL_PROPERTY_ROOM_H_
#define MODEL_PROPERTY_ROOM_H_

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace driver_feature {

class PropertyRoom {
 public:
  // Memory of that size, valid as long as the room. Null for a large size, which
  // would leave much of a piece unused.
  char* take(std::size_t size) {
    if (size > kPiece / 8) return nullptr;
    if (size > left_) {
      pieces_.push_back(std::make_unique_for_overwrite<char[]>(kPiece));
      next_ = pieces_.back().get();
      left_ = kPiece;
    }
    left_ -= size;
    return std::exchange(next_, next_ + size);
  }

 private:
  static constexpr std::size_t kPiece = 16000;

  std::vector<std::unique_ptr<char[]>> pieces_;
  char* next_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace driver_feature

#endif  // MODEL_PROPERTY_ROOM_H_
