#include "host/server/framing.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "host/base/text.h"

namespace driver_feature::host {

namespace {

constexpr std::size_t kLongestChunkLine = 30;  // libcups reads lines of 31 characters.

// The length of the line end that the text begins with; 0 without one.
std::size_t lineEnd(std::string_view text) {
  if (text.starts_with('\n')) return 1;
  return text.starts_with("\r\n") ? 2 : 0;
}

}  // namespace

bool hasCodedBody(std::string_view head) {
  while (!head.empty()) {
    const std::string_view line = head.substr(0, head.find('\n'));
    head.remove_prefix(std::min(line.size() + 1, head.size()));
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) continue;
    const bool isCoding = toLower(std::string(line.substr(0, colon))) == "content-encoding";
    if (isCoding && toLower(std::string(trimmed(line.substr(colon + 1), " \t\r"))) != "identity") {
      return true;
    }
  }
  return false;
}

void Framing::expectHead() {
  part_ = Part::kHead;
  searched_ = 0;
}

void Framing::expectBytes(std::uint64_t count) {
  part_ = count == 0 ? Part::kNothing : Part::kBytes;
  left_ = count;
}

void Framing::expectChunks() {
  part_ = Part::kChunkLine;
}

std::size_t Framing::take(std::string_view waiting) {
  switch (part_) {
    case Part::kHead:
      return takeHead(waiting);
    case Part::kBytes:
      return takeBytes(waiting);
    case Part::kChunkLine:
      return takeChunkLine(waiting);
    case Part::kChunk:
      return takeChunk(waiting);
    default:
      return 0;
  }
}

std::size_t Framing::takeHead(std::string_view waiting) {
  for (;;) {
    const std::size_t end = waiting.find('\n', searched_);
    if (end >= longestHead_) {
      if (waiting.size() >= longestHead_) part_ = Part::kMalformed;
      return 0;
    }
    const std::size_t blank = lineEnd(waiting.substr(end + 1));
    if (blank > 0) {
      part_ = Part::kNothing;
      return end + 1 + blank;
    }
    // The line after it may be the blank one, of which only a part is there.
    if (waiting.size() - end <= 2 && waiting.find('\n', end + 1) == std::string_view::npos) {
      return 0;
    }
    searched_ = end + 1;
  }
}

std::size_t Framing::takeBytes(std::string_view waiting) {
  const std::size_t count =
      static_cast<std::size_t>(std::min<std::uint64_t>(left_, waiting.size()));
  left_ -= count;
  if (left_ == 0) part_ = Part::kNothing;
  return count;
}

std::size_t Framing::takeChunkLine(std::string_view waiting) {
  const std::size_t end = waiting.find('\n');
  if (end > kLongestChunkLine) {
    if (waiting.size() > kLongestChunkLine) part_ = Part::kMalformed;
    return 0;
  }
  std::uint32_t size = 0;
  const auto read = std::from_chars(waiting.data(), waiting.data() + end, size, 16);
  // Such as "1f", "1f\r" and "1f;name=value\r". libcups counts in signed numbers.
  const bool isNumber = read.ec == std::errc() && (*read.ptr == '\r' || *read.ptr == '\n' ||
                                                   *read.ptr == ';' || *read.ptr == ' ');
  if (!isNumber || size > 0x7fffffff) {
    part_ = Part::kMalformed;
    return 0;
  }
  left_ = size;
  if (size == 0) return takeLastLines(waiting, end + 1);
  // libcups reads the first byte of the chunk together with its line.
  const std::size_t first = takeChunk(waiting.substr(end + 1));
  if (first == 0) return 0;
  if (left_ > 0) part_ = Part::kChunk;
  return end + 1 + first;
}

// libcups reads the line end after a chunk together with the chunk's last byte.
std::size_t Framing::takeChunk(std::string_view waiting) {
  if (left_ > 1) {
    const std::size_t count =
        static_cast<std::size_t>(std::min<std::uint64_t>(left_ - 1, waiting.size()));
    left_ -= count;
    return count;
  }
  if (waiting.size() < 2) return 0;
  const std::size_t end = lineEnd(waiting.substr(1));
  if (end > 0) {
    left_ = 0;
    part_ = Part::kChunkLine;
    return 1 + end;
  }
  if (waiting[1] != '\r' || waiting.size() > 2) part_ = Part::kMalformed;
  return 0;
}

// libcups reads the line after that of the last chunk together with it. Fields
// between the two are not taken.
std::size_t Framing::takeLastLines(std::string_view waiting, std::size_t first) {
  const std::string_view rest = waiting.substr(first);
  const std::size_t end = lineEnd(rest);
  if (end > 0) {
    part_ = Part::kNothing;
    return first + end;
  }
  if (!rest.empty() && rest != "\r") part_ = Part::kMalformed;
  return 0;
}

}  // namespace driver_feature::host
