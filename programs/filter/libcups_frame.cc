#include "programs/filter/libcups_frame.h"

#include <algorithm>

namespace driver_feature::filter {

namespace {

constexpr std::size_t kUnknown = std::string_view::npos;

// The text has bytes of `expected`, but not yet all of them.
bool mayBecome(std::string_view text, std::string_view expected) {
  return text.size() < expected.size() && expected.starts_with(text);
}

// Where the first line from `begin` on begins that starts a document; npos
// without one.
std::size_t findHeader(std::string_view text, std::size_t begin, std::string_view header) {
  for (std::size_t at = text.find(header, begin); at != std::string_view::npos;
       at = text.find(header, at + 1)) {
    if (at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r') return at;
  }
  return std::string_view::npos;
}

// Whether PostScript begins there. Without any change of language it must begin
// a line, or say more of itself.
bool isDocument(std::string_view text, std::size_t at, bool hasChange) {
  const std::string_view rest = text.substr(at);
  if (rest.starts_with("%!PS-Adobe-")) return true;
  const bool beginsLine = at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r';
  return rest.starts_with("%!") && (hasChange || beginsLine);
}

// The size of a front in job-control language; 0 when there is none, npos while
// that is not known.
std::size_t sizeOfJcl(std::string_view job, const LibcupsFrame& frame, bool isWhole) {
  if (!job.starts_with(frame.begin)) return !isWhole && mayBecome(job, frame.begin) ? kUnknown : 0;
  const std::string& change = frame.toPostScript;
  // A document that begins before the change has a front of another origin.
  const std::size_t header =
      findHeader(job, frame.begin.size(), frame.hasHeaderLike ? "%!PS-Adobe-" : "%!");
  for (std::size_t at = job.find(change, frame.begin.size()); at != std::string_view::npos;
       at = job.find(change, at + 1)) {
    const std::size_t end = at + change.size();
    if (end > header) break;
    if (isDocument(job, end, !change.empty())) return end;
  }
  // A document's first line may not be whole yet.
  const bool hasDocument = header != std::string_view::npos && job.size() > header + 64;
  return isWhole || hasDocument || job.size() > kLongestFront ? 0 : kUnknown;
}

}  // namespace

void LibcupsFrameCutter::put(std::string_view bytes) {
  if (!isInFront_) return putDocument(bytes);
  held_ += bytes;
  const std::size_t size = sizeOfFront(false);
  if (size != kUnknown) leaveFront(size);
}

void LibcupsFrameCutter::finish() {
  if (isInFront_) leaveFront(sizeOfFront(true));
  const bool isEnd = !frame_.end.empty() && held_ == frame_.end;
  if (!isEnd || (!hasFront_ && !frame_.replacesEnd)) document_.put(held_);
  held_.clear();
}

std::size_t LibcupsFrameCutter::sizeOfFront(bool isWhole) const {
  const std::string_view job = held_;
  if (!isWhole && mayBecome(job, frame_.exitServer)) return kUnknown;
  const std::size_t exit = job.starts_with(frame_.exitServer) ? frame_.exitServer.size() : 0;
  const std::string_view rest = job.substr(exit);
  const std::size_t jcl = frame_.begin.empty() ? 0 : sizeOfJcl(rest, frame_, isWhole);
  if (jcl == kUnknown) return kUnknown;
  if (jcl > 0) return exit + jcl;
  if (!isWhole && mayBecome(rest, "%!")) return kUnknown;
  return rest.starts_with("%!") ? exit : 0;
}

void LibcupsFrameCutter::leaveFront(std::size_t size) {
  isInFront_ = false;
  hasFront_ = size > 0;
  if (hasFront_) tellFront_();
  const std::string job = std::move(held_);
  held_.clear();
  putDocument(std::string_view(job).substr(size));
}

// Keeps back what may be the beginning of the end, and no more: whoever waits
// for the job gets the rest.
void LibcupsFrameCutter::putDocument(std::string_view bytes) {
  if (frame_.end.empty()) return document_.put(bytes);
  held_ += bytes;
  const std::string_view all = held_;
  std::size_t kept = std::min(all.size(), frame_.end.size());
  while (!frame_.end.starts_with(all.substr(all.size() - kept))) --kept;
  document_.put(all.substr(0, all.size() - kept));
  held_.erase(0, held_.size() - kept);
}

}  // namespace driver_feature::filter
