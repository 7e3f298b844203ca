#include "host/page/shown_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace driver_feature::page {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const host::SecretOutputs kNoSecrets({}, {});

TEST(ShownTextTest, Utf8_StaysAsItIs) {
  EXPECT_EQ(shown("Größe 纸 😀"), "Größe 纸 😀");
  EXPECT_EQ(shown(""), "");
}

TEST(ShownTextTest, OtherBytes_AreReplacedOneByOne) {
  EXPECT_EQ(shown("a\xFF\xFE z"), "a\uFFFD\uFFFD z");
  EXPECT_EQ(shown("\xE2\x82"), "\uFFFD\uFFFD");                // A character that is cut off.
  EXPECT_EQ(shown("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");      // A surrogate.
  EXPECT_EQ(shown("\xC0\xAF\xC3\xA4"), "\uFFFD\uFFFD\u00E4");  // An overlong one.
}

TEST(ShownTextTest, Spans_CountAsJavaScriptDoes) {
  // a: 1 unit, the smile: 2, the o with dots: 1, a broken byte: 1.
  const ShownOutput output = show("a\U0001F600\u00F6\xFF!",
                                  {{0, 1, "A"}, {1, 5, "B"}, {5, 7, "C"}, {7, 8, "D"}}, kNoSecrets);
  EXPECT_EQ(output.text, "a\U0001F600\u00F6\uFFFD!");
  EXPECT_THAT(output.spans, ElementsAre(ShownSpan{0, 1, "A"}, ShownSpan{1, 2, "B"},
                                        ShownSpan{3, 1, "C"}, ShownSpan{4, 1, "D"}));
}

TEST(ShownTextTest, NeighboursOfOneOwner_AreOneSpan) {
  EXPECT_THAT(
      show("abcdef", {{0, 2, "A"}, {2, 3, "A"}, {4, 5, "A"}, {5, 6, "B"}}, kNoSecrets).spans,
      ElementsAre(ShownSpan{0, 3, "A"}, ShownSpan{4, 1, "A"}, ShownSpan{5, 1, "B"}));
}

TEST(ShownTextTest, PartsWithinACharacter_EndAfterIt) {
  EXPECT_THAT(show("\u00F6x", {{0, 1, "A"}, {1, 3, "B"}}, kNoSecrets).spans,
              ElementsAre(ShownSpan{0, 1, "A"}, ShownSpan{1, 1, "B"}));
  EXPECT_THAT(show("\u00F6", {{0, 1, "A"}, {1, 2, "B"}}, kNoSecrets).spans,
              ElementsAre(ShownSpan{0, 1, "A"}));
}

TEST(ShownTextTest, Secrets_AreMaskedAndMoveWhatFollows) {
  const host::SecretOutputs secrets({"Pin"}, {"Pin=12\n"});
  const ShownOutput output = show("a 12 b 12c", {{0, 5, "A"}, {5, 6, "B"}, {6, 10, "C"}}, secrets);
  EXPECT_EQ(output.text, "a **** b ****c");
  EXPECT_THAT(output.spans,
              ElementsAre(ShownSpan{0, 7, "A"}, ShownSpan{7, 1, "B"}, ShownSpan{8, 6, "C"}));
}

TEST(ShownTextTest, PartThatBeginsInASecret_BeginsAfterIt) {
  const host::SecretOutputs secrets({"Pin"}, {"Pin=1234\n"});
  EXPECT_THAT(show("12345", {{0, 2, "A"}, {2, 5, "B"}}, secrets).spans,
              ElementsAre(ShownSpan{0, 4, "A"}, ShownSpan{4, 1, "B"}));
}

TEST(ShownTextTest, NothingWritten_HasNoSpans) {
  const ShownOutput output = show("", {{0, 0, "A"}}, kNoSecrets);
  EXPECT_EQ(output.text, "");
  EXPECT_THAT(output.spans, IsEmpty());
}

}  // namespace
}  // namespace driver_feature::page
