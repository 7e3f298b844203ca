// The built filter, with a description imported from a PPD and the queue's PPD
// made of the same one. What libcups writes for the same choices is the
// measure.

#include <cups/ppd.h>
#include <gmock/gmock.h>

#include <cstdlib>
#include <memory>

#include "printing/filter_fixture.h"

namespace {

// What libcups writes for a section of the PPD with these choices.
std::string emitted(const std::filesystem::path& file, ppd_section_t section,
                    const std::vector<std::pair<std::string, std::string>>& choices) {
  const std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd(ppdOpenFile(file.c_str()),
                                                               &ppdClose);
  if (!ppd) return "no PPD";
  ppdMarkDefaults(ppd.get());
  for (const auto& [option, choice] : choices) {
    ppdMarkOption(ppd.get(), option.c_str(), choice.c_str());
  }
  const std::unique_ptr<char, void (*)(void*)> text(ppdEmitString(ppd.get(), section, 0),
                                                    &std::free);
  return text ? text.get() : "";
}

class ImportedQueueTest : public FilterTest {
 protected:
  ImportedQueueTest() {
    command({"import", "office.ppd", "--output", "office.xml"});
    command({"--library", DRIVER_FEATURE_LIBRARY, "queue", "office.xml", "--ppd", "office.ppd",
             "--output", "queue.ppd"});
    set("PPD", "queue.ppd");
  }

  using Choices = std::vector<std::pair<std::string, std::string>>;

  // The job that comes out of job.ps, with the texts of libcups in it.
  std::string job(const std::string& begin, const std::string& economy,
                  const Choices& choices) const {
    const auto text = [&](ppd_section_t section) {
      return emitted(folder() / "queue.ppd", section, choices);
    };
    const std::string page = "%%BeginPageSetup\n" + text(PPD_ORDER_PAGE) + "%%EndPageSetup\n";
    return begin + "@PJL SET ECONOMODE=" + economy +
           "\n@PJL ENTER LANGUAGE = POSTSCRIPT \n%!PS-Adobe-3.0\n%%Title: two pages\n%%Pages: 2\n"
           "%%EndComments\n%%BeginProlog\n" +
           text(PPD_ORDER_PROLOG) +
           "/pageText { 72 72 moveto show } def\n%%EndProlog\n%%BeginSetup\n" +
           text(PPD_ORDER_DOCUMENT) + text(PPD_ORDER_ANY) + "%%EndSetup\n%%Page: 1 1\n" + page +
           "(one) pageText showpage\n%%Page: 2 2\n" + page +
           "(two) pageText showpage\n%%Trailer\n%%EOF\n" + kExit +
           "@PJL\n@PJL RDYMSG DISPLAY = \"\"\n@PJL EOJ\n" + kExit;
  }

  static std::string begin(const std::string& name, const std::string& display) {
    return kExit + "@PJL\n@PJL\n@PJL COMMENT office\n@PJL JOB NAME = \"" + name +
           "\" DISPLAY = \"" + display + "\"\n@PJL SET USERNAME = \"jane\"\n";
  }
};

TEST_F(ImportedQueueTest, Defaults_AreThoseOfThePpd) {
  const RunResult result = withoutDebug(filter(""));
  EXPECT_EQ(result.output, job(begin("A title", "7 jane A title"), "OFF", {}));
  EXPECT_EQ(result.errors, "PAGE: 1 1\nPAGE: 2 1\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.output, testing::HasSubstr("/PageSize[595 842]"));
  EXPECT_THAT(result.output, testing::HasSubstr("% no stamp"));
}

TEST_F(ImportedQueueTest, Options_GiveWhatLibcupsWrites) {
  struct Row {
    const char* options;
    Choices choices;
    const char* economy;
  };
  for (const Row& row : std::vector<Row>{
           {"PageSize=A5", {{"PageSize", "A5"}}, "OFF"},
           {"pagesize=a5 duplex=DuplexTumble",
            {{"PageSize", "A5"}, {"Duplex", "DuplexTumble"}},
            "OFF"},
           {"media=A5", {{"PageSize", "A5"}}, "OFF"},
           {"sides=two-sided-long-edge", {{"Duplex", "DuplexNoTumble"}}, "OFF"},
           {"PageRegion=A5", {{"PageRegion", "A5"}}, "OFF"},
           {"Density=Dark Stamp=On JCLEconoMode", {{"Density", "Dark"}, {"Stamp", "On"}}, "ON"},
           {"PageSize=Custom.200x300", {{"PageSize", "Custom.200x300"}}, "OFF"},
           {"media=Custom.10x20cm", {{"PageSize", "Custom.10x20cm"}}, "OFF"}}) {
    const RunResult result = withoutDebug(filter(row.options));
    EXPECT_EQ(result.output, job(begin("A title", "7 jane A title"), row.economy, row.choices))
        << row.options;
    EXPECT_EQ(result.status, 0) << row.options;
  }
}

TEST_F(ImportedQueueTest, DefaultsOfTheQueue_ApplyWithoutOptions) {
  std::string ppd = read("queue.ppd");
  const std::string line = "*DefaultDuplex: None";
  ppd.replace(ppd.find(line), line.size(), "*DefaultDuplex: DuplexTumble");
  write("queue.ppd", ppd);
  const RunResult result = withoutDebug(filter(""));
  EXPECT_EQ(result.output, job(begin("A title", "7 jane A title"), "OFF", {}));
  EXPECT_THAT(result.output, testing::HasSubstr("<</Duplex true/Tumble true>>"));
}

TEST_F(ImportedQueueTest, PpdWithoutJclFrame_WritesNoJclOptions) {
  for (const std::string missing : {"*JCLBegin: ", "*JCLToPSInterpreter: "}) {
    std::string ppd = read("office.ppd");
    const std::size_t at = ppd.find(missing);
    ppd.erase(at, ppd.find('\n', at) - at + 1);
    write("bare.ppd", ppd);
    command({"import", "bare.ppd", "--output", "office.xml"});
    command({"--library", DRIVER_FEATURE_LIBRARY, "queue", "office.xml", "--ppd", "bare.ppd",
             "--output", "queue.ppd"});
    const RunResult result = filter("JCLEconoMode=True");
    EXPECT_THAT(result.output, testing::StartsWith("%!PS-Adobe-3.0\n")) << missing;
    EXPECT_THAT(result.output, testing::EndsWith("@PJL EOJ\n" + kExit)) << missing;
  }
}

TEST_F(ImportedQueueTest, TitleWithLineEndAndQuotes_AddsNoCommand) {
  EXPECT_EQ(withoutDebug(filter("", "1", "a\"b\n@PJL RESET\r")).output,
            job(begin("a'b @PJL RESET ", "7 jane a'b @PJL RESET "), "OFF", {}));
}

TEST_F(ImportedQueueTest, RefusedChoices_AreNamed) {
  EXPECT_EQ(withoutDebug(filter("PageSize=A0 Duplex=Custom.3")),
            failure(1,
                    "ERROR: option Duplex: there is no choice \"Custom.3\"; choose one of None, "
                    "DuplexNoTumble, DuplexTumble\n"
                    "ERROR: option PageSize: there is no choice \"A0\"; choose one of A4, A5, "
                    "Custom\n"));
}

TEST_F(ImportedQueueTest, CustomSizeOutsideOfTheLimits_IsRefused) {
  const RunResult result = withoutDebug(filter("PageSize=Custom.20x3000"));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_THAT(result.errors, testing::StartsWith("ERROR: option PageSize: "));
}

TEST_F(ImportedQueueTest, SizeThatLibcupsTranslates_IsRefusedByItsOwnName) {
  const std::string option = "job-uuid=1 media=Custom.20x3000 sides=two-sided-long-edge";
  const std::string xml = std::filesystem::canonical(folder()) / "office.xml";
  const RunResult failed = withoutDebug(filter(option));
  EXPECT_EQ(failed, failure(1,
                            "ERROR: option media: 20 is out of range; give a decimal number, from "
                            "100 to 1000 (" +
                                xml +
                                ":40)\nERROR: option media: 3000 is out of range; give a decimal "
                                "number, from 100 to 2000 (" +
                                xml + ":41)\n"));
  set("DRIVER_FEATURE_REFUSED_VALUE", "default");
  const RunResult printed = withoutDebug(filter(option));
  EXPECT_EQ(printed.output,
            job(begin("A title", "7 jane A title"), "OFF", {{"Duplex", "DuplexNoTumble"}}));
  EXPECT_THAT(printed.errors, testing::StartsWith("WARNING: option media: 20 is out of range; "));
  EXPECT_EQ(printed.status, 0);
}

// libcups has room for ten bytes of each number.
TEST_F(ImportedQueueTest, LongCustomNumbers_StayOutOfLibcupsMemory) {
  constexpr int kNumbers = 50;
  std::string mark;
  std::string jclMark;
  std::string jcl;
  std::string values;
  std::string postScript;
  std::string pjl;
  for (int i = 1; i <= kNumbers; ++i) {
    const std::string number = std::to_string(i);
    const std::string limits = " P" + number + ": " + number + " real 0 1e30\n";
    mark += "*ParamCustomMark" + limits;
    jclMark += "*ParamCustomJCLMark" + limits;
    jcl += " \\" + number;
    values += " P" + number + "=100000001504746621987668885504";
    postScript += "100000001504746621987668885504\n";
    pjl += " 100000001504746621987668885504";
  }
  write("numbers.ppd",
        "*PPD-Adobe: \"4.3\"\n*JCLBegin: \"<1B>%-12345X@PJL<0A>\"\n"
        "*JCLToPSInterpreter: \"@PJL ENTER LANGUAGE=POSTSCRIPT<0A>\"\n"
        "*OpenUI *Mark: PickOne\n*DefaultMark: A\n*Mark A: \"a\"\n*CloseUI: *Mark\n"
        "*CustomMark True: \"mark\"\n" +
            mark +
            "*JCLOpenUI *JCLMark: PickOne\n*OrderDependency: 10 JCLSetup *JCLMark\n"
            "*DefaultJCLMark: A\n*JCLMark A: \"\"\n*JCLCloseUI: *JCLMark\n"
            "*CustomJCLMark True: \"@PJL SET MARK=" +
            jcl + "<0A>\"\n" + jclMark);
  command({"import", "numbers.ppd", "--output", "numbers.xml"});
  command({"--library", DRIVER_FEATURE_LIBRARY, "queue", "numbers.xml", "--ppd", "numbers.ppd",
           "--output", "queue.ppd"});
  const std::string list = "{" + values.substr(1) + "}";
  EXPECT_THAT(filter("Mark=" + list).output,
              testing::HasSubstr("*CustomMark True\n" + postScript + "mark\n"));
  EXPECT_THAT(filter("JCLMark=" + list).output,
              testing::HasSubstr("USERNAME = \"jane\"\n@PJL SET MARK=" + pjl +
                                 "\n@PJL ENTER LANGUAGE=POSTSCRIPT\n%!PS"));
}

TEST_F(ImportedQueueTest, RefusedChoice_IsTheDefaultWhenTheQueueSaysSo) {
  set("DRIVER_FEATURE_REFUSED_VALUE", "default");
  const RunResult result = withoutDebug(filter("PageSize=A0 Duplex=DuplexTumble"));
  EXPECT_EQ(result.output,
            job(begin("A title", "7 jane A title"), "OFF", {{"Duplex", "DuplexTumble"}}));
  EXPECT_EQ(result.status, 0);
  const RunResult custom = withoutDebug(filter("PageSize=Custom.20x3000"));
  EXPECT_EQ(custom.output, job(begin("A title", "7 jane A title"), "OFF", {}));
}

// libcups ignores sizes and sides that the PPD does not have.
TEST_F(ImportedQueueTest, MediaAndSides_AreRefusedAsChoicesAre) {
  struct Row {
    const char* option;
    const char* reason;
  };
  const std::vector<Row> rows = {
      {"media=Bogus",
       "media: there is no size, tray or type \"Bogus\"; choose one of A4, A5, Custom"},
      {"media=A5,Bogus",
       "media: there is no size, tray or type \"Bogus\"; choose one of A4, A5, Custom"},
      {"media=Custom.10",
       "media: \"Custom.10\" is not a size; give one such as Custom.200x300 in points or "
       "Custom.10x20cm"},
      {"PageSize=Custom.200xinf",
       "PageSize: \"Custom.200xinf\" is not a size; give one such as Custom.200x300 in points or "
       "Custom.10x20cm"},
      {"PageSize=Custom.200x300km",
       "PageSize: \"Custom.200x300km\" is not a size; give one such as Custom.200x300 in points or "
       "Custom.10x20cm"},
      {"sides=bogus",
       "sides: there is no choice \"bogus\"; choose one of one-sided, two-sided-long-edge, "
       "two-sided-short-edge"}};
  for (const Row& row : rows) {
    EXPECT_EQ(withoutDebug(filter(row.option)),
              failure(1, "ERROR: option " + std::string(row.reason) + "\n"));
  }
  set("DRIVER_FEATURE_REFUSED_VALUE", "default");
  const std::string usual = job(begin("A title", "7 jane A title"), "OFF", {});
  for (const Row& row : rows) {
    const RunResult result = withoutDebug(filter(row.option));
    EXPECT_EQ(result.output, usual) << row.option;
    EXPECT_EQ(result.errors, "WARNING: option " + std::string(row.reason) +
                                 "; the queue's default is used instead\nPAGE: 1 1\nPAGE: 2 "
                                 "1\n");
  }
}

TEST_F(ImportedQueueTest, MediaAndSidesThatArePossible_Print) {
  const std::string a5 = job(begin("A title", "7 jane A title"), "OFF", {{"PageSize", "A5"}});
  for (const std::string option :
       {"media=iso_a5_148x210mm", "media=A5 sides=one-sided", "media=Bogus PageSize=A5"}) {
    EXPECT_EQ(filter(option).output, a5) << option;
  }
  // A printer without a choice prints on one side; others have asked for more.
  std::string ppd = read("queue.ppd");
  const std::size_t from = ppd.find("*OpenUI *Duplex");
  ppd.erase(from, ppd.find("*CloseUI: *Duplex\n") + 18 - from);
  write("queue.ppd", ppd);
  EXPECT_EQ(filter("sides=two-sided-long-edge media=").status, 0);
}

TEST_F(ImportedQueueTest, OptionThatWorks_IsNotReportedAsIgnored) {
  EXPECT_EQ(filter("media=A5 sides=two-sided-long-edge number-up=1 job-uuid=1").errors,
            "DEBUG: the description is " +
                std::string(std::filesystem::canonical(folder()) / "office.xml") +
                "\nDEBUG: option job-uuid is ignored, because this queue does not have it\n"
                "PAGE: 1 1\nPAGE: 2 1\n");
}

TEST_F(ImportedQueueTest, CustomPageRegion_IsACustomPageSize) {
  const RunResult result = withoutDebug(filter("PageRegion=Custom.335.75x468.5"));
  EXPECT_EQ(result.output,
            job(begin("A title", "7 jane A title"), "OFF", {{"PageSize", "Custom.335.75x468.5"}}));
  EXPECT_THAT(result.output, testing::HasSubstr("\n335.75\n468.5\n"));
  EXPECT_EQ(withoutDebug(filter("PageRegion=Custom.20x468.5")).status, 1);
  EXPECT_EQ(withoutDebug(filter("PageSize=A5 PageRegion=Custom.200x300")),
            failure(1,
                    "ERROR: option PageRegion: it cannot be together with another PageSize; give "
                    "one of them\n"));
}

}  // namespace
