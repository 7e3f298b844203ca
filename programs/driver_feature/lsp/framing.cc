#include "programs/driver_feature/lsp/framing.h"

#include <algorithm>
#include <charconv>

#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

constexpr std::string_view kHeadEnd = "\r\n\r\n";
constexpr std::string_view kLength = "content-length";

}  // namespace

host::Result<std::optional<std::string>> MessageReader::take() {
  if (!length_) {
    const std::string_view rest = std::string_view(bytes_).substr(taken_);
    const std::size_t end = rest.substr(0, kLongestHead).find(kHeadEnd);
    if (end == std::string_view::npos && rest.size() >= kLongestHead) {
      return host::refused("the head of a message has no end; is this a language client?");
    }
    if (end == std::string_view::npos) return std::optional<std::string>();
    auto length = readHead(rest.substr(0, end));
    if (!length) return failureOf(length);
    length_ = *length;
    taken_ += end + kHeadEnd.size();
  }
  if (bytes_.size() - taken_ < *length_) return std::optional<std::string>();
  std::optional<std::string> message = bytes_.substr(taken_, *length_);
  taken_ += *length_;
  length_.reset();
  // Not after each message: many may have come at once.
  if (taken_ >= bytes_.size() / 2) {
    bytes_.erase(0, taken_);
    taken_ = 0;
  }
  return message;
}

host::Result<std::size_t> MessageReader::readHead(std::string_view head) const {
  std::optional<std::size_t> length;
  while (!head.empty()) {
    const std::size_t end = std::min(head.find("\r\n"), head.size());
    const std::string_view line = head.substr(0, end);
    head.remove_prefix(std::min(end + 2, head.size()));
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) {
      return host::refused(
          "a line in the head of a message has no colon; is this a language client?");
    }
    if (host::toLower(std::string(line.substr(0, colon))) != kLength) continue;
    const std::string_view digits = host::trimmed(line.substr(colon + 1), " \t");
    std::size_t number = 0;
    const char* const last = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), last, number);
    if (read.ec != std::errc() || read.ptr != last || number > kLongestMessage) {
      return host::refused("the length of a message is not a number from 0 to " +
                           std::to_string(kLongestMessage));
    }
    length = number;
  }
  if (!length) return host::refused("the head of a message has no Content-Length");
  return *length;
}

std::string framed(std::string_view message) {
  return "Content-Length: " + std::to_string(message.size()) + "\r\n\r\n" + std::string(message);
}

}  // namespace driver_feature::cli
