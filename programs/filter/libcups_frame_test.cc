#include "programs/filter/libcups_frame.h"

#include <gmock/gmock.h>

#include <string>

#include "programs/filter/memory_sink.h"

namespace driver_feature::filter {
namespace {

const std::string kExit = "\x1b%-12345X";
const std::string kDocument = "%!PS-Adobe-3.0\n%%Pages: 1\nshowpage\n%%EOF\n";

LibcupsFrame pjlFrame() {
  LibcupsFrame frame;
  frame.begin = kExit + "@PJL";
  frame.toPostScript = "@PJL ENTER LANGUAGE = POSTSCRIPT \n";
  frame.end = kExit + "@PJL\n@PJL EOJ\n" + kExit;
  return frame;
}

LibcupsFrame headerLikeFrame() {
  LibcupsFrame frame;
  frame.begin = "%!MAKER *JOB BEGIN\n";
  frame.toPostScript = "%!MAKER *JOB BODY\n";
  frame.hasHeaderLike = true;
  frame.end = "%!MAKER *JOB END\n";
  return frame;
}

std::string run(const LibcupsFrame& frame, const std::string& job, std::size_t piece, int& fronts) {
  MemorySink sink;
  LibcupsFrameCutter cutter(frame, sink, [&fronts] { ++fronts; });
  for (std::size_t at = 0; at < job.size(); at += piece) {
    cutter.put(std::string_view(job).substr(at, piece));
  }
  cutter.finish();
  return sink.text;
}

// Whatever the pieces are, `document` is left of the job.
void expect(const LibcupsFrame& frame, const std::string& job, const std::string& document,
            bool hasFront) {
  for (std::size_t piece = 1; piece <= job.size() + 1; ++piece) {
    int fronts = 0;
    EXPECT_EQ(run(frame, job, piece, fronts), document) << piece;
    EXPECT_EQ(fronts, hasFront ? 1 : 0) << piece;
  }
}

TEST(LibcupsFrame, FrontAndEnd_AreTakenOff) {
  const LibcupsFrame frame = pjlFrame();
  for (const std::string& options :
       {std::string("\n"), std::string("\n@PJL SET COPIES=1\r\n"),
        // No PJL, and no line end in front of the change of language.
        std::string("\n!R!CRES;SCRN0;EXIT;\n"), std::string("\n@PJL SET ECONOMODE=%%")}) {
    expect(frame, frame.begin + options + frame.toPostScript + kDocument + frame.end, kDocument,
           true);
  }
  expect(frame, frame.begin + frame.toPostScript + "%!\nshowpage\n", "%!\nshowpage\n", true);
}

TEST(LibcupsFrame, LinesThatLookLikePostScript_BelongToTheFront) {
  const LibcupsFrame frame = headerLikeFrame();
  const std::string front = frame.begin + "%!MAKER\tSHEET\n" + frame.toPostScript;
  expect(frame, front + kDocument + frame.end, kDocument, true);
  expect(frame, front + "%!\nshowpage\n" + frame.end, "%!\nshowpage\n", true);
}

TEST(LibcupsFrame, EmptyChangeOfLanguage_EndsWhereTheDocumentBegins) {
  LibcupsFrame frame = pjlFrame();
  frame.toPostScript = "";
  expect(frame, frame.begin + "\n@PJL SET A=1\n" + kDocument + frame.end, kDocument, true);
  expect(frame, frame.begin + "\n@PJL SET A=1" + kDocument, kDocument, true);
  expect(frame, frame.begin + "\n@PJL SET A=%!\n%!\n", "%!\n", true);
}

TEST(LibcupsFrame, ExitServer_ComesFirst) {
  LibcupsFrame frame = pjlFrame();
  frame.exitServer = "serverdict begin 0 exitserver";
  const std::string front = frame.begin + "\n" + frame.toPostScript;
  expect(frame, frame.exitServer + front + kDocument + frame.end, kDocument, true);
  frame.begin = "";
  expect(frame, frame.exitServer + kDocument, kDocument, true);
  expect(frame, frame.exitServer + "x", frame.exitServer + "x", false);
  expect(frame, "server", "server", false);
}

TEST(LibcupsFrame, FrontOfAnotherOrigin_Stays) {
  const LibcupsFrame frame = pjlFrame();
  const std::string other = frame.begin + "\n@PJL ENTER LANGUAGE=POSTSCRIPT\n" + kDocument;
  expect(frame, other, other, false);
  // Not even when a document with a front of this PPD follows.
  const std::string both = other + frame.begin + "\n" + frame.toPostScript + kDocument;
  expect(frame, both, both, false);
  expect(headerLikeFrame(), headerLikeFrame().begin + both, headerLikeFrame().begin + both, false);
  for (const std::string& job : {kDocument, std::string("%"), std::string(), kExit, frame.begin,
                                 frame.begin + "\n" + frame.toPostScript + "x"}) {
    expect(frame, job, job, false);
  }
}

TEST(LibcupsFrame, LongFront_IsGivenUp) {
  const LibcupsFrame frame = pjlFrame();
  const std::string job = frame.begin + std::string(kLongestFront, 'x') + "\n";
  int fronts = 0;
  MemorySink sink;
  LibcupsFrameCutter cutter(frame, sink, [&fronts] { ++fronts; });
  cutter.put(job);
  EXPECT_EQ(sink.text.size(), job.size());
  EXPECT_EQ(fronts, 0);
}

TEST(LibcupsFrame, EndWithoutAFront_GoesOnlyWhenItIsWrittenAgain) {
  LibcupsFrame frame = pjlFrame();
  frame.begin = "";
  expect(frame, kDocument + frame.end, kDocument + frame.end, false);
  frame.replacesEnd = true;
  expect(frame, kDocument + frame.end, kDocument, false);
  // Data in front of the end, and half an end, are the job's.
  expect(frame, kDocument + frame.end + frame.end, kDocument + frame.end, false);
  expect(frame, kDocument + frame.end + "\n", kDocument + frame.end + "\n", false);
  expect(frame, kDocument + kExit + "@PJL", kDocument + kExit + "@PJL", false);
}

TEST(LibcupsFrame, BytesThatAreNoEnd_AreNotKeptBack) {
  MemorySink sink;
  LibcupsFrameCutter cutter(pjlFrame(), sink, [] {});
  cutter.put(kDocument);
  EXPECT_EQ(sink.text, kDocument);
  cutter.put(kExit);
  EXPECT_EQ(sink.text, kDocument);
  cutter.put("\n");
  EXPECT_EQ(sink.text, kDocument + kExit + "\n");
}

}  // namespace
}  // namespace driver_feature::filter
