#include "programs/driver_feature/completion/candidates.h"

#include <unistd.h>

#include <gtest/gtest.h>

#include <fstream>

#include "programs/driver_feature/command_line.h"
#include "programs/driver_feature/completion/place.h"

namespace driver_feature::cli {

namespace {

// Completes a line of the program's own arguments.
Completion completeLine(const std::vector<std::string>& words) {
  return complete(programRows(), words);
}

std::vector<std::string> textsFor(const std::vector<std::string>& words) {
  std::vector<std::string> texts;
  for (const Candidate& candidate : completeLine(words).candidates) {
    texts.push_back(candidate.text);
  }
  return texts;
}

using Texts = std::vector<std::string>;

class CandidatesTest : public testing::Test {
 protected:
  CandidatesTest() : file_(testing::TempDir() + "candidates." + std::to_string(getpid()) + ".xml") {
    std::ofstream(file_) << R"(<Driver><FeatureDescription>
  <Feature FeatureType="MultiSelect" Name="Tray"><Option Name="Top"/><Option Name="Bottom"/><Other Name="None"/></Feature>
  <Feature FeatureType="IntEntry" Name="Total"/>
  <Feature FeatureType="UIOnly" Name="Title"/>
  <FeatureStaticGroup Name="Texts">
    <Feature FeatureType="TextEntry" Name="TextIn"/>
    <Feature FeatureType="FloatEntry" Name="TiltIn"/>
  </FeatureStaticGroup>
  <FeatureDynamicGroup Name="Jobs"><FeatureStaticGroup Name="JobTemplate"/></FeatureDynamicGroup>
</FeatureDescription>
<FeaturePresets><Preset Name="draft" Text="Draft"/><Preset Name="final"/></FeaturePresets>
<FeatureTexts Language="de"/><FeatureTexts Language="fr"/><FeatureTexts Language="de"/>
</Driver>)";
  }
  ~CandidatesTest() override { std::remove(file_.c_str()); }

  std::string file_;
};

TEST_F(CandidatesTest, Complete_FeatureNames_AreThoseThatHoldAValue) {
  EXPECT_EQ(textsFor({"show", file_, "-o", ""}), (Texts{"Tray=", "Total=", "TextIn=", "TiltIn="}));
  EXPECT_EQ(textsFor({"show", file_, "-o", "T"}), (Texts{"Tray=", "Total=", "TextIn=", "TiltIn="}));
  EXPECT_EQ(textsFor({"show", file_, "-o", "To"}), Texts{"Total="});
  EXPECT_EQ(completeLine({"show", file_, "-o", "To"}).candidates.front().meaning, "IntEntry");
  EXPECT_EQ(textsFor({"show", file_, "-oTo"}), Texts{"-oTotal="});
}

TEST_F(CandidatesTest, Complete_ValueOfAFeature_IsOneOfItsOptions) {
  EXPECT_EQ(textsFor({"show", file_, "-o", "Tray="}),
            (Texts{"Tray=Top", "Tray=Bottom", "Tray=None"}));
  EXPECT_EQ(textsFor({"show", file_, "--option=Tray=B"}), Texts{"--option=Tray=Bottom"});
  EXPECT_EQ(textsFor({"show", file_, "-o", "Total="}), Texts{});
  EXPECT_EQ(textsFor({"show", file_, "-o", "Tra="}), Texts{});
}

TEST_F(CandidatesTest, Complete_Keys_StandBesideNames) {
  std::ofstream(file_) << R"(<FeatureDescription>
  <Feature FeatureType="MultiSelect" Name="PageSize" CLOKey="media">
    <Option Name="A4" CLOKey="iso"/><Option Name="iso"/><Option Name="Letter" CLOKey="na"/></Feature>
  <Feature FeatureType="IntEntry" Name="Copies" CLOKey="PageSize"/>
  <Feature FeatureType="IntEntry" Name="Again" CLOKey="media"/>
  <Feature FeatureType="UIOnly" Name="Title" CLOKey="title"/>
</FeatureDescription>)";
  EXPECT_EQ(textsFor({"show", file_, "-o", ""}),
            (Texts{"PageSize=", "media=", "Copies=", "Again="}));
  EXPECT_EQ(textsFor({"show", file_, "-o", "media="}),
            (Texts{"media=A4", "media=iso", "media=na"}));
  EXPECT_EQ(textsFor({"show", file_, "-o", "media=L"}), Texts{"media=Letter"});
  EXPECT_EQ(textsFor({"show", file_, "-o", "PageSize="}),
            (Texts{"PageSize=A4", "PageSize=iso", "PageSize=Letter"}));
  EXPECT_EQ(textsFor({"show", file_, "-o", "PageSize=n"}), Texts{"PageSize=na"});
}

TEST_F(CandidatesTest, Complete_NamesToShow_AreFeaturesAndGroups) {
  EXPECT_EQ(textsFor({"show", file_, "T"}),
            (Texts{"Tray", "Total", "Title", "TextIn", "TiltIn", "Texts"}));
  EXPECT_EQ(textsFor({"show", file_, "J"}), (Texts{"JobTemplate", "Jobs"}));
}

TEST_F(CandidatesTest, Complete_Records_TakeADynamicGroupAndAFile) {
  EXPECT_EQ(textsFor({"show", file_, "--records", ""}), Texts{"Jobs"});
  EXPECT_FALSE(completeLine({"show", file_, "--records", ""}).files);
  EXPECT_TRUE(completeLine({"show", file_, "--records", "Jobs", ""}).files);
}

TEST_F(CandidatesTest, Complete_PresetsAndLanguages_AreThoseOfTheDescription) {
  EXPECT_EQ(textsFor({"emit", file_, "--preset", ""}), (Texts{"draft", "final"}));
  EXPECT_EQ(completeLine({"emit", file_, "--preset", "d"}).candidates.front().meaning, "Draft");
  EXPECT_EQ(textsFor({"check", file_, "--language", ""}), (Texts{"de", "fr"}));
  EXPECT_EQ(textsFor({"emit", "-", "--preset", ""}), Texts{});
  EXPECT_EQ(textsFor({"emit", "missing.xml", "--preset", ""}), Texts{});
  EXPECT_EQ(textsFor({"check", "missing.xml", "--language", ""}), Texts{});
}

TEST_F(CandidatesTest, Complete_DescriptionThatCannotBeRead_OffersNothing) {
  EXPECT_EQ(textsFor({"show", "missing.xml", "-o", ""}), Texts{});
  EXPECT_EQ(textsFor({"show", "-o", ""}), Texts{});
}

TEST(CompletionTest, Complete_Forms_AreAloneAfterACommaOrWithAFile) {
  EXPECT_EQ(textsFor({"emit", "--to", ""}), (Texts{"pjl", "ps", "ticket"}));
  EXPECT_EQ(textsFor({"emit", "--to", "p"}), (Texts{"pjl", "ps"}));
  EXPECT_EQ(textsFor({"emit", "--to", "ps,t"}), Texts{"ps,ticket"});
  EXPECT_EQ(textsFor({"emit", "--to", "ps,pjl,t"}), Texts{"ps,pjl,ticket"});
  const Completion file = completeLine({"emit", "--to=ps=jo"});
  EXPECT_TRUE(file.files);
  EXPECT_EQ(file.filePrefix, "--to=ps=");
  EXPECT_TRUE(file.candidates.empty());
}

TEST(CompletionTest, Complete_CommandsAndOptions_HaveTheirMeaning) {
  const Completion commands = completeLine({"em"});
  EXPECT_FALSE(commands.files);
  EXPECT_EQ(commands.candidates,
            (std::vector<Candidate>{{"emit", "Write printer-ready output of the features"}}));
  EXPECT_EQ(textsFor({"show", "--js"}), Texts{"--json"});
  EXPECT_EQ(textsFor({"show", "a.xml", "--verb"}), Texts{"--verbose"});
  EXPECT_EQ(textsFor({"--verb"}), Texts{"--verbose"});
  EXPECT_EQ(textsFor({"--js"}), Texts{});
  EXPECT_EQ(textsFor({"show", "--", "--js"}), Texts{});
  EXPECT_EQ(textsFor({"show", "a.xml", "B", "--", "--js"}), Texts{});
}

TEST(CompletionTest, CompletionText_FilesAndWords_HaveALineEach) {
  EXPECT_EQ(completionText({false, "", {{"a", "First"}, {"b", ""}}}), "words\na\tFirst\nb\t\n");
  EXPECT_EQ(completionText({true, "ps=", {}}), "files\tps=\n");
  EXPECT_EQ(
      completionText({false, "", {{"a\nb", ""}, {"a\tb", ""}, {"\x7f", ""}, {"\xc3\xa9", ""}}}),
      "words\n\xc3\xa9\t\n");
}

// An argument of a forgotten kind would be completed with nothing, which is easy
// to overlook.
TEST(CompletionTest, HasKnownKinds_EveryArgumentOfTheProgram_IsTrue) {
  const ProgramRows& program = programRows();
  ASSERT_GE(program.commands.size(), 5U);
  for (const ArgumentRow& row : program.general) EXPECT_TRUE(hasKnownKinds(row)) << row.name;
  for (const CommandRow* command : program.commands) {
    for (const ArgumentRow* row : command->arguments()) {
      EXPECT_TRUE(hasKnownKinds(*row)) << command->name << " " << row->name;
    }
  }
}

TEST(CompletionTest, HasKnownKinds_OtherKind_IsFalse) {
  EXPECT_FALSE(hasKnownKinds({"--a", "THING", "A thing"}));
  EXPECT_FALSE(hasKnownKinds({"--b", "GROUP THING", "Two"}));
  EXPECT_TRUE(hasKnownKinds({"--c", "FILE", "A file", kRepeats}));
  EXPECT_TRUE(hasKnownKinds({"--d", "", "A flag"}));
}

}  // namespace

}  // namespace driver_feature::cli
