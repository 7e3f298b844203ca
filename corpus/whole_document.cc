#include "corpus/whole_document.h"

#include <array>
#include <string_view>

namespace driver_feature {

const char* const kWholeDocument =
    "%!PS-Adobe-3.0\n%%Title: two pages\n%%For: (jane)\n%%Pages: (atend)\n%%BoundingBox: (atend)\n"
    "%%EndComments\n"
    "%%BeginProlog\n/pageText { 72 72 moveto show } def\n%%EndProlog\n"
    "%%BeginSetup\n/Helvetica 12 selectfont\n%%EndSetup\n"
    "%%Page: 1 1\n%%PageBoundingBox: 0 0 595 842\n%%BeginPageSetup\n%%EndPageSetup\n"
    "(one) pageText showpage\n"
    "%%Page: 2 2\n%%PageBoundingBox: 0 0 595 842\n%%BeginPageSetup\n%%EndPageSetup\n"
    "(two) pageText showpage\n"
    "%%Trailer\n%%Pages: 2\n%%BoundingBox: 0 0 595 842\n%%EOF\n";

namespace {

constexpr std::string_view kDocumentBegin = "%!PS-Adobe-3.0\n%%Title: two pages\n";
constexpr std::string_view kDocumentEnd = "%%EOF\n";

// Where each section stands in the document: between these.
struct Place {
  const char* begin;
  const char* end;
};
constexpr std::array<Place, 4> kPlaces = {{{"%%EndComments\n", "%%BeginProlog\n"},
                                           {"%%BeginProlog\n", "/pageText { 72"},
                                           {"%%BeginSetup\n", "/Helvetica 12 selectfont\n"},
                                           {"%%BeginPageSetup\n", "%%EndPageSetup\n"}}};

void removeOnce(std::string& text, const std::string& part) {
  const std::size_t at = part.empty() ? std::string::npos : text.find(part);
  if (at != std::string::npos) text.erase(at, part.size());
}

// Removes the lines from the first one that begins so up to the next one that
// begins like `last`; nothing when one of them is missing.
void removeLines(std::string& text, const std::string& first, const std::string& last) {
  const std::size_t at = text.find("\n" + first);
  const std::size_t end = at == std::string::npos ? at : text.find("\n" + last, at);
  if (end != std::string::npos) text.erase(at + 1, text.find('\n', end + 1) - at);
}

void replaceAll(std::string& text, const std::string& old, const std::string& by) {
  for (std::size_t at = text.find(old); at != std::string::npos;
       at = text.find(old, at + by.size())) {
    text.replace(at, old.size(), by);
  }
}

}  // namespace

std::string withoutPstopsTexts(std::string job, const ppd_file_t& ppd) {
  removeLines(job, "% x y w h ESPrc", "userdict/ESPwl");
  removeLines(job, "% Disable CTRL-D", "userdict dup(\\004)");
  removeLines(job, "%RBINumCopies: ", "%RBINumCopies: ");
  removeLines(job, "%%Requirements: ", "%%Requirements: ");
  if (ppd.patches != nullptr) {
    removeOnce(job,
               "%%BeginFeature: *JobPatchFile 1\n" + std::string(ppd.patches) + "\n%%EndFeature\n");
  }
  const bool endsForAnother = ppd.jcl_end == nullptr && ppd.num_filters > 0;
  if (endsForAnother && job.ends_with('\x04')) job.pop_back();
  return job;
}

std::string expectedOfConverted(const std::string& converted, const std::string& direct) {
  const std::size_t begin = direct.find(kDocumentBegin);
  const std::size_t end = direct.rfind(kDocumentEnd);
  const std::size_t bodyBegin = converted.find(kDocumentBegin);
  const std::size_t bodyEnd = converted.rfind(kDocumentEnd);
  if (begin == std::string::npos || end == std::string::npos) return "";
  if (bodyBegin == std::string::npos || bodyEnd == std::string::npos) return "";
  std::string body = converted.substr(bodyBegin, bodyEnd + kDocumentEnd.size() - bodyBegin);
  for (const Place& place : kPlaces) {
    const std::string mark = place.begin;
    const std::size_t section = direct.find(mark, begin) + mark.size();
    const std::size_t after = direct.find(place.end, section);
    if (after == std::string::npos) return "";
    replaceAll(body, mark, mark + direct.substr(section, after - section));
  }
  std::string last = direct.substr(end + kDocumentEnd.size());
  // What pstops writes for another filter's sake passes.
  const bool isForAnother = converted.substr(bodyEnd + kDocumentEnd.size()) == "\x04";
  if (isForAnother && last.empty()) last = "\x04";
  return direct.substr(0, begin) + body + last;
}

}  // namespace driver_feature
