// Whatever the scanner reads, libxml2 reads alike: shown with texts that are
// nearly right.

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "scanned_elements.h"

namespace driver_feature {
namespace {

constexpr std::string_view kPieces[] = {
    "<",     ">",     "/",     "</a>",    "<b>",          "<b/>",         "='",   "\"",
    "'",     "&",     "&lt;",  "&#65;",   "&#x;",         "&#x1F;",       "]]>",  "<![CDATA[",
    "<!--",  "-->",   "--",    "<?",      "?>",           "<?p q?>",      "xml",  "\n",
    "\r\n",  "\r",    "\t",    " ",       "\xC3",         "\xA4",         "\x01", ":",
    "xmlns", "b='1'", " b=''", "c=\"2\"", "<!DOCTYPE a>", "\xEF\xBF\xBF",
};

// A text with something put in, taken out or doubled in a few places.
std::string mutate(std::string text, std::mt19937& random) {
  const auto upTo = [&random](std::size_t count) { return random() % count; };
  for (auto changes = upTo(3) + 1; changes > 0; --changes) {
    const std::size_t place = upTo(text.size());
    const std::size_t length = upTo(6) + 1;
    const std::string copy = text.substr(upTo(text.size()), length);
    switch (upTo(4)) {
      case 0:
        text.erase(place, length);
        break;
      case 1:
        text.insert(place, copy);
        break;
      default:
        text.insert(place, kPieces[upTo(std::size(kPieces))]);
    }
  }
  return text;
}

TEST(XMLScannerTest, MutatedDocuments_WhatIsReadLibxml2ReadsAlike) {
  const std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- c -->\n<a b='&lt;x&#10;'>\n <c d=\"1\"\n"
      "  e='\xC3\xA4'/>text<?p q?>\n <f g=''><![CDATA[x]]></f>\n</a>\n";
  std::mt19937 random(17);
  int read = 0;
  int refused = 0;
  for (int i = 0; i < 20000; ++i) {
    const std::string mutant = mutate(text, random);
    const std::string elements = scan(mutant);
    ++(elements.empty() ? refused : read);
    if (elements.empty()) continue;
    ASSERT_EQ(elements, readCarefully(mutant)) << mutant;
  }
  // Both occur, or nothing is compared.
  EXPECT_GT(read, 1000);
  EXPECT_GT(refused, 1000);
}

}  // namespace
}  // namespace driver_feature
