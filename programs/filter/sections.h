// The texts that go into a job, each into its own section.
#ifndef PROGRAMS_FILTER_SECTIONS_H_
#define PROGRAMS_FILTER_SECTIONS_H_

#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::filter {

// What is written into a job. Every text that is not empty ends with a line end,
// but for the header, which is written as it is.
struct Sections {
  std::string header;         // In front of the job: PJL.
  std::string exitServer;     // After the header comments.
  std::string prolog;         // At the beginning of the prolog.
  std::string documentSetup;  // At the beginning of the document set-up.
  std::string pageSetup;      // At the beginning of the set-up of each page.
};

// Cuts the PostScript of a description at its section lines:
//
//   %DriverSection NAME
//   ...
//   %EndDriverSection
//
// NAME is ExitServer, Prolog, DocumentSetup, AnySetup or PageSetup. What may
// be in any set-up goes after the document set-up, and so does what is outside
// the sections. A section without an end goes up to the end of the
// text. `unknown` receives the names of other sections, whose texts are taken for document
// set-up, too.
Sections cutSections(std::string_view postScript, std::vector<std::string>& unknown);

// Adds a text, and a line end when it has none.
void appendLines(std::string& text, std::string_view lines);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_SECTIONS_H_
