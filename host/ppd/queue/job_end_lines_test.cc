#include "host/ppd/queue/job_end_lines.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "host/ppd/ppd_file.h"
#include "support/problem_text.h"

namespace driver_feature::ppd {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kLine = "*DriverFeatureEndOfFile: \"true\"";

std::vector<std::string> linesOf(const std::string& statements) {
  const auto file = std::filesystem::temp_directory_path() /
                    ("job_end_lines_" + std::to_string(::getpid()) + ".ppd");
  std::ofstream(file) << "*PPD-Adobe: \"4.3\"\n" << statements;
  const host::Result<PpdPointer> ppd = readPpd(file);
  std::filesystem::remove(file);
  EXPECT_EQ(problemText(ppd), "");
  return ppd ? jobEndLines(**ppd) : std::vector<std::string>();
}

TEST(JobEndLines, PpdThatLibcupsEndsItself_HasTheLine) {
  EXPECT_THAT(linesOf(""), ElementsAre(kLine));
  EXPECT_THAT(linesOf("*JCLBegin: \"a\"\n*JCLToPSInterpreter: \"b\"\n"), ElementsAre(kLine));
}

TEST(JobEndLines, PpdWithAnEndOrAFilter_HasNone) {
  EXPECT_THAT(linesOf("*JCLEnd: \"a\"\n"), IsEmpty());
  EXPECT_THAT(linesOf("*cupsFilter: \"application/vnd.cups-raster 0 other\"\n"), IsEmpty());
  EXPECT_THAT(linesOf("*cupsFilter2: \"application/postscript text/plain 0 other\"\n"), IsEmpty());
}

TEST(JobEndLines, PpdOfAQueue_KeepsItsLine) {
  EXPECT_THAT(linesOf("*cupsFilter: \"application/postscript 0 driver-feature-filter\"\n" +
                      std::string(kLine) + "\n"),
              ElementsAre(kLine));
}

}  // namespace
}  // namespace driver_feature::ppd
