// Descriptions whose elements are nested very deep, through the program and
// with little stack: refused in the parser's words, or loaded and written.

#include <sys/resource.h>

#include <gmock/gmock.h>

#include "host/program_runner.h"

namespace {

constexpr int kDeep = 10000;
constexpr int kDeepest = 256;  // That the parser takes.

std::string repeat(const std::string& text, int times) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

int countOf(const std::string& text, const std::string& part) {
  int found = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++found;
  return found;
}

// Elements inside each other, one on each line, with a feature in the last.
std::string nested(const std::string& begin, const std::string& end, int depth) {
  return "<FeatureDescription>\n" + repeat(begin + "\n", depth) +
         "<Feature FeatureType='IntEntry' Name='Copies' DefaultValue='1' PSCommand='%d'"
         " PJLCommand='%d' TESKJTAttributeName='copies' TESKAttributeSyntax='integer'/>" +
         repeat(end, depth) + "</FeatureDescription>\n";
}

const std::string kGroupBegin =
    "<FeatureStaticGroup Name='G' PSCommand='(%s)' PJLCommand='(%s)' TESKJTAttributeName='g'"
    " TESKAttributeSyntax='collection'>";
const std::string kGroupEnd = "</FeatureStaticGroup>";

struct StackSize {
  const char* name;
  rlim_t bytes;
};

class NestingTest : public ProgramTest, public testing::WithParamInterface<StackSize> {
 protected:
  RunResult runWithStack(const std::vector<std::string>& arguments) const {
    return run(arguments, [] {
      const rlimit limit{GetParam().bytes, GetParam().bytes};
      if (setrlimit(RLIMIT_STACK, &limit) != 0) _exit(125);
    });
  }

  // Every command that reads a description refuses this one, where the element
  // one deeper than allowed begins.
  void expectRefusal(const std::string& description, const std::string& place) const {
    write("deep.xml", description);
    const std::string reason = "elements are nested deeper than 256";
    const RunResult expected = failure(
        2, "driver-feature: deep.xml:" + place + ": error: " + reason + "; nest them less deep\n");
    for (const char* form : {"ps", "pjl", "ticket"}) {
      EXPECT_EQ(runWithStack({"emit", "deep.xml", "--to", form}), expected);
    }
    EXPECT_EQ(runWithStack({"dump", "deep.xml"}), expected);
    const RunResult check = runWithStack({"check", "deep.xml"});
    EXPECT_NE(check.status, 0);
    EXPECT_THAT(check.output + check.errors, testing::HasSubstr("deep.xml:" + place));
    EXPECT_THAT(check.output + check.errors, testing::HasSubstr(reason));
    EXPECT_LT(check.status, 3);
  }
};
INSTANTIATE_TEST_SUITE_P(Stack, NestingTest,
                         testing::Values(StackSize{"Usual", rlim_t{8} << 20},
                                         StackSize{"Small", rlim_t{1} << 20}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(NestingTest, StaticGroups_TenThousand_AreRefused) {
  expectRefusal(nested(kGroupBegin, kGroupEnd, kDeep), "257:121");
}

TEST_P(NestingTest, UnknownElements_TenThousand_AreRefused) {
  expectRefusal(nested("<Other>", "</Other>", kDeep), "257:7");
}

TEST_P(NestingTest, Options_TenThousand_AreRefused) {
  expectRefusal("<FeatureDescription>\n<Feature FeatureType='MultiSelect' Name='M'>\n" +
                    repeat("<Option Name='O'>\n", kDeep) + repeat("</Option>", kDeep) +
                    "</Feature></FeatureDescription>\n",
                "257:17");
}

TEST_P(NestingTest, NeverClosedElements_TenThousand_AreRefused) {
  expectRefusal("<FeatureDescription>\n" + repeat(kGroupBegin + "\n", kDeep), "257:121");
}

TEST_P(NestingTest, StaticGroups_AsDeepAsTheParserTakes_AreWritten) {
  const int groups = kDeepest - 2;  // The description and the feature are elements, too.
  write("deep.xml", nested(kGroupBegin, kGroupEnd, groups));
  const std::string text = repeat("(", groups) + "1" + repeat(")", groups);
  EXPECT_EQ(runWithStack({"emit", "deep.xml", "--to", "ps"}), success(text));
  EXPECT_EQ(runWithStack({"emit", "deep.xml", "--to", "pjl"}), success(text));
  const RunResult ticket = runWithStack({"emit", "deep.xml", "--to", "ticket"});
  EXPECT_EQ(ticket.status, 0);
  EXPECT_EQ(countOf(ticket.output, "<Group name=\"g\""), groups);
  EXPECT_EQ(countOf(ticket.output, "</Group>"), groups);
  EXPECT_EQ(countOf(ticket.output, "<Command name=\"copies\""), 1);
  EXPECT_EQ(runWithStack({"dump", "deep.xml"}).status, 0);
  EXPECT_EQ(runWithStack({"show", "deep.xml"}).status, 0);
  EXPECT_LT(runWithStack({"check", "deep.xml"}).status, 3);
}

}  // namespace
