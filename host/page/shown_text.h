// Texts as a page shows them: valid UTF-8, secrets masked, places counted as
// JavaScript does.
#ifndef HOST_PAGE_SHOWN_TEXT_H_
#define HOST_PAGE_SHOWN_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/settings/secret_outputs.h"

namespace driver_feature::page {

// The text with U+FFFD in place of each byte that is not UTF-8.
std::string shown(std::string_view bytes);

// A part of an output, and the name of the feature or group that has written it.
struct OwnedPart {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::string_view owner;

  bool operator==(const OwnedPart&) const = default;
};

// The same in UTF-16 units of the text that is shown.
struct ShownSpan {
  std::size_t offset = 0;
  std::size_t length = 0;
  std::string_view owner;

  bool operator==(const ShownSpan&) const = default;
};

struct ShownOutput {
  std::string text;
  std::vector<ShownSpan> spans;  // Neighbours of one owner are one span.
};

// The parts must be in the order of the bytes and not overlap. A part that begins
// or ends within a character or a secret begins or ends after that.
ShownOutput show(std::string_view bytes, const std::vector<OwnedPart>& parts,
                 const host::SecretOutputs& secrets);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_SHOWN_TEXT_H_
