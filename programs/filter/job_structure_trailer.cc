// What follows a universal exit sequence: the PJL trailer of the job, another
// document, or data of the job that holds such a sequence.

#include "programs/filter/job_structure.h"
#include "programs/filter/pjl_line.h"

namespace driver_feature::filter {

namespace {

// Far more than a trailer has.
constexpr std::size_t kMostTrailerLines = 256;

bool isPjlOrBlank(std::string_view text) {
  return text.find_first_not_of(" \t") == std::string_view::npos || text.starts_with("@PJL");
}

}  // namespace

// Wherever the job has come to, an exit may end it when it came with PJL. What
// follows shows whether it does; the lines are held until then.
bool JobStructure::takeTrailer(const JobLine& line) {
  if (place_ == Place::kFront || !hasPjl_) return false;
  if (place_ == Place::kBehindJob) return isDropping_ = true;
  if (trailer_.empty() && !beginsWithExit(line.text)) return false;
  if (holdsTrailer(line)) return true;
  const bool isDocument = trailerEnters_ || withoutExits(line.text).starts_with("%!");
  if (!isDocument) {
    releaseTrailer();
    return false;
  }
  endStructure();
  place_ = Place::kBehindJob;
  hasSecondDocument_ = true;
  return isDropping_ = true;
}

bool JobStructure::holdsTrailer(const JobLine& line) {
  const std::string_view text = withoutExits(line.text);
  if (!line.isWhole || !isPjlOrBlank(text) || trailer_.size() == kMostTrailerLines) return false;
  trailer_.emplace_back(line.text, line.end);
  trailerEnters_ = trailerEnters_ || !enteredLanguage(text).empty();
  return true;
}

// The lines are not a trailer: they belong to the job.
void JobStructure::releaseTrailer() {
  const auto lines = std::move(trailer_);
  trailer_.clear();
  for (const auto& [text, end] : lines) {
    while (!takeAt({text, end, true}, "")) {
    }
  }
}

}  // namespace driver_feature::filter
