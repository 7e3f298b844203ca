#include "host/ppd/plain/line_stamp.h"

#include <cstddef>

namespace driver_feature::ppd {

std::string LineStamp::text() const {
  std::string text = std::to_string(size_) + "-";
  for (unsigned shift = 64; shift > 0; shift -= 4) {
    text += "0123456789abcdef"[(state_ >> (shift - 4)) & 0xFU];
  }
  return text;
}

}  // namespace driver_feature::ppd
