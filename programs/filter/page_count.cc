#include "programs/filter/page_count.h"

#include <charconv>
#include <utility>

namespace driver_feature::filter {

namespace {

constexpr std::string_view kStructured = "%!PS-Adobe-";
constexpr std::string_view kTrailer = "%%Trailer";
constexpr std::string_view kCopies = "%RBINumCopies:";

int numberIn(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return 1;
  int number = 1;
  std::from_chars(text.data() + first, text.data() + text.size(), number);
  return number > 0 ? number : 1;
}

}  // namespace

PageCount::PageCount(std::function<void(long)> report) : report_(std::move(report)) {}

void PageCount::begin(std::string_view line) {
  isStructured_ = line.starts_with(kStructured);
  place_ = isStructured_ ? Place::kHeader : Place::kBehindPages;
  documents_ = 0;
  hasSetup_ = false;
  isSetUp_ = false;
  if (!isStructured_) addPage();
}

void PageCount::take(std::string_view line) {
  hasTrailer_ = hasTrailer_ || line.starts_with(kTrailer);
  switch (place_) {
    case Place::kHeader:
      return takeHeader(line);
    case Place::kBeforePages:
      return takeBeforePages(line);
    case Place::kPages:
      return takePages(line);
    case Place::kBehindPages:
      // A second document in the same job; its pages are printed, too.
      if (isStructured_ && line.starts_with(kStructured)) begin(line);
  }
}

// Every comment up to the first line of code belongs to the header, even one
// that begins a page.
void PageCount::takeHeader(std::string_view line) {
  if (line.starts_with("%%EndComments")) place_ = Place::kBeforePages;
  if (line.starts_with(kCopies)) copiesInside_ = numberIn(line.substr(kCopies.size()));
}

void PageCount::takeBeforePages(std::string_view line) {
  if (line.starts_with("%%Page:")) {
    place_ = Place::kPages;
    addPage();
  } else if (line.starts_with("%%BeginSetup")) {
    hasSetup_ = true;
  } else if (line.starts_with("%%EndSetup")) {
    isSetUp_ = hasSetup_;
  } else if (line.starts_with(kTrailer) && isSetUp_) {
    place_ = Place::kBehindPages;
  }
}

void PageCount::takePages(std::string_view line) {
  // Most comments of a page mean nothing.
  if (line.size() < 2 || (line[1] != '%' && line[1] != 'A')) return;
  const bool isOutside = documents_ == 0;
  if (line.starts_with("%%BeginDocument") || line.starts_with("%ADO_BeginApplication")) {
    ++documents_;
  } else if (line.starts_with("%%EndDocument") || line.starts_with("%ADO_EndApplication")) {
    if (!isOutside) --documents_;
  } else if (isOutside && line.starts_with("%%Page:")) {
    addPage();
  } else if (isOutside && (line.starts_with(kTrailer) || line.starts_with("%%EOF"))) {
    place_ = Place::kBehindPages;
  }
}

void PageCount::addPage() {
  report_(++pages_);
}

}  // namespace driver_feature::filter
