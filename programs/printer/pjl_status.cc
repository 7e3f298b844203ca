#include "programs/printer/pjl_status.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "host/base/text.h"

namespace driver_feature::printer {

namespace {

constexpr std::size_t kLongestStatusLine = 1024;

struct CodeRow {
  int first;
  int last;
  std::string_view reason;
};

// Codes of five digits: 1xxxx inform, 4xxxx wait for a person, 5xxxx are faults. Where
// makers use a code for different things it is left out.
constexpr CodeRow kCodes[] = {
    {10006, 10006, "toner-low-warning"}, {11000, 11999, "media-empty-warning"},
    {40010, 40010, "toner-empty-error"}, {40019, 40019, "output-area-full-error"},
    {40021, 40021, "cover-open-error"},  {40022, 40022, "media-jam-error"},
    {40038, 40038, "toner-low-warning"}, {41000, 41999, "media-needed-error"},
    {42000, 42999, "media-jam-error"},   {44000, 44999, "media-jam-error"},
    {50000, 59999, "other-error"},
};

}  // namespace

bool beginsWithPjl(std::string_view job) {
  return job.starts_with("\033%-12345X@PJL");
}

std::string_view reasonOfCode(int code) {
  const auto* row = std::find_if(std::begin(kCodes), std::end(kCodes), [code](const CodeRow& one) {
    return code >= one.first && code <= one.last;
  });
  return row == std::end(kCodes) ? std::string_view() : row->reason;
}

std::string PjlStatus::takeLine(std::string_view line) {
  constexpr std::string_view kCode = "CODE=";
  constexpr std::string_view kDisplay = "DISPLAY=";
  if (line.starts_with(kCode)) {
    int code = 0;
    const auto read = std::from_chars(line.data() + kCode.size(), line.data() + line.size(), code);
    const std::string reason(reasonOfCode(code));
    if (read.ec != std::errc() || reason == reason_) return "";
    std::string lines = reason_.empty() ? "" : "STATE: -" + reason_ + "\n";
    reason_ = reason;
    return reason.empty() ? lines : lines + "STATE: +" + reason + "\n";
  }
  if (line.starts_with(kDisplay)) {
    const std::string shown(host::trimmed(line.substr(kDisplay.size()), " \""));
    if (shown == display_) return "";
    display_ = shown;
    return "INFO: " + host::printable(shown) + "\n";
  }
  return "";
}

std::string PjlStatus::take(std::string_view bytes) {
  rest_ += bytes;
  std::string lines;
  std::size_t end = 0;
  // A form feed is the end of a message.
  while ((end = rest_.find_first_of("\r\n\f")) != std::string::npos) {
    lines += takeLine(std::string_view(rest_).substr(0, end));
    rest_.erase(0, end + 1);
  }
  if (rest_.size() > kLongestStatusLine) rest_.clear();
  return lines;
}

}  // namespace driver_feature::printer
