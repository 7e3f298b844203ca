#include "host/description/additions.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/description/description_index.h"

namespace driver_feature::host {

namespace {

std::string shown(const SourcePlace& place) {
  return std::filesystem::path(place.file).filename().string() + ":" +
         std::to_string(place.position.line) + ":" + std::to_string(place.position.column);
}

std::string shown(const Condition& condition) {
  constexpr const char* kWords[] = {" is", " is not", " above", " below"};
  std::string text = condition.feature + kWords[static_cast<int>(condition.kind)];
  for (const std::string& choice : condition.choices) text += " " + choice;
  if (condition.choices.empty()) text += " " + numberText(static_cast<float>(condition.number));
  for (const Position& place : condition.choicePositions) {
    text += " @" + std::to_string(place.line) + ":" + std::to_string(place.column);
  }
  return text;
}

std::string shown(const Problems& problems) {
  std::string text;
  for (const Problem& problem : problems) {
    text += shown({problem.file, problem.position}) + " " + problem.text + "; " + problem.remedy +
            " (" + problem.cause + ")\n";
  }
  return text;
}

// All that was read, a line for each thing.
std::string shown(const Additions& additions) {
  std::string text;
  for (const HardwareFeature& feature : additions.rules.hardware) {
    text += shown(feature.place) + " hardware " + feature.name + "\n";
  }
  for (const Rule& rule : additions.rules.rules) {
    text += shown(rule.place) + " never " + rule.id + " \"" + rule.text + "\"\n";
    for (const Condition& when : rule.conditions) {
      text += "  " + shown(when.place) + " " + shown(when) + "\n";
    }
  }
  for (const TextsOfLanguage& language : additions.texts) {
    text += shown(language.place) + " texts " + language.language + "\n";
    for (const Text& entry : language.texts) {
      text += "  " + shown(entry.place) + " " + entry.key + " = " + entry.text + "\n";
    }
  }
  for (const Preset& preset : additions.presets) {
    text += shown(preset.place) + " preset " + preset.name + " \"" + preset.text + "\" " +
            shown(preset.settingsPlace) + " [" + preset.settings + "]\n";
  }
  for (const Panel& panel : additions.panels) {
    text += shown(panel.place) + " panel " + panel.name + " \"" + panel.text + "\"\n";
    for (const PanelMember& member : panel.members) {
      text += "  " + shown(member.place) + " " + member.feature + "\n";
    }
  }
  if (!additions.media.feature.empty()) {
    text += shown(additions.media.place) + " media " + additions.media.feature + "\n";
  }
  for (const MediaSize& size : additions.media.sizes) {
    text += "  " + shown(size.place) + " " + size.option;
    for (const double length :
         {size.width, size.height, size.left, size.bottom, size.right, size.top}) {
      text += " " + numberText(static_cast<float>(length));
    }
    text += "\n";
  }
  return text + shown(additions.problems);
}

class AdditionsTest : public testing::Test {
 protected:
  AdditionsTest() {
    std::string folder =
        (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
    if (mkdtemp(folder.data()) != nullptr) folder_ = folder;
  }
  ~AdditionsTest() override { std::filesystem::remove_all(folder_); }

  void write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }

  // What is read of office.xml, whose root holds `inside` from line 2 on.
  std::string read(const std::string& inside, unsigned parts = kAllParts) const {
    const auto document = Document::ofText((folder_ / "office.xml").string(), wrapped(inside));
    return document ? shown(readAdditions(*document, parts)) : document.error().text;
  }

  static std::string wrapped(const std::string& inside) {
    return "<Driver><FeatureDescription/>\n" + inside + "</Driver>\n";
  }

  std::filesystem::path folder_;
};

TEST_F(AdditionsTest, Read_Rules_AllForms) {
  EXPECT_EQ(read("<FeatureRules>\n"
                 " <Hardware Feature='Unit'/>\n"
                 " <Never Id='a' Text='No &lt;film&gt;'>\n"
                 "  <When Feature='Type' Is='Film'/><When Feature='Duplex' IsNot='None'/>\n"
                 "  <When Feature='Copies' Above='10'/><When Feature='Length' Below='-2.5'/>\n"
                 " </Never>\n"
                 " <Never Id='b'><When Feature='Size'><Is Choice='A3'/>\n"
                 "  <Is Choice='A4'/></When>\n"
                 "  <When Feature='Tray'><IsNot Choice='1'/></When></Never>\n"
                 "</FeatureRules>\n"),
            "office.xml:3:12 hardware Unit\n"
            "office.xml:4:9 never a \"No <film>\"\n"
            "  office.xml:5:9 Type is Film @5:24\n"
            "  office.xml:5:41 Duplex is not None @5:58\n"
            "  office.xml:6:9 Copies above 10\n"
            "  office.xml:6:44 Length below -2.5\n"
            "office.xml:8:9 never b \"\"\n"
            "  office.xml:8:22 Size is A3 A4 @8:41 @9:7\n"
            "  office.xml:10:9 Tray is not 1 @10:31\n");
}

TEST_F(AdditionsTest, Read_TextsPresetsAndMedia_AllForms) {
  EXPECT_EQ(
      read("<FeatureTexts Language='de'>\n"
           " <Text For='Duplex'>\n   Beidseitiger\n   Druck &amp; mehr </Text>\n"
           " <Text For='Duplex.None'/>\n"
           "</FeatureTexts>\n"
           "<FeaturePresets>\n <Preset Name='draft'\n   Text='Draft'>\n Copies=1\n</Preset>"
           "</FeaturePresets>\n"
           "<FeatureMedia Feature='Size'><Size Option='A4' Width='210' Height='297.5'\n"
           " LeftMargin='1' BottomMargin='2' RightMargin='3' TopMargin='4'/></FeatureMedia>\n"),
      "office.xml:2:15 texts de\n"
      "  office.xml:3:8 Duplex = Beidseitiger Druck & mehr\n"
      "  office.xml:6:8 Duplex.None = \n"
      "office.xml:9:10 preset draft \"Draft\" office.xml:10:0 [\n Copies=1\n]\n"
      "office.xml:13:15 media Size\n"
      "  office.xml:13:36 A4 210 297.5 1 2 3 4\n");
}

TEST_F(AdditionsTest, Read_Panels_AreInTheirOrder) {
  EXPECT_EQ(read("<FeaturePanels>\n <Panel Name='Finishing' Text='Finishing options'>\n"
                 "  <Member Feature='Staple'/><Member\n Feature='Fold'/></Panel>\n"
                 "</FeaturePanels><FeaturePanels><Panel Name='Empty'/></FeaturePanels>"),
            "office.xml:3:9 panel Finishing \"Finishing options\"\n"
            "  office.xml:4:11 Staple\n"
            "  office.xml:5:2 Fold\n"
            "office.xml:6:39 panel Empty \"\"\n");
}

TEST_F(AdditionsTest, Read_TextIsDropped_PlacesAreLines) {
  auto document = Document::ofText("office.xml",
                                   wrapped("<FeatureRules><Hardware\n Feature='U'/>"
                                           "</FeatureRules><FeaturePresets>\n"
                                           "<Preset Name='p'\n>\n\nA=1</Preset></FeaturePresets>"));
  document->dropText();
  EXPECT_EQ(shown(readAdditions(*document)),
            "office.xml:2:0 hardware U\n"
            "office.xml:4:0 preset p \"\" office.xml:5:0 [\n\nA=1]\n");
}

TEST_F(AdditionsTest, Read_NoPartIsAskedFor_ReadsNone) {
  const std::string inside =
      "<FeatureRules><Hardware Feature='U'/></FeatureRules>"
      "<FeatureMedia Feature='S'/>";
  EXPECT_EQ(read(inside, kMediaPart), "office.xml:2:67 media S\n");
  EXPECT_EQ(read(inside, kRulesPart), "office.xml:2:25 hardware U\n");
}

struct FaultRow {
  const char* inside;
  const char* problem;
};

constexpr FaultRow kFaultRows[] = {
    {"<FeatureRules><Newer Id='a'/></FeatureRules>",
     "2:15 <FeatureRules> cannot have an element <Newer>; did you mean \"Never\"? (unknown "
     "element)"},
    {"<FeatureRules Language='de'/>",
     "2:15 <FeatureRules> has no attribute \"Language\"; remove it (unknown attribute)"},
    {"<FeatureRules><Hardware Feature='A'><B/></Hardware></FeatureRules>",
     "2:37 <Hardware> cannot have an element <B>; remove it (unknown element)"},
    {"<FeatureRules><Hardware/></FeatureRules>",
     "2:15 <Hardware> has no Feature; give Feature (missing attribute)"},
    {"<FeatureRules><Never><When Feature='A' Is='1'/></Never></FeatureRules>",
     "2:15 <Never> has no Id; give Id (missing attribute)"},
    {"<FeatureRules><Never Id='a'/></FeatureRules>",
     "2:15 rule \"a\" has no condition, and would forbid everything; give it a <When>, or remove "
     "it (no condition)"},
    {"<FeatureRules><Never Id='a'><Then Feature='A' Is='1'/></Never></FeatureRules>",
     "2:29 <Never> cannot have an element <Then>; did you mean \"When\"? (unknown element)"},
    {"<FeatureRules><Never Id='a'><When Is='1'/></Never></FeatureRules>",
     "2:29 <When> has no Feature; give Feature (missing attribute)"},
    {"<FeatureRules><Never Id='a'><When Feature='A'/></Never></FeatureRules>",
     "2:29 the condition on \"A\" says nothing about its value; give Is, IsNot, Above or Below, or "
     "elements <Is Choice=\"...\"/> (condition without one form)"},
    {"<FeatureRules><Never Id='a'><When Feature='A' Above='1' Below='2'/></Never></FeatureRules>",
     "2:29 the condition on \"A\" says more than one thing about its value; give one of them, and "
     "the others in conditions of their own (condition without one form)"},
    {"<FeatureRules><Never Id='a'><When Feature='A' Is='1'><Is Choice='2'/></When></Never>"
     "</FeatureRules>",
     "2:29 the condition on \"A\" says more than one thing about its value; give one of them, and "
     "the others in conditions of their own (condition without one form)"},
    {"<FeatureRules><Never Id='a'><When Feature='A'><Is Choice='1'/><IsNot Choice='2'/></When>"
     "</Never></FeatureRules>",
     "2:63 the condition on \"A\" mixes <Is> and <IsNot>; use one of them; IsNot means none of its "
     "choices (condition without one form)"},
    {"<FeatureRules><Never Id='a'><When Feature='A'><Was Choice='1'/></When></Never>"
     "</FeatureRules>",
     "2:47 <When> cannot have an element <Was>; use <Is> or <IsNot>, or remove it (unknown "
     "element)"},
    {"<FeatureRules><Never Id='a'><When Feature='A'><Is/></When></Never></FeatureRules>",
     "2:47 <Is> has no Choice; give Choice (missing attribute)"},
    {"<FeatureRules><Never Id='a'><When Feature='A' Above='ten'/></Never></FeatureRules>",
     "2:47 Above is \"ten\", which is not a number; give a decimal number such as 4.2 (not a "
     "number)"},
    {"<FeatureTexts/>", "2:1 <FeatureTexts> has no Language; give Language (missing attribute)"},
    {"<FeatureTexts Language='de'><Txt For='A'>a</Txt></FeatureTexts>",
     "2:29 <FeatureTexts> cannot have an element <Txt>; did you mean \"Text\"? (unknown element)"},
    {"<FeatureTexts Language='de'><Text Fro='A'>a</Text></FeatureTexts>",
     "2:35 <Text> has no attribute \"Fro\"; did you mean \"For\"? (unknown attribute)\n"
     "office.xml:2:29 <Text> has no For; give For (missing attribute)"},
    {"<FeaturePresets><Preset Text='a'>A=1</Preset></FeaturePresets>",
     "2:17 <Preset> has no Name; give Name (missing attribute)"},
    {"<FeaturePanels><Pannel Name='a'/></FeaturePanels>",
     "2:16 <FeaturePanels> cannot have an element <Pannel>; did you mean \"Panel\"? (unknown "
     "element)"},
    {"<FeaturePanels><Panel><Member Feature='A'/></Panel></FeaturePanels>",
     "2:16 <Panel> has no Name; give Name (missing attribute)"},
    {"<FeaturePanels><Panel Name='a'><Member Name='A'/></Panel></FeaturePanels>",
     "2:40 <Member> has no attribute \"Name\"; use Feature, or remove it (unknown attribute)\n"
     "office.xml:2:32 <Member> has no Feature; give Feature (missing attribute)"},
    {"<FeatureMedia Feature='A'/><FeatureMedia Feature='B'/>",
     "2:28 a second feature, \"B\", chooses the page size beside \"A\"; give the sizes of one "
     "feature (second feature of media)"},
    {"<FeatureMedia Feature='A'><Size Option='a' Width='1' Height='inf'/></FeatureMedia>",
     "2:54 Height is \"inf\", which is not a number; give a decimal number such as 4.2 (not a "
     "number)"},
};

TEST_F(AdditionsTest, Read_FaultRows_LeaveOutWhatIsWrong) {
  for (const FaultRow& row : kFaultRows) {
    const std::string expected = "office.xml:" + std::string(row.problem) + "\n";
    const auto document = Document::ofText("office.xml", wrapped(row.inside));
    ASSERT_TRUE(document) << row.inside;
    const Additions additions = readAdditions(*document);
    EXPECT_EQ(shown(additions.problems), expected) << row.inside;
    EXPECT_TRUE(additions.rules.rules.empty()) << row.inside;
    EXPECT_TRUE(additions.presets.empty()) << row.inside;
    EXPECT_TRUE(additions.media.sizes.empty()) << row.inside;
  }
}

TEST_F(AdditionsTest, Read_AttributeOfAnotherNamespace_IsFree) {
  EXPECT_EQ(read("<FeatureRules xmlns:x='urn:x'><Hardware Feature='U' x:note='1'/>"
                 "</FeatureRules>"),
            "office.xml:2:41 hardware U\n");
}

TEST_F(AdditionsTest, Read_FilesBeside_AreReadInTheOrderOfTheirNames) {
  write("office.rules.xml", "<FeatureRules>\n<Hardware Feature='U'/></FeatureRules>");
  std::filesystem::create_directory(folder_ / "office.presets");
  write("office.presets/two.settings", "B=2\n");
  write("office.presets/one.settings", "A=1\n");
  write("office.presets/readme.txt", "no preset");
  EXPECT_EQ(read("<FeatureRules><Hardware Feature='V'/></FeatureRules>"),
            "office.xml:2:25 hardware V\n"
            "office.rules.xml:2:11 hardware U\n"
            "one.settings:0:0 preset one \"\" one.settings:1:0 [A=1\n]\n"
            "two.settings:0:0 preset two \"\" two.settings:1:0 [B=2\n]\n");
}

TEST_F(AdditionsTest, Read_RulesFileIsNotUsable_NamesThePlace) {
  write("office.rules.xml", "<FeatureRules>\n <Never>\n");
  EXPECT_EQ(read(""),
            "office.rules.xml:3:1 the file ends while <Never> of line 2 is still open; write "
            "</Never> where the element ends (unreadable file)\n");
  write("office.rules.xml", "<Rules/>");
  EXPECT_EQ(
      read(""),
      "office.rules.xml:1:1 the root of this file is <Rules>; name it <FeatureRules> (unknown "
      "element)\n");
  std::filesystem::remove(folder_ / "office.rules.xml");
  std::filesystem::create_directory(folder_ / "office.rules.xml");
  EXPECT_EQ(read(""),
            "office.rules.xml:0:0 cannot be read: Is a directory; make it readable, or remove it "
            "(unreadable file)\n");
}

TEST_F(AdditionsTest, Read_DescriptionIsTheRoot_ReadsOnlyFilesBeside) {
  write("office.rules.xml", "<FeatureRules><Hardware Feature='U'/></FeatureRules>");
  const auto document = Document::ofText((folder_ / "office.xml").string(),
                                         "<FeatureDescription><FeatureRules>"
                                         "<Hardware Feature='V'/></FeatureRules>"
                                         "</FeatureDescription>");
  EXPECT_EQ(shown(readAdditions(*document)), "office.rules.xml:1:25 hardware U\n");
}

TEST_F(AdditionsTest, Read_Translations_UsedOnesAreTexts) {
  write("office.de.po",
        "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=ISO-8859-1\\n\"\n\n"
        "msgctxt \"Duplex\"\nmsgid \"Two\"\n\"sides\"\nmsgstr \"Zwei\\n\"\n\"Gr\xFC\xDF\x65\"\n\n"
        "#, fuzzy\nmsgctxt \"A\"\nmsgid \"a\"\nmsgstr \"unsure\"\n\n"
        "msgctxt \"B\"\nmsgid \"b\"\nmsgstr \"\"\n\n"
        "msgctxt \"C\"\nmsgid \"c\"\nmsgid_plural \"cs\"\nmsgstr[0] \"one\"\nmsgstr[1] \"many\"\n\n"
        "msgid \"nothing\"\nmsgstr \"nichts\"\n\n"
        "#~ msgctxt \"D\"\n#~ msgid \"d\"\n#~ msgstr \"old\"\n");
  write("office.po", "not read: it has no language");
  EXPECT_EQ(read(""),
            "office.de.po:0:0 texts de\n"
            "  office.de.po:4:0 Duplex = Zwei\nGr\xC3\xBC\xC3\x9F\x65\n"
            "  office.de.po:19:0 C = one\n"
            "office.de.po:25:0 the translation of \"nothing\" does not belong to anything; give "
            "the key of the "
            "text, such as \"Duplex.None\", in msgctxt (entry for nothing)\n");
}

TEST_F(AdditionsTest, Read_TranslationsWithFaults_NamesTheirLines) {
  write("office.de.po",
        "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n"
        "msgctxt \"A\"\nmsgid \"a\"\nmsgstr \"broken\n");
  EXPECT_EQ(read(""),
            "office.de.po:0:0 texts de\n"
            "office.de.po:6:0 the translations cannot be read: end-of-line within string; check "
            "the file with msgfmt --check (unreadable file)\n");
}

TEST_F(AdditionsTest, Read_TranslationsOfManyFaults_EndsTheLibraryButNotTheProgram) {
  std::string text;
  for (int i = 0; i < 100; ++i) text += "wrong\n";
  write("office.de.po", text);
  const std::string found = read("");
  EXPECT_NE(found.find("office.de.po:20:0 "), std::string::npos) << found;
}

}  // namespace

}  // namespace driver_feature::host
