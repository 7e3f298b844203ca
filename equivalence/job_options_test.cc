#include "equivalence/job_options.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace driver_feature::equivalence {

namespace {

std::string option(const std::string& keyword, const std::string& kind) {
  return "*OpenUI *" + keyword + ": " + kind + "\n*Default" + keyword + ": A\n*" + keyword +
         " A: \"a\"\n*CloseUI: *" + keyword + "\n";
}

std::unique_ptr<Peer> peer() {
  const auto file = std::filesystem::temp_directory_path() /
                    ("job_options_" + std::to_string(::getpid()) + ".ppd");
  std::ofstream(file) << "*PPD-Adobe: \"4.3\"\n"
                      << option("PageSize", "PickOne") << option("PageRegion", "PickOne")
                      << option("Tray", "PickOne") << option("Staple", "PickMany")
                      << option("OutputOrder", "PickOne") << option("Owner", "PickOne");
  auto result = Peer::open(file).value();
  std::filesystem::remove(file);
  return result;
}

TEST(JobOptions, Choices_AreOptions) {
  EXPECT_EQ(jobOptions(*peer(), {{"PageSize", "A", {}}, {"Tray", "A", {}}}), "PageSize=A Tray=A");
  EXPECT_EQ(jobOptions(*peer(), {}), "");
}

TEST(JobOptions, CustomValues_AreQuoted) {
  EXPECT_EQ(
      jobOptions(
          *peer(),
          {{"PageSize", "Custom", {{"Height", "300.5"}, {"Width", "200"}, {"Orientation", "0"}}}}),
      "PageSize=Custom.200x300.5");
  EXPECT_EQ(jobOptions(*peer(), {{"Owner", "Custom", {{"Name", "it's (1) \\"}}}}),
            "Owner='Custom.it\\'s (1) \\\\'");
  EXPECT_EQ(jobOptions(*peer(), {{"Owner", "Custom", {{"Name", "a b"}, {"Size", "3"}}}}),
            "Owner={Name='a b' Size='3'}");
}

TEST(JobOptions, OptionsThatJobsCannotHave_AreLeftOut) {
  EXPECT_EQ(jobOptions(*peer(), {{"PageRegion", "A", {}},
                                 {"Staple", "A", {}},
                                 {"OutputOrder", "A", {}},
                                 {"None", "A", {}},
                                 {"Tray", "A", {}}}),
            "Tray=A");
}

}  // namespace

}  // namespace driver_feature::equivalence
