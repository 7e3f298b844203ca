// The manual pages for the form of descriptions and of settings files.

#include <gmock/gmock.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "help/commands.h"

namespace {

class FormatPagesTest : public HelpTest {
 protected:
  static constexpr const char* kDescription = MANUAL_FOLDER "/driver-feature-description.5";
  static constexpr const char* kSettings = MANUAL_FOLDER "/driver-feature-settings.5";

  // The page as a reader sees it.
  std::vector<std::string> linesOfPage(const std::string& page) const {
    const RunResult result =
        runShell("MANWIDTH=100 LC_ALL=C man -P cat --nj --nh -E ascii -l '" + page + "' | col -bx");
    EXPECT_EQ(result.errors, "");
    return linesOf(result.output);
  }

  // The lines of the section EXAMPLE, without what the page sets before each.
  std::string exampleOf(const std::string& page) const {
    constexpr std::size_t kIndent = 7;
    std::string example;
    bool inside = false;
    for (const std::string& line : linesOfPage(page)) {
      if (!line.empty() && line.front() != ' ') inside = line == "EXAMPLE";
      if (inside && line.size() > kIndent) example += line.substr(kIndent) + "\n";
    }
    return example;
  }

  // The text below the heading of the page's attributes that names `place`.
  static std::string attributesOf(const std::vector<std::string>& page, const std::string& place) {
    const std::regex word("\\b" + place + "\\b");
    std::string text;
    bool inAttributes = false;
    bool inPlace = false;
    for (const std::string& line : page) {
      const std::size_t indent = line.find_first_not_of(' ');
      if (indent == 0) inAttributes = line == "ATTRIBUTES";
      if (indent == 3 || indent == 0) {
        inPlace = line == "   " + place ||
                  (line.find("of type") != std::string::npos && std::regex_search(line, word));
      } else if (inAttributes && inPlace) {
        text += line + "\n";
      }
    }
    return text;
  }
};

TEST_F(FormatPagesTest, Format_EitherPage_HasNoWarning) {
  for (const std::string page : {kDescription, kSettings}) {
    EXPECT_EQ(
        runShell("LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z '" + page + "' >/dev/null"),
        success(""));
  }
}

TEST_F(FormatPagesTest, Attributes_EachOfTheList_IsWithItsElement) {
  std::ifstream list(DESCRIPTION_ATTRIBUTES);
  const std::vector<std::string> page = linesOfPage(kDescription);
  int count = 0;
  for (std::string line; std::getline(list, line);) {
    if (line.starts_with('#')) continue;
    std::istringstream words(line);
    std::string place;
    std::string attribute;
    words >> place >> attribute;
    ++count;
    EXPECT_TRUE(std::regex_search(attributesOf(page, place), std::regex("\\b" + attribute + "\\b")))
        << place << " " << attribute;
  }
  EXPECT_GT(count, 50);
}

TEST_F(FormatPagesTest, Example_OfTheDescription_HasNoFindings) {
  write("example.xml", exampleOf(kDescription));
  EXPECT_EQ(run({"check", "--strict", "example.xml"}),
            success("1 file checked: 0 errors, 0 warnings\n"));
  EXPECT_EQ(run({"emit", "example.xml", "--to", "ps", "-o", "Duplex=LongEdge"}),
            success("<< /Duplex true /Tumble false >> setpagedevice\n"));
}

TEST_F(FormatPagesTest, Example_OfTheSettings_IsLoaded) {
  write("example.conf", exampleOf(kSettings));
  const RunResult result =
      runShell("driver-feature emit office.xml --to ticket --settings example.conf");
  EXPECT_EQ(result.errors, "");
  for (const char* node : {"\"copies\" syntax=\"integer\" value=\"2\"",
                           "\"sides\" syntax=\"keyword\" value=\"two-sided-long-edge\"",
                           "\"job-name\" syntax=\"name\" value=\"Front desk \"",
                           "\"media-type\" syntax=\"keyword\" value=\"cardstock\""}) {
    EXPECT_THAT(result.output, testing::HasSubstr(node));
  }
}

}  // namespace
