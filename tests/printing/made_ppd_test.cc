// PPDs that the command "queue" makes of descriptions, and the jobs of their
// queues.

#include <cups/ppd.h>
#include <gmock/gmock.h>

#include <memory>
#include <sstream>
#include <string>

#include "printing/queue_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class MadePpdTest : public QueueCommandTest {
 protected:
  static std::string yesNo(const std::string& name) {
    return feature("MultiSelect", name, "DefaultValue='No'",
                   "<Option Name='No'/><Option Name='Yes'/>");
  }
};

TEST_F(MadePpdTest, NoPpd_MakesOneOfTheFeatures) {
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
  RunResult result =
      queue({"small.xml", "--name", "My \"small\" printer", "--default-for-refused"});
  result.output = withoutStamp(result.output);
  EXPECT_EQ(result.errors,
            "driver-feature: not in the PPD: PageSize=Custom: a PPD has this name for values of "
            "the user's own\n"
            "driver-feature: not in the PPD: PageSize=Roll: its size is not known; give it a name "
            "such as A4 or w612h792, or a PSCommand with /PageSize [WIDTH LENGTH]\n"
            "driver-feature: not in the PPD: Finish=a b: a PPD cannot have this name\n"
            "driver-feature: not in the PPD: Owner: a PPD has no options for texts\n"
            "driver-feature: not in the PPD: Two words: a PPD cannot have this name\n");
  EXPECT_EQ(result.status, 0);
  const std::string head = "*PPD-Adobe: \"4.3\"\n" + lines("small.xml", "default");
  EXPECT_EQ(result.output.substr(0, head.size()), head);
  EXPECT_THAT(result.output, HasSubstr("*ModelName: \"My  small  printer\"\n"));
  EXPECT_EQ(result.output.substr(result.output.find("*OpenUI")),
            "*OpenUI *PageSize: PickOne\n*OrderDependency: 10 AnySetup *PageSize\n"
            "*DefaultPageSize: A5\n*PageSize A4: \"\"\n*PageSize A5: \"\"\n*PageSize Big: \"\"\n"
            "*CloseUI: *PageSize\n"
            "*OpenUI *PageRegion: PickOne\n*OrderDependency: 10 AnySetup *PageRegion\n"
            "*DefaultPageRegion: A5\n*PageRegion A4: \"\"\n*PageRegion A5: \"\"\n"
            "*PageRegion Big: \"\"\n*CloseUI: *PageRegion\n"
            "*DefaultImageableArea: A5\n*ImageableArea A4: \"18 18 577 824\"\n"
            "*ImageableArea A5: \"18 18 402 577\"\n*ImageableArea Big: \"18 18 774 1206\"\n"
            "*DefaultPaperDimension: A5\n*PaperDimension A4: \"595 842\"\n"
            "*PaperDimension A5: \"420 595\"\n*PaperDimension Big: \"792 1224\"\n"
            "*OpenUI *Finish: PickOne\n*OrderDependency: 10 AnySetup *Finish\n*DefaultFinish: b\n"
            "*Finish b: \"\"\n*CloseUI: *Finish\n"
            "*OpenUI *Gamma: PickOne\n*OrderDependency: 10 AnySetup *Gamma\n*DefaultGamma: 1.5\n"
            "*Gamma 1.5: \"\"\n*CloseUI: *Gamma\n*CustomGamma True: \"\"\n"
            "*ParamCustomGamma Value: 1 real 0.5 1000000\n"
            "*OpenUI *Weight: PickOne\n*OrderDependency: 10 AnySetup *Weight\n*DefaultWeight: 80\n"
            "*Weight 80: \"\"\n*CloseUI: *Weight\n*CustomWeight True: \"\"\n"
            "*ParamCustomWeight Value: 1 int 60 220\n");
}

// The lines of groups and options.
std::string frameOf(const std::string& ppd) {
  std::string frame;
  std::istringstream lines(ppd);
  for (std::string line; std::getline(lines, line);) {
    const bool isFrame = line.starts_with("*OpenGroup") || line.starts_with("*CloseGroup") ||
                         line.starts_with("*OpenUI") || line.find(".Translation") == 3;
    if (isFrame) frame += line + "\n";
  }
  return frame;
}

TEST_F(MadePpdTest, Panels_AreGroups) {
  describe("small.xml", {feature("MultiSelect", "PageSize", "DefaultValue='A4'",
                                 "<Option Name='A4'/><Option Name='A5'/>"),
                         yesNo("Fold"), yesNo("Staple"), yesNo("Unit"), yesNo("Other")});
  write("small.xml",
        "<Driver>" + read("small.xml") +
            "<FeatureRules><Hardware Feature='Unit'/></FeatureRules><FeaturePanels>"
            "<Panel Name='Paper'><Member Feature='PageSize'/></Panel>"
            "<Panel Name='Empty'/><Panel Name='Two words'><Member Feature='Other'/></Panel>"
            "<Panel Name='Finishing' Text='Finishing: all'><Member Feature='Unit'/>"
            "<Member Feature='Staple'/><Member Feature='Fold'/></Panel>"
            "<Panel Name='Late'><Member Feature='Fold'/></Panel></FeaturePanels>"
            "<FeatureTexts Language='en'><Text For='panel:Paper'>Sheets</Text></FeatureTexts>"
            "<FeatureTexts Language='de'><Text For='panel:Paper'>Papier</Text></FeatureTexts>"
            "</Driver>");
  const RunResult result = queue({"small.xml"});
  EXPECT_EQ(result.errors,
            "driver-feature: not in the PPD: panel Two words: a PPD cannot have this name\n");
  EXPECT_EQ(frameOf(result.output),
            "*OpenUI *Other: PickOne\n"
            "*OpenGroup: Paper/Sheets\n*OpenUI *PageSize: PickOne\n"
            "*OpenUI *PageRegion: PickOne\n*CloseGroup: Paper\n"
            "*OpenGroup: Finishing/Finishing<3A> all\n*OpenUI *Staple: PickOne\n"
            "*OpenUI *Fold: PickOne\n*CloseGroup: Finishing\n"
            "*OpenGroup: InstallableOptions/Installable Options\n*OpenUI *Unit: PickOne\n"
            "*CloseGroup: InstallableOptions\n*de.Translation Paper/Papier: \"\"\n");
}

TEST_F(MadePpdTest, GroupsOfAnImportedPpd_ComeBack) {
  const std::string groups =
      "*OpenGroup: Finishing/Finish it\n*OpenUI *Staple: PickOne\n*CloseGroup: Finishing\n"
      "*OpenGroup: InstallableOptions/Units\n*OpenUI *Unit: PickOne\n"
      "*CloseGroup: InstallableOptions\n"
      "*de.Translation Finishing/Fertigstellen: \"\"\n"
      "*de.Translation InstallableOptions/Einheiten: \"\"\n";
  std::string ppd = "*PPD-Adobe: \"4.3\"\n";
  std::istringstream lines(groups);
  for (std::string line; std::getline(lines, line);) {
    ppd += line + "\n";
    if (!line.starts_with("*OpenUI *")) continue;
    const std::string name = line.substr(9, line.find(':') - 9);
    ppd += "*Default" + name + ": A\n*" + name + " A: \"\"\n*" + name + " B: \"x\"\n*CloseUI: *" +
           name + "\n";
  }
  write("in.ppd", ppd);
  command({"import", "in.ppd", "--output", "in.xml"});
  EXPECT_THAT(read("in.xml"), HasSubstr("<Panel Name=\"Finishing\">\n"
                                        "      <Member Feature=\"Staple\"/>\n    </Panel>\n"));
  command({"check", "in.xml", "--strict"});
  const RunResult result = queue({"in.xml"});
  EXPECT_THAT(frameOf(result.output), HasSubstr(groups));
}

// The second of two keeps its asterisk, since the first has the name without, and is
// lost, as is a group without a name.
TEST_F(MadePpdTest, GroupsNamedAsKeywords_LoseTheAsterisk) {
  const auto option = [](const std::string& group, const std::string& name) {
    return "*OpenGroup: " + group + "\n*OpenUI *" + name + ": PickOne\n*Default" + name + ": A\n*" +
           name + " A: \"\"\n*" + name + " B: \"x\"\n*CloseUI: *" + name +
           "\n*CloseGroup: " + group.substr(0, group.find('/')) + "\n";
  };
  write("in.ppd", "*PPD-Adobe: \"4.3\"\n" + option("*Images/Pictures", "Dots") +
                      option("Fonts/Letters", "Bold") + option("*Fonts/More letters", "Thin") +
                      option("", "Alone"));
  command({"import", "in.ppd", "--output", "in.xml"});
  command({"check", "in.xml", "--strict"});
  const RunResult result = queue({"in.xml"});
  EXPECT_THAT(frameOf(result.output),
              HasSubstr("*OpenGroup: Images/Pictures\n*OpenUI *Dots: PickOne\n"
                        "*CloseGroup: Images\n*OpenGroup: Fonts/Letters\n*OpenUI *Bold: PickOne\n"
                        "*CloseGroup: Fonts\n"));
  EXPECT_THAT(result.output, Not(HasSubstr("More letters")));
}

TEST_F(MadePpdTest, NamesThatDifferInCaseOnly_SecondIsNamed) {
  describe("small.xml",
           {feature("MultiSelect", "Tray", "DefaultValue='b' PSCommand='%s '",
                    "<Option Name='B' PSCommand='big'/><Option Name='b' PSCommand='small'/>"),
            feature("MultiSelect", "tray", "", "<Option Name='x'/>")});
  const std::string reason =
      ": another one has this name, and a PPD does not distinguish capital from small letters\n";
  EXPECT_EQ(queue({"small.xml", "--output", "queue.ppd"}).errors,
            "driver-feature: not in the PPD: Tray=b" + reason +
                "driver-feature: not in the PPD: tray" + reason);
  // The default is the description's, though the PPD does not have it.
  set("PPD", "queue.ppd");
  EXPECT_THAT(filter("").output, HasSubstr("\nsmall \n"));
  EXPECT_THAT(filter("Tray=B").output, HasSubstr("\nbig \n"));
}

TEST_F(MadePpdTest, ImportedDescription_HasEachOptionOnceAndNoJobFrame) {
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

TEST_F(MadePpdTest, MadePpd_CarriesDefaultsAndNumbersIntoTheJob) {
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

TEST_F(MadePpdTest, MadePpd_CanBeReadByLibcups) {
  EXPECT_EQ(queue({"printer.xml", "--output", "queue.ppd"}), success(""));
  const std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd(
      ppdOpenFile((folder() / "queue.ppd").c_str()), &ppdClose);
  ASSERT_TRUE(ppd);
  EXPECT_EQ(ppd->num_sizes, 3);
  EXPECT_EQ(ppd->num_filters, 2);
  EXPECT_NE(ppdFindOption(ppd.get(), "Duplex"), nullptr);
  EXPECT_EQ(ppdFindOption(ppd.get(), "Copies"), nullptr);
}

}  // namespace
