// Puts the sections of a description into a PostScript job, by the job's
// structure comments (%%BeginSetup and so on).
//
// - The header goes in front of the job, once it shows that it is PostScript.
// - Prolog, document set-up and page set-up go to the beginning of the job's
//   own; where it has none, one is added at its place. A job without structure
//   gets all of them after its header comments.
// - Binary data, embedded documents and lines of any length pass untouched.
//
// A PJL header that the job brings with it is taken off, and so is its PJL
// trailer: the description's take their place. A trailer is what an exit begins
// and nothing but PJL follows; data that holds an exit passes.
#ifndef PROGRAMS_FILTER_JOB_STRUCTURE_H_
#define PROGRAMS_FILTER_JOB_STRUCTURE_H_

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "programs/filter/byte_sink.h"
#include "programs/filter/line_cutter.h"
#include "programs/filter/page_count.h"
#include "programs/filter/sections.h"

namespace driver_feature::filter {

class JobStructure : public ByteSink, private LineListener {
 public:
  // What the job has shown so far.
  enum class Kind {
    kUnknown,        // Nothing but what may come before it.
    kPostScript,     // The header is written.
    kNotPostScript,  // Nothing is written and nothing will be.
  };

  // `reportPage` gets the number of each page, as PageCount counts them. The
  // sink must outlive this object.
  JobStructure(Sections sections, ByteSink& sink, std::function<void(long)> reportPage);

  void put(std::string_view bytes) override { lines_.take(bytes); }

  // The job came with PJL that has been taken off before.
  void noteTakenPjl() { hasPjl_ = true; }

  // The job has ended.
  void finish();

  Kind kind() const { return kind_; }

  // Whether another document follows the PJL trailer that was taken off. It is
  // not printed.
  bool hasSecondDocument() const { return hasSecondDocument_; }

  // The pages so far.
  const PageCount& pageCount() const { return pages_; }

  // Whether the document set-up has been written, or is empty.
  bool isSetUp() const { return isSetUp_ || sections_.documentSetup.empty(); }

 private:
  // Which part of the job the next line is in.
  enum class Place {
    kFront,         // Before the PostScript.
    kHeader,        // In the header comments.
    kBehindHeader,  // After them, and no prolog yet.
    kProlog,
    kBehindProlog,
    kSetup,
    kBehindSetup,  // Also between pages.
    kPageHeader,   // After %%Page, and no code of the page yet.
    kPage,
    kBehindJob,  // In another document, which is left out.
  };

  void takeLine(const JobLine& line) override;
  void takeBytes(std::string_view bytes) override;

  void countPages(const JobLine& line);
  void endStructure();
  bool takeTrailer(const JobLine& line);
  bool holdsTrailer(const JobLine& line);
  void releaseTrailer();
  bool takeEmbedded(const JobLine& line, std::string_view keyword);
  void beginEmbedded(const JobLine& line, std::string_view keyword);
  // Each returns whether it has dealt with the line; otherwise the place has
  // changed.
  bool takeAt(const JobLine& line, std::string_view keyword);
  bool takeFront(const JobLine& line);
  bool takePjlInFront(std::string_view text);
  bool takeHeader(const JobLine& line, std::string_view keyword);
  bool takeBehindHeader(const JobLine& line, std::string_view keyword);
  bool takeProlog(const JobLine& line, std::string_view keyword);
  bool takeBehindProlog(const JobLine& line, std::string_view keyword);
  bool takeSetup(const JobLine& line, std::string_view keyword);
  bool takePageHeader(const JobLine& line, std::string_view keyword);
  bool takeRest(const JobLine& line, std::string_view keyword);

  bool pass(const JobLine& line);
  void passAndWrite(const JobLine& line, std::string_view text);
  void writeBlock(const std::string& name, std::string_view text);
  void openProlog();
  void closeProlog();
  void openSetup();
  void closeSetup();
  void writeWholeSetup();
  void writeUnstructured();

  Sections sections_;
  ByteSink& sink_;
  LineCutter lines_;
  Kind kind_ = Kind::kUnknown;
  Place place_ = Place::kFront;
  std::string waitingFor_;       // The comment that ends a block which is skipped.
  std::string_view bytesEnd_;    // What ends the data being skipped; empty outside.
  std::uint64_t dataLines_ = 0;  // Lines of data still to skip.
  long documents_ = 0;           // Embedded documents around this line.
  PageCount pages_;
  bool promisesPages_ = false;  // The header comments give a number of pages.
  bool hasPjl_ = false;         // The job came with a PJL header.
  bool ownProlog_ = false;      // A prolog was begun here and has no end yet.
  bool ownSetup_ = false;       // Likewise the document set-up.
  bool isSetUp_ = false;
  bool lineHasEnd_ = true;  // The line that was passed last.
  // What may be the PJL trailer: lines and their ends.
  std::vector<std::pair<std::string, std::string>> trailer_;
  bool trailerEnters_ = false;  // It enters a language: another document follows.
  bool isDropping_ = false;     // The rest of a long line is dropped, too.
  bool hasSecondDocument_ = false;
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_JOB_STRUCTURE_H_
