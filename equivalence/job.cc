#include "equivalence/job.h"

#include <fstream>

namespace driver_feature::equivalence {

std::string jobOf(const OurOutput& output) {
  JobTexts texts;
  std::string rest;
  takeApart(output.postScript, texts, rest);
  const auto& [exitServer, prolog, documentSetup, anySetup, pageSetup] = texts.sections;
  return "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%BeginProlog\n" + prolog +
         "%%EndProlog\n%%BeginSetup\n" + documentSetup + anySetup +
         "%%EndSetup\n%%Page: 1 1\n%%BeginPageSetup\n" + pageSetup +
         "%%EndPageSetup\nshowpage\n%%Trailer\n(" + kJobEnd + "\\n) print flush\n%%EOF\n";
}

bool writeJob(const OurOutput& output, const std::string& file) {
  std::ofstream stream(file, std::ios::binary);
  stream << jobOf(output);
  stream.close();
  return !stream.fail();
}

}  // namespace driver_feature::equivalence
