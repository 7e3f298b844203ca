// A number made of lines, by which a text is known again.
#ifndef HOST_PPD_PLAIN_LINE_STAMP_H_
#define HOST_PPD_PLAIN_LINE_STAMP_H_

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace driver_feature::ppd {

// Finds changes made by mistake or by hand; it does not protect against those
// who look for another text with the same stamp, and who could change the queue's
// description anyway.
class LineStamp {
 public:
  // A line without its end.
  void add(std::string_view line) {
    size_ += line.size() + 1;
    for (; line.size() >= kPart; line.remove_prefix(kPart)) mix(line.data(), kPart);
    mix(line.data(), line.size());
  }

  // As text: the size of all lines, and 16 hexadecimal digits.
  std::string text() const;

 private:
  static constexpr std::size_t kPart = sizeof(std::uint64_t);

  void mix(const char* bytes, std::size_t count) {
    std::uint64_t part = count;
    std::memcpy(&part, bytes, count);
    state_ = (state_ ^ part) * 0x9E3779B97F4A7C15U;
    state_ ^= state_ >> 32U;
  }

  std::uint64_t state_ = 0xCBF29CE484222325U;
  std::uint64_t size_ = 0;
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PLAIN_LINE_STAMP_H_
