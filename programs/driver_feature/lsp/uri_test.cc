#include "programs/driver_feature/lsp/uri.h"

#include <gtest/gtest.h>

namespace driver_feature::cli {

namespace {

TEST(Uri, PathOf_File_IsItsPath) {
  EXPECT_EQ(pathOf("file:///home/a/b.xml"), "/home/a/b.xml");
  EXPECT_EQ(pathOf("FILE://localhost/b.xml"), "/b.xml");
  EXPECT_EQ(pathOf("file:///a%20b/%C3%BC%2f%25.xml"), "/a b/\xC3\xBC/%.xml");
}

TEST(Uri, PathOf_WrongEscapes_StayAsTheyAre) {
  EXPECT_EQ(pathOf("file:///%zz%1%+1%"), "/%zz%1%+1%");
}

TEST(Uri, PathOf_OtherNames_StayAsTheyAre) {
  EXPECT_EQ(pathOf("untitled:a%20b"), "untitled:a%20b");
  EXPECT_EQ(pathOf("a.xml"), "a.xml");
  EXPECT_EQ(pathOf("file://"), "");
  EXPECT_EQ(pathOf(""), "");
}

}  // namespace

}  // namespace driver_feature::cli
