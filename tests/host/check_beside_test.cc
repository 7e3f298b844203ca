// The command "check" on files beside the description, and on one language.

#include "host/check_fixture.h"

namespace {

class CheckBesideTest : public CheckTest {
 protected:
  CheckBesideTest() {
    describeRow({"<Feature FeatureType='MultiSelect' Name='Duplex' DefaultValue='None'>",
                 "<Option Name='None'/><Option Name='Long'/></Feature>",
                 "<Feature FeatureType='IntEntry' Name='Copies' IntMaxValue='9' DefaultValue='1' "
                 "Visibility='false'/>"});
  }

  RunResult found(int status, const std::string& findings, const std::string& totals) const {
    return {status, findings + "1 file checked: " + totals + "\n", ""};
  }
};

TEST_F(CheckBesideTest, Check_RulesFile_IsNamedByItsFindings) {
  write("d.rules.xml",
        "<FeatureRules>\n <Never Id='a'><When Feature='Duplx' Is='Long'/></Never>\n"
        "</FeatureRules>\n");
  EXPECT_EQ(run({"check", "d.xml"}),
            (RunResult{1,
                       "d.rules.xml:2:22: error: rule \"a\" names a feature \"Duplx\" that does "
                       "not exist; did you mean \"Duplex\"? [DF723]\n"
                       "    2 |  <Never Id='a'><When Feature='Duplx' Is='Long'/></Never>\n"
                       "      |                      ^\n"
                       "1 file checked: 1 error, 0 warnings; --explain CODE says what the code of "
                       "a finding means\n",
                       ""}));
  EXPECT_EQ(check({"d.xml", "--format", "github"}).output,
            "::error file=d.rules.xml,line=2,col=22,title=DF723::rule \"a\" names a feature "
            "\"Duplx\" that does not exist; did you mean \"Duplex\"?\n");
  const std::string json = check({"d.xml", "--json"}).output;
  EXPECT_NE(json.find("\"file\": \"d.rules.xml\""), std::string::npos) << json;
  const std::string sarif = check({"d.xml", "--format", "sarif"}).output;
  EXPECT_NE(sarif.find("\"uri\": \"d.rules.xml\""), std::string::npos) << sarif;
}

TEST_F(CheckBesideTest, Check_CommentInTheRulesFile_Allows) {
  write("d.rules.xml",
        "<FeatureRules>\n<!-- driver-feature: allow DF731: on purpose -->\n"
        "<Hardware Feature='Duplex'/>\n<!-- driver-feature: allow DF731: on purpose -->\n"
        "<Hardware Feature='Duplex'/></FeatureRules>\n");
  EXPECT_EQ(check({"d.xml"}),
            found(0,
                  "d.rules.xml:2:1: warning: this comment allows DF731, which is not reported for "
                  "the next element; remove DF731 from it [DF911]\n",
                  "0 errors, 1 warning"));
}

TEST_F(CheckBesideTest, Check_RulesFileIsNotXml_IsAFinding) {
  write("d.rules.xml", "<FeatureRules>\n");
  EXPECT_EQ(check({"d.xml"}),
            found(1,
                  "d.rules.xml:2:1: error: the file ends while <FeatureRules> of line 1 is still "
                  "open; write </FeatureRules> where the element ends [DF715]\n",
                  "1 error, 0 warnings"));
}

TEST_F(CheckBesideTest, Check_PresetFile_IsNamedByItsFindings) {
  std::filesystem::create_directory(folder() / "d.presets");
  write("d.presets/draft.settings", "Duplex=Long\n  Copies=10\n");
  EXPECT_EQ(check({"d.xml"}),
            found(1,
                  "d.presets/draft.settings:2:3: error: preset \"draft\": 10 is out of range; give "
                  "a whole number, at most 9 (d.xml:5) [DF752]\n",
                  "1 error, 0 warnings"));
}

TEST_F(CheckBesideTest, Check_Translations_AreNamedByTheirFindings) {
  write("d.de.po",
        "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n"
        " msgctxt \"Duplex.Non\"\nmsgid \"Off\"\nmsgstr \"Aus\"\n\n"
        "msgid \"Long\"\nmsgstr \"Lang\"\n");
  EXPECT_EQ(check({"d.xml"}),
            found(1,
                  "d.de.po:4:2: error: there is nothing with the key \"Duplex.Non\"; did you mean "
                  "\"Duplex.None\"? [DF741]\n"
                  "d.de.po:8:1: error: the translation of \"Long\" does not belong to anything; "
                  "give the key of "
                  "the text, such as \"Duplex.None\", in msgctxt [DF741]\n",
                  "2 errors, 0 warnings"));
}

TEST_F(CheckBesideTest, Check_Language_IsToBeComplete) {
  EXPECT_EQ(check({"d.xml", "--language", "de"}),
            found(1,
                  "d.xml: error: language \"de\" lacks 3 of 3 texts: Duplex, Duplex.None, "
                  "Duplex.Long; add <FeatureTexts Language=\"de\"> [DF745]\n",
                  "1 error, 0 warnings"));
  write("d.de.po",
        "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n"
        "msgctxt \"Duplex\"\nmsgid \"Two sides\"\nmsgstr \"Beidseitig\"\n\n"
        "msgctxt \"Duplex.None\"\nmsgid \"Off\"\nmsgstr \"Aus\"\n");
  EXPECT_EQ(check({"d.xml", "--language", "DE"}),
            found(1,
                  "d.de.po: error: language \"DE\" lacks 1 of 3 texts: Duplex.Long; add them "
                  "[DF745]\n",
                  "1 error, 0 warnings"));
  write("d.de.po", read("d.de.po") + "\nmsgctxt \"Duplex.Long\"\nmsgid \"Long\"\nmsgstr \"L\"\n");
  EXPECT_EQ(check({"d.xml", "--language", "de"}), found(0, "", "0 errors, 0 warnings"));
  EXPECT_EQ(check({"d.xml"}), found(0, "", "0 errors, 0 warnings"));
}

TEST_F(CheckBesideTest, Check_LanguageOfARegion_HasTheTextsOfTheLanguage) {
  const std::string head = "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n";
  write("d.de.po", head +
                       "msgctxt \"Duplex\"\nmsgid \"Two sides\"\nmsgstr \"Beidseitig\"\n\n"
                       "msgctxt \"Duplex.None\"\nmsgid \"Off\"\nmsgstr \"Aus\"\n");
  EXPECT_EQ(check({"d.xml", "--language", "de_AT.UTF-8"}),
            found(1,
                  "d.de.po: error: language \"de_AT.UTF-8\" lacks 1 of 3 texts: Duplex.Long; add "
                  "them [DF745]\n",
                  "1 error, 0 warnings"));
  write("d.de-AT.po", head + "msgctxt \"Duplex.Long\"\nmsgid \"Long\"\nmsgstr \"Lang\"\n");
  EXPECT_EQ(check({"d.xml", "--language", "de_AT.UTF-8"}).status, 0);
}

}  // namespace
