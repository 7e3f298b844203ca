#include "programs/filter/sections.h"

#include <gmock/gmock.h>

namespace driver_feature::filter {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Sections, TextWithoutSections_IsDocumentSetup) {
  std::vector<std::string> unknown;
  const Sections sections = cutSections("<< /A 1 >> setpagedevice\nb", unknown);
  EXPECT_EQ(sections.documentSetup, "<< /A 1 >> setpagedevice\nb\n");
  EXPECT_EQ(sections.exitServer + sections.prolog + sections.pageSetup + sections.header, "");
  EXPECT_THAT(unknown, IsEmpty());
}

TEST(Sections, EverySection_GoesToItsPlace) {
  std::vector<std::string> unknown;
  const Sections sections = cutSections(
      "%DriverSection PageSetup\npage\n\n%EndDriverSection\n"
      "%DriverSection AnySetup\nany\n\n%EndDriverSection\n"
      "%DriverSection DocumentSetup\ndocument\n\n%EndDriverSection\n"
      "%DriverSection Prolog\nprolog\n\n%EndDriverSection\n"
      "%DriverSection ExitServer\nexit\n\n%EndDriverSection\n",
      unknown);
  EXPECT_EQ(sections.exitServer, "exit\n");
  EXPECT_EQ(sections.prolog, "prolog\n");
  EXPECT_EQ(sections.documentSetup, "document\nany\n");
  EXPECT_EQ(sections.pageSetup, "page\n");
  EXPECT_THAT(unknown, IsEmpty());
}

TEST(Sections, TextOfASection_IsKeptToTheByte) {
  std::vector<std::string> unknown;
  const std::string text = "\n[{\n%%BeginFeature: *A B\n\t\r\xff %DriverSection X\n} cleartomark\n";
  const Sections sections =
      cutSections("%DriverSection Prolog\n" + text + "\n%EndDriverSection\n", unknown);
  EXPECT_EQ(sections.prolog, text);
}

TEST(Sections, TextWithoutLineEnd_GetsOne) {
  std::vector<std::string> unknown;
  EXPECT_EQ(cutSections("%DriverSection Prolog\na\n%EndDriverSection\n", unknown).prolog, "a\n");
}

TEST(Sections, EmptySection_AddsNothing) {
  std::vector<std::string> unknown;
  for (const std::string text : {"%DriverSection Prolog\n%EndDriverSection\n",
                                 "%DriverSection Prolog\n\n%EndDriverSection\n",
                                 "%DriverSection Prolog\n", "%DriverSection Prolog", ""}) {
    const Sections sections = cutSections(text, unknown);
    EXPECT_EQ(sections.prolog + sections.documentSetup, "") << text;
  }
}

TEST(Sections, TextAroundSections_IsDocumentSetupAfterTheRest) {
  std::vector<std::string> unknown;
  const Sections sections = cutSections(
      "before\n%DriverSection DocumentSetup\ndocument\n%EndDriverSection\nafter\n"
      "%DriverSection Prolog\nprolog\n%EndDriverSection\nlast",
      unknown);
  EXPECT_EQ(sections.documentSetup, "document\nbefore\nafter\nlast\n");
  EXPECT_EQ(sections.prolog, "prolog\n");
}

TEST(Sections, UnknownSection_IsNamedAndIsDocumentSetup) {
  std::vector<std::string> unknown;
  const Sections sections =
      cutSections("%DriverSection Other\nother\n%EndDriverSection\n", unknown);
  EXPECT_EQ(sections.documentSetup, "other\n");
  EXPECT_THAT(unknown, ElementsAre("Other"));
}

TEST(Sections, SectionWithoutEnd_GoesUpToTheEnd) {
  std::vector<std::string> unknown;
  EXPECT_EQ(cutSections("%DriverSection PageSetup\na\nb\n", unknown).pageSetup, "a\nb\n");
}

}  // namespace
}  // namespace driver_feature::filter
