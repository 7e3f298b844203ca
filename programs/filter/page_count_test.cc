#include "programs/filter/page_count.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

namespace driver_feature::filter {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Counted {
  std::vector<long> told;
  int copies = 0;
  bool isStructured = false;
  bool hasTrailer = false;
};

// Counts the pages of a document with these lines.
Counted count(const std::string& document) {
  Counted result;
  PageCount pages([&result](long page) { result.told.push_back(page); });
  std::istringstream lines(document);
  std::string line;
  for (bool isFirst = true; std::getline(lines, line); isFirst = false) {
    if (isFirst) {
      pages.begin(line);
    } else if (line.starts_with('%')) {
      pages.take(line);
    } else {
      pages.takeCode();
    }
  }
  EXPECT_EQ(pages.pages(), static_cast<long>(result.told.size()));
  result.copies = pages.copiesInside();
  result.isStructured = pages.isStructured();
  result.hasTrailer = pages.hasTrailer();
  return result;
}

const std::string kHead = "%!PS-Adobe-3.0\n%%Pages: 5\n%%EndComments\n";
const std::string kSetup = "%%BeginProlog\n%%EndProlog\n%%BeginSetup\n%%EndSetup\n";

TEST(PageCount, NoStructure_IsOnePage) {
  EXPECT_THAT(count("%!\nshowpage\n").told, ElementsAre(1));
  EXPECT_THAT(count("%!PS\n%%Page: 1 1\nshowpage\n%%Page: 2 2\nshowpage\n").told, ElementsAre(1));
  EXPECT_FALSE(count("%!PS\n").isStructured);
}

TEST(PageCount, Comments_CountPagesWhateverIsPromised) {
  EXPECT_THAT(count(kHead + kSetup + "%%Page: 1 1\na\n%%Page: 2 2\nb\n%%Trailer\n%%EOF\n").told,
              ElementsAre(1, 2));
  EXPECT_THAT(count(kHead + "%%Page:1 1\na\n").told, ElementsAre(1));
  EXPECT_THAT(count(kHead + "code\n").told, IsEmpty());
  EXPECT_TRUE(count(kHead).isStructured);
}

TEST(PageCount, CommentWithoutColon_IsNoPage) {
  EXPECT_THAT(count(kHead + "%%Page 1 1\n%%Pages: 2\n").told, IsEmpty());
}

// Comments belong to the header up to the first line of code or its end.
TEST(PageCount, HeaderWithoutEnd_TakesTheFirstPage) {
  EXPECT_THAT(count("%!PS-Adobe-3.0\n%%Page: 1 1\na\n%%Page: 2 2\nb\n").told, ElementsAre(1));
  EXPECT_THAT(count("%!PS-Adobe-3.0\n\n%%Page: 1 1\na\n").told, ElementsAre(1));
}

TEST(PageCount, DocumentsInPages_AreNotCounted) {
  EXPECT_THAT(count(kHead + "%%Page: 1 1\n%%BeginDocument: a\n%%Page: 1 1\n%%BeginDocument: b\n"
                            "%%EndDocument\n%%EOF\n%%Page: 2 2\n%%EndDocument\n%%Page: 2 2\n")
                  .told,
              ElementsAre(1, 2));
  EXPECT_THAT(count(kHead + "%%Page: 1 1\n%ADO_BeginApplication\n%%Page: 1 1\n"
                            "%ADO_EndApplication\n%%Page: 2 2\n")
                  .told,
              ElementsAre(1, 2));
  // An end without a beginning ends nothing.
  EXPECT_THAT(count(kHead + "%%Page: 1 1\n%%EndDocument\n%%BeginDocument: a\n%%Page: 1 1\n").told,
              ElementsAre(1));
}

TEST(PageCount, Trailer_EndsThePages) {
  for (const std::string end : {"%%Trailer\n", "%%EOF\n"}) {
    EXPECT_THAT(count(kHead + "%%Page: 1 1\na\n" + end + "%%Page: 2 2\nb\n").told, ElementsAre(1))
        << end;
  }
  EXPECT_THAT(count(kHead + kSetup + "%%Trailer\n%%Page: 1 1\n").told, IsEmpty());
  // What looks like a trailer in front of the set-up's end is none.
  EXPECT_THAT(count(kHead + "%%EndSetup\n%%Trailer\n%%Page: 1 1\n").told, ElementsAre(1));
}

TEST(PageCount, Trailer_IsSeenEverywhere) {
  EXPECT_FALSE(count(kHead + "%%Page: 1 1\n%%EOF\n").hasTrailer);
  EXPECT_TRUE(count(kHead + "%%Page: 1 1\n%%BeginDocument: a\n%%Trailer\n").hasTrailer);
  EXPECT_TRUE(count(kHead + "%%Trailer\n").hasTrailer);
}

TEST(PageCount, SecondDocument_IsCountedToo) {
  const std::string document = kHead + kSetup + "%%Page: 1 1\na\n%%Trailer\n%%EOF\n";
  EXPECT_THAT(count(document + document).told, ElementsAre(1, 2));
  EXPECT_THAT(count("%!\na\n" + document).told, ElementsAre(1));
}

TEST(PageCount, CopiesInside_AreThoseOfTheHeader) {
  EXPECT_EQ(count(kHead).copies, 1);
  EXPECT_EQ(count("%!PS-Adobe-3.0\n%RBINumCopies: 12\n%%EndComments\n").copies, 12);
  EXPECT_EQ(count("%!PS-Adobe-3.0\n%RBINumCopies:3\n%%EndComments\n").copies, 3);
  for (const std::string bad : {"", " ", " -2", " 0", " many"}) {
    EXPECT_EQ(count("%!PS-Adobe-3.0\n%RBINumCopies:" + bad + "\n").copies, 1) << bad;
  }
  EXPECT_EQ(count(kHead + "%RBINumCopies: 3\n").copies, 1);
}

}  // namespace
}  // namespace driver_feature::filter
