// Everything that an editor asks for, in texts that are not whole.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "host/editor/completion.h"
#include "host/editor/definition.h"
#include "host/editor/hover.h"
#include "host/editor/outline.h"
#include "host/editor/text_lines.h"

namespace driver_feature::editor {

namespace {

const std::string kTyped =
    "\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- a --><Driver><FeatureDescription ByteEscapes='no'>\r\n"
    "<Feature FeatureType=\"MultiSelect\" Name='D&amp;\xF0\x9F\x96\xA8' DefaultValue='On'>\n"
    "<Option Name='On'/><![CDATA[<]]></Feature><FeatureStaticGroup Name='G'><Feature Name='x'>"
    "</Feature></FeatureStaticGroup></FeatureDescription></Driver>\n";

void askForEverything(const std::string& text, std::size_t offset) {
  const Markup markup(text);
  const auto isWithin = [&](Range range) {
    return range.begin <= range.end && range.end <= text.size();
  };
  if (const auto hover = hoverAt(markup, offset)) {
    EXPECT_TRUE(isWithin(hover->range)) << text;
  }
  for (const Completion& item : completionsAt(markup, offset, {"R"})) {
    EXPECT_TRUE(isWithin(item.replaced) && item.cursor <= item.text.size()) << text;
  }
  if (const auto found = definitionAt(markup, offset)) {
    EXPECT_TRUE(isWithin(found->from) && isWithin(found->whole) && isWithin(found->chosen)) << text;
  }
  for (const Symbol& symbol : outlineOf(markup)) {
    EXPECT_TRUE(isWithin(symbol.whole) && isWithin(symbol.chosen)) << text;
    EXPECT_FALSE(symbol.name.empty());
  }
  const TextLines lines(text);
  EXPECT_LE(lines.offsetOf(lines.placeOf(offset)), offset) << text;
}

TEST(Typing, EveryBeginning_AtItsEnd_GivesRangesWithinTheText) {
  for (std::size_t size = 0; size <= kTyped.size(); ++size) {
    askForEverything(kTyped.substr(0, size), size);
  }
}

TEST(Typing, EveryTextWithoutABit_WhereItIsMissing_GivesRangesWithinTheText) {
  for (std::size_t at = 0; at < kTyped.size(); ++at) {
    for (const std::size_t length : {1U, 7U}) {
      std::string text = kTyped;
      text.erase(at, length);
      askForEverything(text, std::min(at, text.size()));
    }
  }
}

}  // namespace

}  // namespace driver_feature::editor
