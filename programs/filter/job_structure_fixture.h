// Jobs for the tests of JobStructure, and what it makes of them.
#ifndef PROGRAMS_FILTER_JOB_STRUCTURE_FIXTURE_H_
#define PROGRAMS_FILTER_JOB_STRUCTURE_FIXTURE_H_

#include <string>
#include <string_view>
#include <vector>

#include "programs/filter/job_structure.h"
#include "programs/filter/memory_sink.h"
#include "programs/filter/sections.h"

namespace driver_feature::filter {

struct Outcome {
  std::string text;
  std::vector<long> pages;
  JobStructure::Kind kind = JobStructure::Kind::kUnknown;
  bool isSetUp = false;
  bool hasSecondDocument = false;
};

inline Sections allSections() {
  return {"<header>", "exit\n", "prolog\n", "document\n", "page\n"};
}

// The result for a job that comes in pieces of that many bytes.
inline Outcome run(const std::string& job, std::size_t piece,
                   const Sections& sections = allSections()) {
  MemorySink memory;
  Outcome outcome;
  JobStructure structure(sections, memory,
                         [&outcome](long page) { outcome.pages.push_back(page); });
  for (std::size_t at = 0; at < job.size(); at += piece) {
    structure.put(std::string_view(job).substr(at, piece));
  }
  structure.finish();
  outcome.text = memory.text;
  outcome.kind = structure.kind();
  outcome.isSetUp = structure.isSetUp();
  outcome.hasSecondDocument = structure.hasSecondDocument();
  return outcome;
}

// The same text, whatever the pieces are.
inline std::string written(const std::string& job, const Sections& sections = allSections()) {
  std::string text = run(job, job.size() + 1, sections).text;
  for (std::size_t piece = 1; piece < job.size(); ++piece) {
    const std::string other = run(job, piece, sections).text;
    if (other != text) return "with pieces of " + std::to_string(piece) + ": " + other;
  }
  return text;
}

// A job with that text on a page, and what is written for it: no comment in the text
// may change where the sections go.
inline std::string jobWith(const std::string& inside) {
  return "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%BeginProlog\n%%EndProlog\n%%BeginSetup\n"
         "%%EndSetup\n%%Page: 1 1\n%%BeginPageSetup\n%%EndPageSetup\n" +
         inside + "showpage\n%%Page: 2 2\n%%BeginPageSetup\n";
}

inline std::string writtenWith(const std::string& inside) {
  return "<header>%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\nexit\n%%BeginProlog\nprolog\n"
         "%%EndProlog\n%%BeginSetup\ndocument\n%%EndSetup\n%%Page: 1 1\n%%BeginPageSetup\npage\n"
         "%%EndPageSetup\n" +
         inside + "showpage\n%%Page: 2 2\n%%BeginPageSetup\npage\n";
}

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_JOB_STRUCTURE_FIXTURE_H_
