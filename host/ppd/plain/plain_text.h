// Reads of a PPD's text what most jobs need: its options with their choices and
// defaults, its texts in job-control language and the queue's own lines.
//
// The reader is simple and does not know each rule of libcups. So the program
// that writes the PPD of a queue compares what both read. Where that is the
// same, the PPD gets a stamp, a number made of its lines. The reader trusts
// itself for stamped texts only. What a user changes in a queue's defaults
// (*Default lines) does not touch the stamp; any other change does.
#ifndef HOST_PPD_PLAIN_PLAIN_TEXT_H_
#define HOST_PPD_PLAIN_PLAIN_TEXT_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace driver_feature::ppd {

// All views point into the text that was read.
struct PlainChoice {
  std::string_view name;
  bool isBare = false;  // It has no command.
};

struct PlainOption {
  std::string_view keyword;
  std::string_view group;
  std::string_view defaultName;  // What the PPD calls the default; may not be a choice.
  std::vector<PlainChoice> choices;

  // The place of a choice, compared without regard to case; nothing without it.
  std::optional<std::size_t> find(std::string_view name) const;
};

struct PlainText {
  std::vector<PlainOption> options;  // In libcups' order: group by group.
  // *DriverFeature..., *JCLBegin and its kin, *RequiresPageRegion SLOT and
  // *DefaultOutputOrder: the keyword with its option, and the value.
  std::vector<std::pair<std::string_view, std::string_view>> attributes;
  std::string stamp;  // The one that belongs to the text.

  // The value of the first attribute with that name.
  std::optional<std::string_view> attribute(std::string_view name) const;
};

inline constexpr std::string_view kStampKeyword = "DriverFeaturePlain";

// Nothing for a text that is not a PPD, and for one with options of several
// choices at once.
std::optional<PlainText> readPlainText(std::string_view text);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PLAIN_PLAIN_TEXT_H_
