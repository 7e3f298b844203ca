// Takes numbers and texts off the front of a fuzzer's input.
#ifndef FUZZ_INPUT_READER_H_
#define FUZZ_INPUT_READER_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace driver_feature::fuzz {

class InputReader {
 public:
  InputReader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool isAtEnd() const { return size_ == 0; }

  // 0 at the end.
  unsigned takeByte() {
    if (isAtEnd()) return 0;
    --size_;
    return *data_++;
  }

  // The first byte is the length; what is missing at the end is left out.
  std::string takeText() {
    const std::size_t length = std::min<std::size_t>(takeByte(), size_);
    std::string text(reinterpret_cast<const char*>(data_), length);
    data_ += length;
    size_ -= length;
    return text;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

}  // namespace driver_feature::fuzz

#endif  // FUZZ_INPUT_READER_H_
