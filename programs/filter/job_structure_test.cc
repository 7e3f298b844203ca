// Where the sections of a description go in jobs of every structure.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "programs/filter/job_structure_fixture.h"

namespace driver_feature::filter {
namespace {

using testing::ElementsAre;

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

const std::string kWhole =
    "%!PS-Adobe-3.0\n%%Pages: 2\n%%EndComments\n%%BeginProlog\n/p 1 def\n%%EndProlog\n"
    "%%BeginSetup\n/s 1 def\n%%EndSetup\n%%Page: 1 1\n%%BeginPageSetup\n/q 1 def\n%%EndPageSetup\n"
    "showpage\n%%Page: 2 2\n%%BeginPageSetup\n%%EndPageSetup\nshowpage\n%%Trailer\n%%EOF\n";
const std::string kWholeWritten =
    "<header>%!PS-Adobe-3.0\n%%Pages: 2\n%%EndComments\nexit\n%%BeginProlog\nprolog\n/p 1 def\n"
    "%%EndProlog\n%%BeginSetup\ndocument\n/s 1 def\n%%EndSetup\n%%Page: 1 1\n%%BeginPageSetup\n"
    "page\n/q 1 def\n%%EndPageSetup\nshowpage\n%%Page: 2 2\n%%BeginPageSetup\npage\n"
    "%%EndPageSetup\nshowpage\n%%Trailer\n%%EOF\n";

TEST(JobStructure, JobWithEveryPart_GetsEachSectionAtItsBeginning) {
  EXPECT_EQ(written(kWhole), kWholeWritten);
  EXPECT_THAT(run(kWhole, 1).pages, ElementsAre(1, 2));
  EXPECT_TRUE(run(kWhole, 1).isSetUp);
}

TEST(JobStructure, OtherLineEnds_StayAsTheyAre) {
  for (const std::string end : {"\r", "\r\n"}) {
    std::string expected = replaced(kWholeWritten, "\n", end);
    for (const std::string text : {"exit", "prolog", "document"}) {
      expected = replaced(expected, end + text + end, end + text + "\n");
    }
    expected = replaced(expected, end + "page" + end, end + "page\n");
    EXPECT_EQ(written(replaced(kWhole, "\n", end)), expected) << end.size();
  }
}

TEST(JobStructure, NoSections_ChangesNothing) {
  EXPECT_EQ(written(kWhole, Sections()), kWhole);
  const std::string missing = "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\nshowpage\n";
  EXPECT_EQ(written(missing, Sections()), missing);
  EXPECT_EQ(written("%!PS\nshowpage", Sections()), "%!PS\nshowpage");
  EXPECT_TRUE(run("%!PS\nshowpage", 1, Sections()).isSetUp);
}

TEST(JobStructure, MissingParts_AreAdded) {
  EXPECT_EQ(written("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n%%PageBoundingBox: 0 "
                    "0 9 9\n%%+ more\nshowpage\n%%EOF\n"),
            "<header>%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\nexit\n%%BeginProlog\nprolog\n"
            "%%EndProlog\n%%BeginSetup\ndocument\n%%EndSetup\n%%Page: 1 1\n%%PageBoundingBox: 0 0 "
            "9 9\n%%+ more\n%%BeginPageSetup\npage\n%%EndPageSetup\nshowpage\n%%EOF\n");
}

TEST(JobStructure, PrologWithoutBegin_GoesOnInTheAddedOne) {
  EXPECT_EQ(written("%!PS-Adobe-2.0\n%%Pages: 1\n%%EndComments\n%%BeginProcSet: a\n/p 1 def\n"
                    "%%EndProcSet\n%%EndProlog\n%%Page: 1 1\nshowpage\n"),
            "<header>%!PS-Adobe-2.0\n%%Pages: 1\n%%EndComments\nexit\n%%BeginProlog\nprolog\n"
            "%%BeginProcSet: a\n/p 1 def\n%%EndProcSet\n%%EndProlog\n%%BeginSetup\ndocument\n"
            "%%EndSetup\n%%Page: 1 1\n%%BeginPageSetup\npage\n%%EndPageSetup\nshowpage\n");
}

TEST(JobStructure, PrologWithoutEnd_IsEndedBeforeTheSetup) {
  EXPECT_EQ(written("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%BeginProcSet: a\n%%EndProcSet\n"
                    "%%BeginSetup\n%%EndSetup\n%%Page: 1 1\n%%BeginPageSetup\n"),
            "<header>%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\nexit\n%%BeginProlog\nprolog\n"
            "%%BeginProcSet: a\n%%EndProcSet\n%%EndProlog\n%%BeginSetup\ndocument\n%%EndSetup\n"
            "%%Page: 1 1\n%%BeginPageSetup\npage\n");
}

TEST(JobStructure, CodeAfterTheProlog_BeginsTheSetup) {
  EXPECT_EQ(written("%!PS-Adobe-2.0\n%%Pages: 1\n%%EndComments\n%%BeginProlog\n%%EndProlog\n\n"
                    "% a note\n/s 1 def\n%%EndSetup\n%%Page: 1 1\n%%BeginPageSetup\n"),
            "<header>%!PS-Adobe-2.0\n%%Pages: 1\n%%EndComments\nexit\n%%BeginProlog\nprolog\n"
            "%%EndProlog\n\n% a note\n%%BeginSetup\ndocument\n/s 1 def\n%%EndSetup\n%%Page: 1 1\n"
            "%%BeginPageSetup\npage\n");
  EXPECT_EQ(written("%!PS-Adobe-2.0\n%%Pages: 1\n%%EndComments\n%%BeginProlog\n%%EndProlog\n"
                    "/s 1 def\n%%Page: 1 1\n%%BeginPageSetup\n"),
            "<header>%!PS-Adobe-2.0\n%%Pages: 1\n%%EndComments\nexit\n%%BeginProlog\nprolog\n"
            "%%EndProlog\n%%BeginSetup\ndocument\n/s 1 def\n%%EndSetup\n%%Page: 1 1\n"
            "%%BeginPageSetup\npage\n");
}

TEST(JobStructure, EncapsulatedPageWithoutPageComments_GetsPageSetupOnce) {
  EXPECT_EQ(written("%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 9 9\n%%EndComments\n"
                    "%%BeginProlog\n%%EndProlog\n0 0 moveto\nshowpage\n%%EOF\n"),
            "<header>%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 9 9\n%%EndComments\nexit\n"
            "%%BeginProlog\nprolog\n%%EndProlog\n%%BeginSetup\ndocument\npage\n0 0 moveto\n"
            "showpage\n%%EndSetup\n%%EOF\n");
}

TEST(JobStructure, JobWithoutStructure_GetsAllAfterItsFirstComments) {
  const std::string all =
      "exit\n%%BeginProlog\nprolog\n%%EndProlog\n%%BeginSetup\ndocument\npage\n%%EndSetup\n";
  EXPECT_EQ(written("%!\n0 0 moveto\nshowpage\n"), "<header>%!\n" + all + "0 0 moveto\nshowpage\n");
  EXPECT_EQ(written("%!PS-Adobe-3.0\n%%Title: a\n%%Pages: 1\ncode\n"),
            "<header>%!PS-Adobe-3.0\n%%Title: a\n%%Pages: 1\n" + all + "code\n");
  EXPECT_EQ(
      written("%!PS\n%%EndComments\n% note\n\ncode\n"),
      "<header>%!PS\n%%EndComments\n" + replaced(all, "exit\n", "exit\n% note\n\n") + "code\n");
  EXPECT_EQ(written("%!PS"), "<header>%!PS\n" + all);
  EXPECT_EQ(written("%!PS\n%%EndComments"), "<header>%!PS\n%%EndComments\n" + all);
}

TEST(JobStructure, HeaderWithoutEnd_EndsAtTheNextPart) {
  const std::string front =
      "<header>%!PS-Adobe-3.0\n%%Pages: 1\nexit\n%%BeginProlog\nprolog\n%%EndProlog\n";
  for (const std::string next : {"%%Trailer\n", "%%EOF\n", "%%Page: 1 1\n"}) {
    EXPECT_EQ(written("%!PS-Adobe-3.0\n%%Pages: 1\n" + next),
              front + "%%BeginSetup\ndocument\n%%EndSetup\n" + next);
  }
  EXPECT_EQ(written("%!PS-Adobe-3.0\n%%Pages: 1\n%%BeginSetup\n"),
            front + "%%BeginSetup\ndocument\n");
}

TEST(JobStructure, DefaultsAndPreview_StayInFrontOfTheProlog) {
  EXPECT_EQ(written("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%BeginPreview: 8 1 1 1\n% FF\n"
                    "%%EndPreview\n%%BeginDefaults\n%%PageMedia: a\n%%EndDefaults\n%%BeginProlog\n"
                    "%%EndProlog\n%%BeginSetup\n"),
            "<header>%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\nexit\n%%BeginPreview: 8 1 1 1\n% "
            "FF\n%%EndPreview\n%%BeginDefaults\n%%PageMedia: a\n%%EndDefaults\n%%BeginProlog\n"
            "prolog\n%%EndProlog\n%%BeginSetup\ndocument\n");
}

TEST(JobStructure, EmbeddedDocuments_PassUntouched) {
  for (const std::string inside :
       {"%%BeginDocument: a.eps\n%!PS-Adobe-3.0 EPSF\n%%Page: 1 "
        "1\n%%BeginPageSetup\n%%EndDocument\n",
        "%%BeginDocument: a\n%%BeginDocument: b\n%%EndDocument\n%%Page: 9 9\n%%EndDocument\n",
        "%%BeginDocument: a\n%%BeginBinary: 16\n\n%%EndDocument\n.\n%%EndBinary\n%%Page: 9 9\n"
        "%%EndDocument\n"}) {
    EXPECT_EQ(written(jobWith(inside)), writtenWith(inside));
    EXPECT_THAT(run(jobWith(inside), 1).pages, ElementsAre(1, 2)) << inside;
  }
}

TEST(JobStructure, BinaryData_PassesUntouched) {
  for (const std::string& inside :
       {std::string("%%BeginBinary: 13\n%%Page: 3 3\r\n%%EndBinary\n"),
        std::string("%%BeginBinary: 14\nx\0\n%%Page: 3 3\n%%EndBinary\n", 45),
        std::string("%%BeginData: 13 Binary Bytes\n%%Page: 3 3\r\n%%EndData\n"),
        std::string("%%BeginData: 2 ASCII Lines\n%%EndData\n%%Page: 3 3\n%%EndData\n"),
        std::string("%%BeginData: 3 ASCII Lines\nab\n%%EndData\n%%Page: 3 3\n%%EndData\n")}) {
    EXPECT_EQ(written(jobWith(inside)), writtenWith(inside));
    EXPECT_THAT(run(jobWith(inside), 1).pages, ElementsAre(1, 2)) << inside;
  }
  const std::string unknown = "%%BeginData: many\n%%Page: 3 3\n%%EndData\n";
  EXPECT_EQ(written(jobWith(unknown)), writtenWith(unknown));
}

TEST(JobStructure, EveryByte_Passes) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  const std::string inside = "%%BeginBinary: 256\n" + bytes + "\n%%EndBinary\n(" + bytes + ")\n";
  EXPECT_EQ(written(jobWith(inside)), writtenWith(inside));
}

TEST(JobStructure, LineOfHundredMegabytes_PassesInPieces) {
  class Counter : public ByteSink {
   public:
    void put(std::string_view bytes) override {
      count += bytes.size();
      longest = std::max(longest, bytes.size());
    }
    std::uint64_t count = 0;
    std::size_t longest = 0;
  };
  Counter counter;
  JobStructure structure(allSections(), counter, [](long) {});
  structure.put("%!PS-Adobe-3.0\n%%Pages: 1\n");
  const std::uint64_t before = counter.count;
  const std::string piece(65536, '%');
  for (int i = 0; i < 1600; ++i) structure.put(piece);
  structure.finish();
  // After the line, which is a header comment, come its line end and the texts with their
  // comments.
  EXPECT_EQ(counter.count - before, 1600U * 65536U + 1 + 5 + 33 + 38);
  EXPECT_LE(counter.longest, 65536U);
}

TEST(JobStructure, PrologWithoutEndAndPages_LeavesTheSetupOut) {
  const Outcome outcome =
      run("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%BeginProlog\ncode\n", 1);
  EXPECT_FALSE(outcome.isSetUp);
  EXPECT_EQ(outcome.text,
            "<header>%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\nexit\n%%BeginProlog\nprolog\n"
            "code\n");
}

}  // namespace
}  // namespace driver_feature::filter
