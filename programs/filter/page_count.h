// Counts the pages of a document as the print scheduler's own filter counts
// them, so that a queue's accounting does not depend on which filter it has:
//
// - A document that does not begin with "%!PS-Adobe-" is one page, whatever its
//   comments say.
// - Any other one has a page for each "%%Page:" after its header comments and
//   in front of its trailer, but not within embedded documents of a page. What
//   "%%Pages:" promises does not matter.
#ifndef PROGRAMS_FILTER_PAGE_COUNT_H_
#define PROGRAMS_FILTER_PAGE_COUNT_H_

#include <functional>
#include <string_view>

namespace driver_feature::filter {

class PageCount {
 public:
  // `report` gets the number of each page, counted from 1, when it begins.
  explicit PageCount(std::function<void(long)> report);

  // The first line of the document.
  void begin(std::string_view line);

  // A later line that begins with a percent sign and is not data.
  void take(std::string_view line);

  // A line that does not.
  void takeCode() {
    if (place_ == Place::kHeader) place_ = Place::kBeforePages;
  }

  long pages() const { return pages_; }

  // Whether the document's comments mark its pages.
  bool isStructured() const { return isStructured_; }

  // Whether a comment has begun a trailer, of the document or of one within it.
  bool hasTrailer() const { return hasTrailer_; }

  // How many copies of each page the document's own commands make, which a
  // filter that has converted the document says in the header; 1 without that.
  int copiesInside() const { return copiesInside_; }

 private:
  enum class Place { kHeader, kBeforePages, kPages, kBehindPages };

  void takeHeader(std::string_view line);
  void takeBeforePages(std::string_view line);
  void takePages(std::string_view line);
  void addPage();

  std::function<void(long)> report_;
  Place place_ = Place::kBehindPages;
  long pages_ = 0;
  long documents_ = 0;  // Embedded documents around this line.
  int copiesInside_ = 1;
  bool isStructured_ = false;
  bool hasTrailer_ = false;
  bool hasSetup_ = false;  // A document set-up has begun.
  bool isSetUp_ = false;   // It has ended.
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_PAGE_COUNT_H_
