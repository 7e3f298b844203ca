// Messages of the language server protocol in a stream of bytes.
#ifndef PROGRAMS_DRIVER_FEATURE_LSP_FRAMING_H_
#define PROGRAMS_DRIVER_FEATURE_LSP_FRAMING_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "host/base/result.h"

namespace driver_feature::cli {

class MessageReader {
 public:
  static constexpr std::size_t kLongestHead = 8192;
  // Descriptions may have 64 MiB; as JSON they are longer.
  static constexpr std::size_t kLongestMessage = 256U << 20U;

  void add(std::string_view bytes) { bytes_ += bytes; }

  // The next message, if it is there as a whole. Refused when the head is not
  // one, or the message is too long: then the beginning of the next one is
  // unknown.
  host::Result<std::optional<std::string>> take();

 private:
  host::Result<std::size_t> readHead(std::string_view head) const;

  std::string bytes_;
  std::size_t taken_ = 0;              // Bytes that have been taken.
  std::optional<std::size_t> length_;  // Of the message whose head has been read.
};

// The message with its head.
std::string framed(std::string_view message);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_LSP_FRAMING_H_
