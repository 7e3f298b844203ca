// The example of docs/ticket-format.md is what the writer renders.

#include <fstream>
#include <sstream>

#include "ticket_test.h"

namespace {

using driver_feature::testing::TicketTest;

class TicketFormatTest : public TicketTest {};

// The page's example, which is between the fences of its XML block.
std::string exampleOfThePage() {
  std::ifstream file(TICKET_FORMAT_PAGE);
  std::stringstream page;
  page << file.rdbuf();
  const std::string text = page.str();
  const std::string opening = "\n```xml\n";
  const std::size_t start = text.find(opening);
  if (start == std::string::npos) return "no example in the page";
  const std::size_t first = start + opening.size();
  return text.substr(first, text.find("```", first) - first);
}

TEST_F(TicketFormatTest, Page_Example_IsWhatTheWriterRenders) {
  writer_.initializeJobTicketDOM("7.0", "Front \"Desk\"");
  EXPECT_NE(command("copies", "integer", "2", true), nullptr);
  EXPECT_NE(command("job-name", "name", "Angebot f\xFCr\nM\xFCller & Co.", true), nullptr);
  _xmlNode* media = group("media-col", "collection", false);
  _xmlNode* size = childGroup(media, "media-size", "collection");
  EXPECT_NE(childCommand(size, "x-dimension", "integer", "21000"), nullptr);
  EXPECT_NE(childCommand(size, "y-dimension", "integer", "29700"), nullptr);
  EXPECT_NE(childCommand(media, "media-type", "keyword", "stationery"), nullptr);
  EXPECT_NE(command("sides", "keyword", "one-sided", false), nullptr);
  EXPECT_EQ(render(), exampleOfThePage());
}

}  // namespace
