#include "programs/filter/job_structure.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "programs/filter/pjl_line.h"
#include "programs/filter/structure_comment.h"

namespace driver_feature::filter {

namespace {

bool isOneOf(std::string_view keyword, std::initializer_list<std::string_view> keywords) {
  return std::find(keywords.begin(), keywords.end(), keyword) != keywords.end();
}

// Whether the pages, or the end of the job, come next.
bool endsSetup(std::string_view keyword) {
  return isOneOf(keyword, {"Page", "Trailer", "EOF"});
}

// Whether the comment begins what only a prolog or a part after it holds.
bool showsStructure(std::string_view keyword) {
  return endsSetup(keyword) || isOneOf(keyword, {"EndProlog", "BeginSetup", "BeginResource",
                                                 "BeginProcSet", "BeginFont", "BeginFile"});
}

}  // namespace

JobStructure::JobStructure(Sections sections, ByteSink& sink, std::function<void(long)> reportPage)
    : sections_(std::move(sections)), sink_(sink), lines_(*this), pages_(std::move(reportPage)) {}

void JobStructure::finish() {
  lines_.finish();
  endStructure();
}

void JobStructure::endStructure() {
  if (place_ != Place::kHeader && place_ != Place::kBehindHeader) return;
  if (!lineHasEnd_) sink_.put("\n");
  if (place_ == Place::kHeader) sink_.put(sections_.exitServer);
  writeUnstructured();
}

void JobStructure::takeLine(const JobLine& line) {
  const std::string_view keyword = line.isWhole ? keywordOf(line.text) : "";
  isDropping_ = false;
  countPages(line);
  if (takeEmbedded(line, keyword) || takeTrailer(line)) return;
  while (!takeAt(line, keyword)) {
  }
  beginEmbedded(line, keyword);
}

// Lines of data are none of the document's own.
void JobStructure::countPages(const JobLine& line) {
  if (kind_ != Kind::kPostScript || place_ == Place::kBehindJob || dataLines_ > 0) return;
  if (!line.text.starts_with('%')) {
    pages_.takeCode();
  } else if (line.isWhole) {
    pages_.take(line.text);
  }
}

void JobStructure::takeBytes(std::string_view bytes) {
  if (!isDropping_) sink_.put(bytes);
}

// Data and documents in the job have lines of their own, which mean nothing.
bool JobStructure::takeEmbedded(const JobLine& line, std::string_view keyword) {
  if (dataLines_ > 0) {
    --dataLines_;
    return pass(line);
  }
  if (!bytesEnd_.empty()) {
    if (keyword == bytesEnd_) bytesEnd_ = "";
    return pass(line);
  }
  if (documents_ == 0) return false;
  if (keyword == "EndDocument") --documents_;
  pass(line);
  beginEmbedded(line, keyword);
  return true;
}

void JobStructure::beginEmbedded(const JobLine& line, std::string_view keyword) {
  if (kind_ != Kind::kPostScript) return;
  if (keyword == "BeginDocument") ++documents_;
  if (keyword != "BeginBinary" && keyword != "BeginData") return;
  const DataExtent extent = dataExtent(line.text);
  bytesEnd_ = keyword == "BeginBinary" ? "EndBinary" : "EndData";
  if (extent.isLines) {
    dataLines_ = extent.count;
  } else {
    lines_.passOn(extent.count);
  }
}

bool JobStructure::takeAt(const JobLine& line, std::string_view keyword) {
  switch (place_) {
    case Place::kFront:
      return takeFront(line);
    case Place::kHeader:
      return takeHeader(line, keyword);
    case Place::kBehindHeader:
      return takeBehindHeader(line, keyword);
    case Place::kProlog:
      return takeProlog(line, keyword);
    case Place::kBehindProlog:
      return takeBehindProlog(line, keyword);
    case Place::kSetup:
      return takeSetup(line, keyword);
    case Place::kPageHeader:
      return takePageHeader(line, keyword);
    default:
      return takeRest(line, keyword);
  }
}

bool JobStructure::takeFront(const JobLine& line) {
  isDropping_ = true;
  if (kind_ == Kind::kNotPostScript) return true;
  hasPjl_ = hasPjl_ || beginsWithExit(line.text) || line.text.starts_with("@PJL");
  const std::string_view text = withoutExits(line.text);
  if (!text.starts_with("%!")) {
    if (!takePjlInFront(text)) kind_ = Kind::kNotPostScript;
    return true;
  }
  isDropping_ = false;
  kind_ = Kind::kPostScript;
  sink_.put(sections_.header);
  pages_.begin(text);
  place_ = Place::kHeader;
  return pass({text, line.end, line.isWhole});
}

// Blank lines and PJL may come before PostScript, but no PJL that enters
// another language.
bool JobStructure::takePjlInFront(std::string_view text) {
  if (text.find_first_not_of(" \t") == std::string_view::npos) return true;
  return hasPjl_ && text.starts_with("@PJL") && !entersOtherLanguage(text);
}

bool JobStructure::takeHeader(const JobLine& line, std::string_view keyword) {
  if (keyword == "EndComments") {
    passAndWrite(line, sections_.exitServer);
    place_ = Place::kBehindHeader;
    return true;
  }
  if (isHeaderComment(line.text, keyword)) {
    promisesPages_ = promisesPages_ || keyword == "Pages";
    return pass(line);
  }
  sink_.put(sections_.exitServer);
  place_ = Place::kBehindHeader;
  return false;
}

bool JobStructure::takeBehindHeader(const JobLine& line, std::string_view keyword) {
  if (!waitingFor_.empty()) {
    if (keyword == waitingFor_) waitingFor_.clear();
    return pass(line);
  }
  if (keyword == "BeginDefaults" || keyword == "BeginPreview") {
    waitingFor_ = "End" + std::string(keyword.substr(5));
    return pass(line);
  }
  if (keyword == "BeginProlog") {
    passAndWrite(line, sections_.prolog);
    place_ = Place::kProlog;
    return true;
  }
  if (showsStructure(keyword)) {
    openProlog();
    return false;
  }
  if (isCommentOrBlank(line.text) && !keyword.starts_with("Begin")) return pass(line);
  writeUnstructured();
  return false;
}

bool JobStructure::takeProlog(const JobLine& line, std::string_view keyword) {
  if (keyword == "EndProlog") {
    ownProlog_ = false;
    place_ = Place::kBehindProlog;
    return pass(line);
  }
  if (keyword != "BeginSetup" && keyword != "EndSetup" && !endsSetup(keyword)) return pass(line);
  closeProlog();
  return false;
}

bool JobStructure::takeBehindProlog(const JobLine& line, std::string_view keyword) {
  if (keyword == "BeginSetup") {
    passAndWrite(line, sections_.documentSetup);
    isSetUp_ = true;
    place_ = Place::kSetup;
    return true;
  }
  if (endsSetup(keyword)) {
    writeWholeSetup();
    return false;
  }
  const bool mayStand = isCommentOrBlank(line.text) && !keyword.starts_with("Begin");
  if (mayStand && keyword != "EndSetup") return pass(line);
  openSetup();
  return false;
}

bool JobStructure::takeSetup(const JobLine& line, std::string_view keyword) {
  if (keyword == "EndSetup") {
    ownSetup_ = false;
    place_ = Place::kBehindSetup;
  } else if (keyword == "BeginSetup" || endsSetup(keyword)) {
    closeSetup();
    return false;
  }
  return pass(line);
}

bool JobStructure::takePageHeader(const JobLine& line, std::string_view keyword) {
  if (keyword == "BeginPageSetup") {
    passAndWrite(line, sections_.pageSetup);
    place_ = Place::kPage;
    return true;
  }
  const bool isPart = keyword.starts_with("Begin") || keyword.starts_with("End");
  if (isCommentOrBlank(line.text) && !isPart && !endsSetup(keyword)) return pass(line);
  writeBlock("PageSetup", sections_.pageSetup);
  place_ = Place::kPage;
  return false;
}

bool JobStructure::takeRest(const JobLine& line, std::string_view keyword) {
  if (keyword == "Page") place_ = Place::kPageHeader;
  return pass(line);
}

}  // namespace driver_feature::filter
