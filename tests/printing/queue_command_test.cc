// The command "queue".

#include <cups/ppd.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <memory>

#include "printing/filter_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class QueueCommandTest : public FilterTest {
 protected:
  RunResult queue(std::vector<std::string> arguments,
                  const std::function<void()>& prepare = {}) const {
    arguments.insert(arguments.begin(), {"--library", DRIVER_FEATURE_LIBRARY, "queue"});
    return runIn(folder(), DRIVER_FEATURE_PROGRAM, arguments, prepare);
  }

  std::string path(const std::string& name) const {
    return (std::filesystem::canonical(folder()) / name).string();
  }

  // The lines that stand behind the first one.
  std::string lines(const std::string& description, const std::string& refused) const {
    return "*cupsFilter: \"application/postscript 0 driver-feature-filter\"\n"
           "*cupsFilter: \"application/vnd.cups-postscript 100 driver-feature-filter\"\n"
           "*DriverFeatureDescription: \"" +
           path(description) +
           "\"\n*DriverFeatureLibrary: \"" DRIVER_FEATURE_LIBRARY
           "\"\n*DriverFeatureRefusedValue: \"" +
           refused + "\"\n";
  }
};

TEST_F(QueueCommandTest, GivenPpd_GetsTheLinesAndLosesOtherFilters) {
  command({"import", "office.ppd", "--output", "office.xml"});
  std::string expected = read("office.ppd");
  const std::string first = "*PPD-Adobe: \"4.3\"\n";
  const std::string other = "*cupsFilter: \"application/vnd.cups-raster 0 another-filter\"\n";
  expected.erase(expected.find(other), other.size());
  expected.insert(first.size(), lines("office.xml", "fail"));
  EXPECT_EQ(queue({"office.xml", "--ppd", "office.ppd"}), success(expected));
}

TEST_F(QueueCommandTest, PpdOfAQueue_CanBeWrittenAgain) {
  command({"import", "office.ppd", "--output", "office.xml"});
  const RunResult once = queue({"office.xml", "--ppd", "office.ppd", "--output", "queue.ppd"});
  EXPECT_EQ(once, success(""));
  const std::string ppd = read("queue.ppd");
  EXPECT_EQ(queue({"office.xml", "--ppd", "queue.ppd"}), success(ppd));
}

TEST_F(QueueCommandTest, CompressedPpd_IsReadAsItIs) {
  command({"import", "office.ppd", "--output", "office.xml"});
  const RunResult plain = queue({"office.xml", "--ppd", "office.ppd"});
  EXPECT_EQ(runIn(folder(), "/usr/bin/env", {"gzip", "office.ppd"}).status, 0);
  EXPECT_EQ(queue({"office.xml", "--ppd", "office.ppd.gz"}), plain);
}

TEST_F(QueueCommandTest, PathThroughALink_LeadsToTheSameFile) {
  std::filesystem::create_directories(folder() / "far" / "in");
  std::filesystem::create_directory_symlink("far/in", folder() / "link");
  std::filesystem::rename(folder() / "printer.xml", folder() / "far" / "printer.xml");
  EXPECT_EQ(queue({"link/../printer.xml", "--output", "queue.ppd"}), success(""));
  set("PPD", "queue.ppd");
  EXPECT_EQ(filter("").status, 0);
  EXPECT_EQ(queue({"./far/in/../printer.xml", "--output", "queue.ppd"}), success(""));
  EXPECT_THAT(read("queue.ppd"), HasSubstr("Description: \"" + path("far/printer.xml") + "\"\n"));
}

TEST_F(QueueCommandTest, PpdFromAPipe_IsRefused) {
  const std::string ppd = read("office.ppd");
  EXPECT_EQ(queue({"printer.xml", "--ppd", "/dev/stdin"},
                  [&ppd] {
                    std::array<int, 2> ends{};
                    const auto size = static_cast<ssize_t>(ppd.size());
                    const bool isReady = ::pipe(ends.data()) == 0 &&
                                         ::write(ends[1], ppd.data(), ppd.size()) == size &&
                                         ::dup2(ends[0], STDIN_FILENO) == STDIN_FILENO;
                    ::close(ends[1]);
                    if (!isReady) ::_exit(1);
                  }),
            failure(2,
                    "driver-feature: /dev/stdin: cannot be read a second time; give a file "
                    "instead of a pipe\n"));
}

TEST_F(QueueCommandTest, OptionWithoutFeature_IsNamed) {
  const RunResult result = queue({"printer.xml", "--ppd", "office.ppd", "--output", "queue.ppd"});
  EXPECT_EQ(result.errors,
            "driver-feature: office.ppd: option JCLEconoMode does nothing, because printer.xml "
            "has no such feature\n"
            "driver-feature: office.ppd: option Density does nothing, because printer.xml has no "
            "such feature\n"
            "driver-feature: office.ppd: option Stamp does nothing, because printer.xml has no "
            "such feature\n");
  EXPECT_EQ(result.status, 0);
}

TEST_F(QueueCommandTest, NoPpd_MakesOneOfTheFeatures) {
  describe("small.xml",
           {feature("IntEntry", "Weight", "IntMinValue='60' IntMaxValue='220' DefaultValue='80'"),
            feature("FloatEntry", "Gamma", "FloatMinValue='0.5' DefaultValue='1.5'"),
            feature("MultiSelect", "PageSize", "DefaultValue='A5'",
                    "<Option Name='A4'/><Option Name='A5'/><Option Name='Roll'/>"
                    "<Option Name='Big' TESKCommand='na_ledger_11x17in'/><Option Name='Custom'/>"),
            feature("MultiSelect", "Hidden", "Visibility='false'", "<Option Name='A'/>"),
            feature("MultiSelect", "Two words", "", "<Option Name='A'/>"),
            feature("MultiSelect", "Finish", "DefaultValue='b'",
                    "<Option Name='a b'/><Option Name='b'/>"),
            feature("IntEntry", "Copies", "DefaultValue='1'"), feature("TextEntry", "Owner"),
            feature("UIOnly", "Label")});
  const RunResult result =
      queue({"small.xml", "--name", "My \"small\" printer", "--default-for-refused"});
  EXPECT_EQ(result.errors,
            "driver-feature: not in the PPD: Finish=a b: a PPD cannot have this name\n"
            "driver-feature: not in the PPD: Owner: a PPD has no options for texts\n"
            "driver-feature: not in the PPD: PageSize=Roll: libcups knows no size of this name\n"
            "driver-feature: not in the PPD: PageSize=Custom: a PPD has this name for values of "
            "any size\n"
            "driver-feature: not in the PPD: Two words: a PPD cannot have this name\n");
  EXPECT_EQ(result.status, 0);
  const std::string head = "*PPD-Adobe: \"4.3\"\n" + lines("small.xml", "default");
  EXPECT_EQ(result.output.substr(0, head.size()), head);
  EXPECT_THAT(result.output, HasSubstr("*ModelName: \"My  small  printer\"\n"));
  EXPECT_EQ(result.output.substr(result.output.find("*OpenUI")),
            "*OpenUI *Finish: PickOne\n*OrderDependency: 10 AnySetup *Finish\n*DefaultFinish: b\n"
            "*Finish b: \"\"\n*CloseUI: *Finish\n"
            "*OpenUI *Gamma: PickOne\n*OrderDependency: 10 AnySetup *Gamma\n*DefaultGamma: 1.5\n"
            "*Gamma 1.5: \"\"\n*CloseUI: *Gamma\n*CustomGamma True: \"\"\n"
            "*ParamCustomGamma Value: 1 real 0.5 1000000\n"
            "*OpenUI *PageSize: PickOne\n*OrderDependency: 10 AnySetup *PageSize\n"
            "*DefaultPageSize: A5\n*PageSize A4: \"\"\n*PageSize A5: \"\"\n*PageSize Big: \"\"\n"
            "*CloseUI: *PageSize\n"
            "*OpenUI *PageRegion: PickOne\n*OrderDependency: 10 AnySetup *PageRegion\n"
            "*DefaultPageRegion: A5\n*PageRegion A4: \"\"\n*PageRegion A5: \"\"\n"
            "*PageRegion Big: \"\"\n*CloseUI: *PageRegion\n"
            "*DefaultImageableArea: A5\n*ImageableArea A4: \"0 0 595 842\"\n"
            "*ImageableArea A5: \"0 0 420 595\"\n*ImageableArea Big: \"0 0 792 1224\"\n"
            "*DefaultPaperDimension: A5\n*PaperDimension A4: \"595 842\"\n"
            "*PaperDimension A5: \"420 595\"\n*PaperDimension Big: \"792 1224\"\n"
            "*OpenUI *Weight: PickOne\n*OrderDependency: 10 AnySetup *Weight\n*DefaultWeight: 80\n"
            "*Weight 80: \"\"\n*CloseUI: *Weight\n*CustomWeight True: \"\"\n"
            "*ParamCustomWeight Value: 1 int 60 220\n");
}

TEST_F(QueueCommandTest, NamesThatDifferInCaseOnly_SecondIsNamed) {
  describe("small.xml",
           {feature("MultiSelect", "Tray", "DefaultValue='b' PSCommand='%s '",
                    "<Option Name='B' PSCommand='big'/><Option Name='b' PSCommand='small'/>"),
            feature("MultiSelect", "tray", "", "<Option Name='x'/>")});
  const std::string reason =
      ": another one has this name, of which a PPD does not tell capital from small letters\n";
  EXPECT_EQ(queue({"small.xml", "--output", "queue.ppd"}).errors,
            "driver-feature: not in the PPD: Tray=b" + reason +
                "driver-feature: not in the PPD: tray" + reason);
  // The default is the description's, though the PPD does not have it.
  set("PPD", "queue.ppd");
  EXPECT_THAT(filter("").output, HasSubstr("\nsmall \n"));
  EXPECT_THAT(filter("Tray=B").output, HasSubstr("\nbig \n"));
}

TEST_F(QueueCommandTest, ImportedDescription_HasEachOptionOnceAndNoJobFrame) {
  command({"import", "office.ppd", "--output", "office.xml"});
  const RunResult result = queue({"office.xml", "--output", "queue.ppd"});
  for (const std::string name : {"JCLBegin", "JCLEnd", "JCLToPSInterpreter"}) {
    EXPECT_THAT(result.errors, HasSubstr("not in the PPD: " + name + ": a PPD cannot have"));
  }
  const std::string ppd = read("queue.ppd");
  for (const std::string name : {"*JCLBegin", "*JCLEnd", "*JCLToPSInterpreter"}) {
    EXPECT_THAT(ppd, Not(HasSubstr(name)));
  }
  const std::size_t first = ppd.find("*OpenUI *PageRegion");
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(ppd.find("*OpenUI *PageRegion", first + 1), std::string::npos);
}

TEST_F(QueueCommandTest, MadePpd_CarriesDefaultsAndNumbersIntoTheJob) {
  describe("small.xml",
           {feature("IntEntry", "Weight",
                    "IntMinValue='60' IntMaxValue='220' DefaultValue='80' PSCommand='%d w '"),
            feature("FloatEntry", "Gamma",
                    "FloatMinValue='0.5' DefaultValue='1.5' "
                    "PSCommand='%.2f g '")});
  EXPECT_EQ(queue({"small.xml", "--output", "queue.ppd"}), success(""));
  std::string ppd = read("queue.ppd");
  ppd.replace(ppd.find("*DefaultGamma: 1.5"), 18, "*DefaultGamma: Custom.2.5");
  write("queue.ppd", ppd);
  set("PPD", "queue.ppd");
  EXPECT_THAT(filter("").output, HasSubstr("\n2.50 g 80 w \n"));
  EXPECT_THAT(filter("Weight=100").output, HasSubstr("\n2.50 g 100 w \n"));
  EXPECT_THAT(filter("Weight=Custom.120 gamma=Custom.0.75").output, HasSubstr("\n0.75 g 120 w \n"));
  EXPECT_EQ(withoutDebug(filter("Weight=Custom.20")),
            failure(1,
                    "ERROR: option Weight: 20 is out of range; give a whole number, from 60 to "
                    "220 (" +
                        path("small.xml") + ":2)\n"));
}

TEST_F(QueueCommandTest, MadePpd_CanBeReadByLibcups) {
  EXPECT_EQ(queue({"printer.xml", "--output", "queue.ppd"}), success(""));
  const std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd(
      ppdOpenFile((folder() / "queue.ppd").c_str()), &ppdClose);
  ASSERT_TRUE(ppd);
  EXPECT_EQ(ppd->num_sizes, 3);
  EXPECT_EQ(ppd->num_filters, 2);
  EXPECT_NE(ppdFindOption(ppd.get(), "Duplex"), nullptr);
  EXPECT_EQ(ppdFindOption(ppd.get(), "Copies"), nullptr);
}

TEST_F(QueueCommandTest, UnusableFiles_AreRefused) {
  EXPECT_THAT(queue({"none.xml"}).errors, testing::StartsWith("driver-feature: none.xml: error: "));
  EXPECT_EQ(queue({"none.xml"}).status, 2);
  const RunResult result = queue({"printer.xml", "--ppd", "job.ps"});
  EXPECT_THAT(result.errors, testing::StartsWith("driver-feature: job.ps:1: "));
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(queue({"printer.xml", "--ppd", "office.ppd", "--name", "a"}).status, 2);
  std::filesystem::rename(folder() / "printer.xml", folder() / "a\"b.xml");
  EXPECT_EQ(queue({"a\"b.xml"}),
            failure(2, "driver-feature: " + path("a\"b.xml") +
                           ": a PPD cannot hold this path, because of a quotation mark or a "
                           "control character in it; give the file another name\n"));
}

}  // namespace
