#include "programs/filter/line_cutter.h"

#include <algorithm>

namespace driver_feature::filter {

void LineCutter::take(std::string_view bytes) {
  nextCr_.reset();
  nextLf_.reset();
  while (!bytes.empty()) {
    if (endsWithCr_) {
      // Where lines end with CR alone, a line feed is the first byte of what
      // follows, which may be counted binary data.
      const bool joins = bytes.front() == '\n' && !hasBareCr_;
      if (joins) bytes.remove_prefix(1);
      hasBareCr_ = !joins;
      endsWithCr_ = false;
      endLine(held_, joins ? "\r\n" : "\r");
    } else if (passing_ > 0) {
      const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(passing_, bytes.size()));
      passing_ -= count;
      listener_.takeBytes(bytes.substr(0, count));
      bytes.remove_prefix(count);
    } else {
      takeLineBytes(bytes);
    }
  }
}

void LineCutter::finish() {
  if (endsWithCr_) {
    endsWithCr_ = false;
    endLine(held_, "\r");
  } else if (!held_.empty()) {
    endLine(held_, "");
  }
  isLong_ = false;
}

void LineCutter::takeLineBytes(std::string_view& bytes) {
  const char* found = std::min(nextCr_.find(bytes), nextLf_.find(bytes));
  const auto end = static_cast<std::size_t>(found - bytes.data());
  const std::string_view text = bytes.substr(0, end);
  const bool hasEnd = end < bytes.size();
  // A line feed after CR belongs to the end.
  const bool isHeld = !hasEnd || bytes[end] == '\r';
  bytes.remove_prefix(text.size() + (hasEnd ? 1 : 0));
  if (isLong_) {
    if (!text.empty()) listener_.takeBytes(text);
  } else if (held_.size() + text.size() > kLongestLine) {
    passBeginning(text);
  } else if (isHeld || !held_.empty()) {
    held_ += text;
  }
  if (!hasEnd) return;
  if (isHeld) {
    endsWithCr_ = true;
  } else {
    endLine(held_.empty() ? text : held_, "\n");
  }
}

void LineCutter::passBeginning(std::string_view rest) {
  const std::size_t missing = kLongestLine - held_.size();
  held_ += rest.substr(0, missing);
  isLong_ = true;
  listener_.takeLine({held_, "", false});
  held_.clear();
  if (rest.size() > missing) listener_.takeBytes(rest.substr(missing));
}

void LineCutter::endLine(std::string_view text, std::string_view end) {
  if (isLong_) {
    listener_.takeBytes(end);
  } else {
    listener_.takeLine({text, end, true});
  }
  isLong_ = false;
  held_.clear();
}

}  // namespace driver_feature::filter
