// Finds where our output differs from that of libcups.
#ifndef EQUIVALENCE_COMPARISON_H_
#define EQUIVALENCE_COMPARISON_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "equivalence/ppd_text.h"

namespace driver_feature::equivalence {

// The first byte of a text that differs, with the text around it on both sides:
// bytes other than printable ASCII are written as \xNN.
struct Difference {
  std::string part;  // A section, "JCL", "JCLEnd", "frame" or a whole job.
  std::size_t offset = 0;
  std::string peerText;  // Whole.
  std::string ourText;
  std::string peer;
  std::string ours;
};

// Our three outputs as the library writes them.
struct OurOutput {
  std::string postScript;
  std::string pjl;
  std::string jclEnd;
};

// Takes PostScript apart by the frame around each section: its text is the one
// between "%DriverSection NAME\n" and "\n%EndDriverSection\n". The sections are
// in the order of kSectionNames; one that is left out is empty. False when
// there is anything outside the frames or a frame is missing, doubled or out of
// order; `rest` then begins where it goes wrong.
bool takeApart(std::string_view postScript, JobTexts& texts, std::string& rest);

// All differences, at most one for each part.
std::vector<Difference> compareTexts(const JobTexts& peer, const OurOutput& ours);

// Adds the difference of two texts, if there is one.
void compareText(const std::string& part, std::string_view peer, std::string_view ours,
                 std::vector<Difference>& differences);

// The number of libcups' bytes that a comparison looks at.
std::size_t sizeOf(const JobTexts& texts);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_COMPARISON_H_
