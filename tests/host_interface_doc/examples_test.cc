// The program in the page prints what the page says below each example, and
// the links of the pages lead somewhere.

#include <sys/wait.h>

#include <array>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <regex>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host_interface_doc/markdown.h"

namespace driver_feature::testing {
namespace {

using ::testing::HasSubstr;

constexpr const char* kPages[] = {
    "host-interface.md", "host-interface-slots.md", "host-interface-properties.md", "tutorial.md",
    "cookbook.md",       "coming-from-ppd.md",      "description-format.md"};

// What a command writes to standard output; `status` is its exit status.
std::string outputOf(const std::string& command, int& status) {
  std::string output;
  FILE* stream = popen(command.c_str(), "r");
  if (stream == nullptr) return output;
  std::array<char, 4096> buffer{};
  while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), stream)) {
    output.append(buffer.data(), size);
  }
  const int result = pclose(stream);
  status = WIFEXITED(result) ? WEXITSTATUS(result) : -1;
  return output;
}

// The anchor that a heading gets.
std::string anchorOf(const std::string& heading) {
  std::string anchor;
  for (const char character : heading.substr(heading.find(' ') + 1)) {
    const auto byte = static_cast<unsigned char>(character);
    if (std::isupper(byte) != 0) {
      anchor += static_cast<char>(byte - 'A' + 'a');
    } else if (std::isalnum(byte) != 0 || character == '-' || character == '_') {
      anchor += character;
    } else if (character == ' ') {
      anchor += '-';
    }
  }
  return anchor;
}

bool hasAnchor(const std::string& page, const std::string& anchor) {
  for (const std::string& line : linesOf(page)) {
    if (line.starts_with('#') && anchorOf(line) == anchor) return true;
  }
  return false;
}

TEST(HostInterfaceExamples, Program_Run_PrintsWhatThePageSays) {
  int status = -1;
  const std::string output =
      outputOf("'" EXAMPLES_PROGRAM "' '" DRIVER_FEATURE_LIBRARY "'", status);
  EXPECT_EQ(status, 0);
  EXPECT_THAT(output, HasSubstr("<JobTicket"));
  EXPECT_EQ(output, readFile(EXAMPLES_OUTPUT));
}

TEST(HostInterfaceExamples, Program_EveryExample_IsCalled) {
  const std::string program = readFile(EXAMPLES_SOURCE);
  const std::string main = program.substr(program.find("int main("));
  const std::regex definition("\nvoid (show[A-Za-z]+)\\(\\)");
  int count = 0;
  for (std::sregex_iterator match(program.begin(), program.end(), definition), end; match != end;
       ++match, ++count) {
    EXPECT_THAT(main, HasSubstr("  " + (*match)[1].str() + "();\n"));
  }
  EXPECT_EQ(count, 22);
}

TEST(HostInterfacePages, Links_OfEveryPage_LeadSomewhere) {
  const std::regex link("\\]\\(([^)#]*)#?([^)]*)\\)");
  for (const std::string name : kPages) {
    const std::string page = readPage(name);
    for (std::sregex_iterator match(page.begin(), page.end(), link), end; match != end; ++match) {
      SCOPED_TRACE(name + ": " + match->str());
      const std::string file = (*match)[1].length() == 0 ? name : (*match)[1].str();
      ASSERT_TRUE(std::filesystem::exists(std::string(DOCS_FOLDER) + '/' + file));
      const std::string anchor = (*match)[2];
      EXPECT_TRUE(anchor.empty() || hasAnchor(readPage(file), anchor));
    }
  }
}

}  // namespace
}  // namespace driver_feature::testing
