#include "equivalence/comparison.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace driver_feature::equivalence {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string framed(const std::string& name, const std::string& text) {
  return "%DriverSection " + name + "\n" + text + "\n%EndDriverSection\n";
}

std::vector<std::string> partsOf(const std::vector<Difference>& differences) {
  std::vector<std::string> parts;
  for (const Difference& difference : differences) parts.push_back(difference.part);
  return parts;
}

TEST(TakeApart, SectionsInOrder_GivesTheirTexts) {
  JobTexts texts;
  std::string rest;
  EXPECT_TRUE(takeApart(framed("Prolog", "one\n") + framed("PageSetup", ""), texts, rest));
  EXPECT_THAT(texts.sections, ElementsAre("", "one\n", "", "", ""));
  EXPECT_EQ(rest, "");
}

TEST(TakeApart, NoOutput_IsNoSections) {
  JobTexts texts;
  std::string rest;
  EXPECT_TRUE(takeApart("", texts, rest));
  EXPECT_THAT(texts.sections, ElementsAre("", "", "", "", ""));
}

TEST(TakeApart, WhatFitsNoFrame_IsLeft) {
  struct Row {
    std::string output;
    std::string rest;
  };
  const std::string prolog = framed("Prolog", "p");
  const std::vector<Row> rows = {
      {"text", "text"},
      {prolog + "text", "text"},
      {"text" + prolog, "text" + prolog},
      {prolog + prolog, prolog},
      {framed("PageSetup", "p") + prolog, prolog},
      {framed("Epilog", "p"), framed("Epilog", "p")},
      {"%DriverSection Prolog\np", "%DriverSection Prolog\np"},
      // The line end in front of the last frame line belongs to the frame.
      {"%DriverSection Prolog\n%EndDriverSection\n", "%DriverSection Prolog\n%EndDriverSection\n"},
  };
  for (const Row& row : rows) {
    JobTexts texts;
    std::string rest;
    EXPECT_FALSE(takeApart(row.output, texts, rest)) << row.output;
    EXPECT_EQ(rest, row.rest);
  }
}

TEST(CompareTexts, EqualTexts_GiveNoDifference) {
  JobTexts peer;
  peer.sections = {"e", "", "d\n", "a", "p\n"};
  peer.jcl = "\x1B%-12345X@PJL\n";
  peer.jclEnd = "\x1B%-12345X";
  const OurOutput ours = {framed("ExitServer", "e") + framed("DocumentSetup", "d\n") +
                              framed("AnySetup", "a") + framed("PageSetup", "p\n"),
                          "\x1B%-12345X@PJL\n", "\x1B%-12345X"};
  EXPECT_THAT(compareTexts(peer, ours), IsEmpty());
  EXPECT_EQ(sizeOf(peer), 29U);
}

TEST(CompareTexts, EachPart_IsComparedOnItsOwn) {
  JobTexts peer;
  peer.sections = {"e", "p", "d", "a", "s"};
  peer.jcl = "j";
  peer.jclEnd = "k";
  EXPECT_THAT(partsOf(compareTexts(peer, {})),
              ElementsAre("ExitServer", "Prolog", "DocumentSetup", "AnySetup", "PageSetup", "JCL",
                          "JCLEnd"));
  const OurOutput ours = {framed("ExitServer", "E") + framed("AnySetup", "A") + "rest", "J", "K"};
  EXPECT_THAT(partsOf(compareTexts(JobTexts(), ours)),
              ElementsAre("ExitServer", "AnySetup", "frame", "JCL", "JCLEnd"));
}

TEST(CompareTexts, Difference_GivesPlaceAndContext) {
  JobTexts peer;
  peer.jcl = std::string(30, 'a') + "\x1B\n\\\xE9" + "b" + std::string(50, 'c');
  const OurOutput ours = {"", std::string(30, 'a') + "\x1B\n\\\xE9", ""};
  const auto differences = compareTexts(peer, ours);
  ASSERT_EQ(differences.size(), 1U);
  EXPECT_EQ(differences[0].offset, 34U);
  EXPECT_EQ(differences[0].peerText, peer.jcl);
  EXPECT_EQ(differences[0].ourText, ours.pjl);
  const std::string before = std::string(20, 'a') + "\\x1B\\n\\\\\\xE9";
  EXPECT_EQ(differences[0].peer, before + "b" + std::string(39, 'c'));
  EXPECT_EQ(differences[0].ours, before);
}

}  // namespace

}  // namespace driver_feature::equivalence
