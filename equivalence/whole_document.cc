#include "equivalence/whole_document.h"

#include <array>
#include <string_view>

namespace driver_feature::equivalence {

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

// The place of each section in the document: between these.
struct Place {
  const char* begin;
  const char* end;
};
constexpr std::array<Place, 4> kPlaces = {{{"%%EndComments\n", "%%BeginProlog\n"},
                                           {"%%BeginProlog\n", "/pageText { 72"},
                                           {"%%BeginSetup\n", "/Helvetica 12 selectfont\n"},
                                           {"%%BeginPageSetup\n", "%%EndPageSetup\n"}}};

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

// The text between two marks; empty without them.
std::string textBetween(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t at = text.find(begin);
  const std::size_t last = at == std::string::npos ? at : text.find(end, at + begin.size());
  if (last == std::string::npos) return "";
  return text.substr(at + begin.size(), last - at - begin.size());
}

std::string afterCodes(const std::string& text) {
  const std::string codeEnd = "} stopped cleartomark\n";
  const std::size_t at = text.rfind(codeEnd);
  return at == std::string::npos ? text : text.substr(at + codeEnd.size());
}

}  // namespace

std::string withoutJobPatch(std::string job, const ppd_file_t& ppd) {
  if (ppd.patches == nullptr) return job;
  const std::string patch =
      "%%BeginFeature: *JobPatchFile 1\n" + std::string(ppd.patches) + "\n%%EndFeature\n";
  const std::size_t at = job.find(patch);
  if (at != std::string::npos) job.erase(at, patch.size());
  return job;
}

std::string withoutPstopsProcedures(std::string job) {
  removeLines(job, "% x y w h ESPrc", "userdict/ESPwl");
  removeLines(job, "% Disable CTRL-D", "userdict dup(\\004)");
  removeLines(job, "%RBINumCopies: ", "%RBINumCopies: ");
  removeLines(job, "%%Requirements: ", "%%Requirements: ");
  return job;
}

std::string withoutPstopsTexts(std::string job, const ppd_file_t& ppd) {
  job = withoutPstopsProcedures(std::move(job));
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
    std::string text = direct.substr(section, after - section);
    // What pstops has done to the pages of both, after libcups' codes.
    const std::string there = afterCodes(textBetween(body, mark, place.end));
    if (text.ends_with(there)) text.resize(text.size() - there.size());
    replaceAll(body, mark, mark + text);
  }
  std::string last = direct.substr(end + kDocumentEnd.size());
  // The end of file that pstops writes for another filter is kept.
  const bool isForAnother = converted.substr(bodyEnd + kDocumentEnd.size()) == "\x04";
  if (isForAnother && last.empty()) last = "\x04";
  return direct.substr(0, begin) + body + last;
}

}  // namespace driver_feature::equivalence
