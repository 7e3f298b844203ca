#include "programs/filter/eps_file.h"

#include <algorithm>

namespace driver_feature::filter {

namespace {

constexpr std::string_view kMagic = "\xC5\xD0\xD3\xC6";
constexpr std::size_t kHeaderRead = 12;  // Up to the size of the PostScript.
constexpr std::uint32_t kHeaderSize = 30;

// Four bytes, the lowest first.
std::uint32_t numberAt(std::string_view bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 4; i-- > 0;)
    number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

// Takes up to `count` bytes from the front, and counts them.
std::string_view taken(std::string_view& bytes, std::uint32_t& count) {
  const std::string_view front = bytes.substr(0, std::min<std::size_t>(count, bytes.size()));
  bytes.remove_prefix(front.size());
  count -= static_cast<std::uint32_t>(front.size());
  return front;
}

}  // namespace

void EpsFile::put(std::string_view bytes) {
  if (isHeader_) {
    const std::size_t missing = std::min(kHeaderRead - held_.size(), bytes.size());
    held_ += bytes.substr(0, missing);
    bytes.remove_prefix(missing);
    const bool maybe = std::string_view(held_).starts_with(kMagic.substr(0, held_.size()));
    if (maybe && held_.size() < kHeaderRead) return;
    readHeader();
  }
  if (!isEps_) return postScript_.put(bytes);
  taken(bytes, skip_);
  postScript_.put(taken(bytes, count_));
}

// A place inside of the header is none: the bytes are then something else.
void EpsFile::readHeader() {
  isHeader_ = false;
  if (held_.size() == kHeaderRead && std::string_view(held_).starts_with(kMagic)) {
    const std::uint32_t place = numberAt(held_, 4);
    count_ = numberAt(held_, 8);
    isEps_ = place >= kHeaderSize && count_ > 0;
    skip_ = place - static_cast<std::uint32_t>(kHeaderRead);
  }
  if (isEps_) return;
  count_ = 0;
  postScript_.put(held_);
}

void EpsFile::finish() {
  if (isHeader_) readHeader();
  hasEnded_ = true;
}

}  // namespace driver_feature::filter
