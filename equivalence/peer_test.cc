#include "equivalence/peer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "equivalence/vectors.h"

namespace driver_feature::equivalence {

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr const char* kPpd = R"(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*LanguageEncoding: ISOLatin1
*JCLBegin: "<1B>%-12345X@PJL<0A>"
*JCLToPSInterpreter: "@PJL ENTER LANGUAGE=POSTSCRIPT<0A>"
*JCLEnd: "<1B>%-12345X"
*RequiresPageRegion All: True
*OpenUI *PageSize/Size: PickOne
*OrderDependency: 20 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "size"
*CloseUI: *PageSize
*OpenUI *PageRegion/Region: PickOne
*OrderDependency: 30 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "region"
*CloseUI: *PageRegion
*PaperDimension A4: "595 842"
*ImageableArea A4: "0 0 595 842"
*MaxMediaWidth: "1000"
*MaxMediaHeight: "2000"
*VariablePaperSize: True
*CustomPageSize True: "custom"
*ParamCustomPageSize Width: 1 points 100 1000
*ParamCustomPageSize Height: 2 points 100 2000
*ParamCustomPageSize WidthOffset: 3 points 0 0
*ParamCustomPageSize HeightOffset: 4 points 0 0
*ParamCustomPageSize Orientation: 5 int 0 3
*OpenUI *InputSlot/Slot: PickOne
*OrderDependency: 10 Prolog *InputSlot
*DefaultInputSlot: Tray
*InputSlot Tray/Tray: "%tray)"
                             "\xE9"
                             R"("
*CloseUI: *InputSlot
*OpenUI *Fold/Fold: PickMany
*OrderDependency: 10 PageSetup *Fold
*DefaultFold: Half
*Fold Half/Half: "half"
*Fold Z/Z: "z"
*CloseUI: *Fold
*JCLOpenUI *JCLName/Name: PickOne
*OrderDependency: 10 JCLSetup *JCLName
*DefaultJCLName: None
*JCLName None/None: ""
*JCLCloseUI: *JCLName
*OpenUI *Ink/Ink: PickOne
*DefaultInk: Unknown
*Ink Black/Black: "black"
*CloseUI: *Ink
*CustomJCLName True: "@PJL NAME=\1<0A>"
*ParamCustomJCLName Text: 1 string 1 8
)";

std::string frame(const std::string& title, const std::string& code) {
  return "[{\n%%BeginFeature: *" + title + "\n" + code + "\n%%EndFeature\n} stopped cleartomark\n";
}

class PeerTest : public testing::Test {
 protected:
  void SetUp() override {
    // The tests run at the same time, each in a process of its own.
    const std::string path =
        testing::TempDir() + "peer_test." + std::to_string(::getpid()) + ".ppd";
    std::ofstream(path) << kPpd;
    auto opened = Peer::open(path);
    std::filesystem::remove(path);
    ASSERT_TRUE(opened) << opened.error().text;
    peer_ = std::move(*opened);
  }

  std::vector<std::string> settings() {
    std::vector<std::string> lines;
    peer_->settle();
    for (const FeatureValue& setting : peer_->settings()) {
      lines.push_back(setting.feature + "=" + setting.value);
    }
    return lines;
  }

  std::unique_ptr<Peer> peer_;
};

TEST_F(PeerTest, Defaults_AreThoseAfterTheRulesOfMedia) {
  EXPECT_THAT(settings(),
              ElementsAre("PageSize=not set", "PageRegion=A4", "InputSlot=Tray", "Fold.Half=True",
                          "Fold.Z=False", "Ink=not set", "JCLName=None"));
  const JobTexts texts = peer_->texts();
  EXPECT_THAT(texts.sections,
              ElementsAre("", frame("InputSlot Tray", "%tray\xE9"), "",
                          frame("PageRegion A4", "region"), frame("Fold Half", "half")));
  EXPECT_EQ(texts.jcl, "\x1B%-12345X@PJL\n@PJL ENTER LANGUAGE=POSTSCRIPT\n");
  EXPECT_EQ(texts.jclEnd, "\x1B%-12345X");
}

TEST_F(PeerTest, CustomValues_AreSettingsAndText) {
  peer_->mark({{"PageRegion", "Custom", {{"Width", "200.5"}, {"Height", "300"}}},
               {"JCLName", "Custom", {{"Text", "a(b)"}}}});
  EXPECT_THAT(settings(),
              ElementsAre("PageSize=Custom", "PageSize.Width=200.5", "PageSize.Height=300",
                          "PageRegion=not set", "InputSlot=Tray", "Fold.Half=True", "Fold.Z=False",
                          "Ink=not set", "JCLName=Custom", "JCLName.Text=a(b)"));
  const JobTexts texts = peer_->texts();
  EXPECT_EQ(texts.sections[3], frame("CustomPageSize True", "200.5\n300\n0\n0\n1\ncustom"));
  EXPECT_EQ(texts.jcl, "\x1B%-12345X@PJL\n@PJL NAME=a(b)\n@PJL ENTER LANGUAGE=POSTSCRIPT\n");
}

TEST_F(PeerTest, ManyChoices_AreMarkedTogether) {
  peer_->mark({{"Fold", "", {}}, {"Fold", "Half", {}}, {"Fold", "Z", {}}});
  EXPECT_THAT(settings(), AllOf(Contains("Fold.Half=True"), Contains("Fold.Z=True")));
  EXPECT_EQ(peer_->texts().sections[4], frame("Fold Half", "half") + frame("Fold Z", "z"));
  peer_->mark({{"Fold", "", {}}});
  EXPECT_THAT(settings(), AllOf(Contains("Fold.Half=False"), Contains("Fold.Z=False")));
  EXPECT_EQ(peer_->texts().sections[4], "");
}

TEST_F(PeerTest, Figures_CountWhatIsThere) {
  const PpdFigures figures = peer_->figures();
  EXPECT_EQ(figures.options, 6);
  // The custom choices of PageSize, PageRegion and JCLName are choices, too.
  EXPECT_EQ(figures.choices, 10);
  EXPECT_EQ(figures.jclOptions, 1);
  EXPECT_EQ(figures.customOptions, 2);
  EXPECT_EQ(figures.longestCode, 13);
  EXPECT_FALSE(figures.hasEscapes);
  EXPECT_TRUE(figures.hasHighBytes);
}

TEST_F(PeerTest, RandomMarks_ReachEveryChoice) {
  Random random(5);
  std::vector<std::string> described;
  for (int i = 0; i < 100; ++i)
    described.push_back(" " + describe(randomMarks(*peer_, random)) + " ");
  for (const char* choice :
       {" PageSize=A4 ", " PageSize=Custom{", " PageRegion=A4 ", " PageRegion=Custom{",
        " InputSlot=Tray ", " Fold=Half ", " Fold=Z ", " JCLName=None ", " JCLName=Custom{Text="}) {
    EXPECT_THAT(described, Contains(testing::HasSubstr(choice)));
  }
  EXPECT_THAT(described, Contains(Not(testing::HasSubstr(" Fold="))));
}

TEST_F(PeerTest, MediaMarks_CombineSlotsAndSizes) {
  Random random(5);
  std::vector<std::string> described;
  for (const Marks& marks : mediaMarks(*peer_, random)) {
    std::string text;
    for (const Mark& mark : marks) text += " " + mark.option + "=" + mark.choice;
    described.push_back(text);
  }
  EXPECT_THAT(described, ElementsAre(" PageSize=A4", " PageSize=Custom", " PageRegion=A4",
                                     " InputSlot=Tray", " InputSlot=Tray PageSize=A4",
                                     " InputSlot=Tray PageSize=Custom", " PageSize=Custom",
                                     " PageRegion=Custom", " Ink=Black", " JCLName=Custom"));
}

}  // namespace

}  // namespace driver_feature::equivalence
