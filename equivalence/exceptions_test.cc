#include "equivalence/exceptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace driver_feature::equivalence {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

host::Result<Exceptions> read(const std::string& text) {
  std::istringstream input(text);
  return Exceptions::read(input);
}

std::string problemOf(const std::string& text) {
  const auto exceptions = read(text);
  return exceptions ? "none" : exceptions.error().text;
}

TEST(Exceptions, Read_FindsByCauseAndPpd) {
  auto exceptions = read("# text\n\nimport | a/b c.ppd | why | not\n");
  ASSERT_TRUE(exceptions);
  const std::string* reason = exceptions->find("import", "a/b c.ppd");
  ASSERT_NE(reason, nullptr);
  EXPECT_EQ(*reason, "why | not");
  EXPECT_EQ(exceptions->find("import", "a/b d.ppd"), nullptr);
  EXPECT_EQ(exceptions->find("load", "a/b c.ppd"), nullptr);
}

TEST(Exceptions, Read_BadLine_NamesIt) {
  const std::string form = "is not of the form CAUSE | PPD | REASON";
  EXPECT_EQ(problemOf("#\nimport | a.ppd\n"), "line 2: " + form);
  EXPECT_EQ(problemOf("import\n"), "line 1: " + form);
  EXPECT_EQ(problemOf(" | a.ppd | why\n"), "line 1: " + form);
  EXPECT_EQ(problemOf("import |  | why\n"), "line 1: " + form);
  EXPECT_EQ(problemOf("import | a.ppd | \n"), "line 1: " + form);
  EXPECT_EQ(problemOf("import | a.ppd | why\nimport | a.ppd | more\n"),
            "line 2: repeats an earlier line");
}

TEST(Exceptions, Idle_AreThoseOfExaminedPpdsThatWereNotFound) {
  auto exceptions = read("x | a | why\ny | a | why\nx | b | why\n");
  ASSERT_TRUE(exceptions);
  exceptions->find("x", "a");
  EXPECT_THAT(exceptions->idle({"a"}, false), ElementsAre("y | a"));
  EXPECT_THAT(exceptions->idle({"a"}, true), ElementsAre("x | b", "y | a"));
  exceptions->find("y", "a");
  EXPECT_THAT(exceptions->idle({"a"}, false), IsEmpty());
}

}  // namespace

}  // namespace driver_feature::equivalence
