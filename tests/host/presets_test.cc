// Presets and texts for people: show, emit, diff, the shell.

#include <filesystem>

#include "host/shell_fixture.h"

namespace {

constexpr const char* kWithPresets =
    "<Driver>\n"
    "<FeatureDescription>\n"
    "<Feature FeatureType='MultiSelect' Name='Duplex' DefaultValue='None'\n"
    " PSCommand='%s duplex&#10;'><Option Name='None' PSCommand='no'/>\n"
    "<Option Name='Long' PSCommand='long'/></Feature>\n"
    "<Feature FeatureType='IntEntry' Name='Copies'\n"
    " IntMinValue='1' IntMaxValue='99' DefaultValue='1' PSCommand='%d copies&#10;'/>\n"
    "<Feature FeatureType='TextEntry' Name='Pin' Encrypted='true' DefaultValue='0'/>\n"
    "</FeatureDescription>\n"
    "<FeatureTexts Language='en'><Text For='Duplex'>Two sides</Text></FeatureTexts>\n"
    "<FeatureTexts Language='de'><Text For='Duplex'>Beidseitig</Text>\n"
    "<Text For='Duplex.None'>Aus</Text><Text For='preset:saving'>Sparsam</Text></FeatureTexts>\n"
    "<FeaturePresets><Preset Name='saving' Text='Saves paper'>\n"
    "  Duplex=Long\n"
    "  Copies=2</Preset>\n"
    "<Preset Name='wrong'>Copies=2\n"
    "Copies=100\n"
    "Pin=1234\n"
    "Duplx=Long</Preset></FeaturePresets>\n"
    "</Driver>\n";

class PresetsTest : public ProgramTest {
 protected:
  PresetsTest() { write("d.xml", kWithPresets); }
};

class PresetsShellTest : public ShellTest {
 protected:
  PresetsShellTest() { write("office.xml", kWithPresets); }
};

TEST_F(PresetsTest, Emit_Preset_ComesBeforeFilesAndOptions) {
  EXPECT_EQ(run({"emit", "d.xml", "--to", "ps", "--preset", "saving"}),
            success("2 copies\nlong duplex\n"));
  write("one.conf", "Copies=3\n");
  EXPECT_EQ(run({"emit", "d.xml", "--to", "ps", "-o", "Duplex=None", "--settings", "one.conf",
                 "--preset", "saving"}),
            success("3 copies\nno duplex\n"));
}

TEST_F(PresetsTest, Emit_PresetIsNotThere_SaysWhichAre) {
  EXPECT_EQ(run({"emit", "d.xml", "--to", "ps", "--preset", "savings"}),
            failure(2,
                    "driver-feature: --preset savings: there is no preset \"savings\"; did you "
                    "mean \"saving\"?\n"));
  EXPECT_EQ(run({"emit", "d.xml", "--to", "ps", "--preset", "x"}),
            failure(2,
                    "driver-feature: --preset x: there is no preset \"x\"; give one of saving, "
                    "wrong\n"));
  describe("none.xml", {});
  EXPECT_EQ(run({"emit", "none.xml", "--to", "ps", "--preset", "x"}),
            failure(2,
                    "driver-feature: --preset x: there is no preset \"x\"; the description has "
                    "none\n"));
}

TEST_F(PresetsTest, Emit_PresetIsRefused_NamesItsLines) {
  EXPECT_EQ(run({"emit", "d.xml", "--to", "ps", "--preset", "wrong"}),
            failure(2,
                    "driver-feature: d.xml:17: 100 is out of range; give a whole number, from 1 "
                    "to 99 (d.xml:6)\n"
                    "driver-feature: d.xml:19: there is no feature \"Duplx\"; did you mean "
                    "\"Duplex\"?\n"));
}

TEST_F(PresetsTest, SavePreset_MakesAFileOfWhatDiffers) {
  EXPECT_EQ(run({"emit", "d.xml", "--to", "ps=/dev/null", "-o", "Copies=4", "-o", "Pin=7",
                 "--save-preset", "four"}),
            success(""));
  EXPECT_EQ(read("d.presets/four.settings"),
            "# A preset of driver-feature: what differs from the default values.\n"
            "Copies=4\n"
            "# Pin is not saved, being marked Encrypted.\n");
  EXPECT_EQ(run({"emit", "d.xml", "--to", "ps", "--preset", "four"}),
            success("4 copies\nno duplex\n"));
}

TEST_F(PresetsTest, SavePreset_NameCannotBeUsed_WritesNothing) {
  EXPECT_EQ(run({"show", "d.xml", "--save-preset", "saving"}),
            failure(2,
                    "driver-feature: --save-preset saving: the description has a preset of this "
                    "name in line 13; give another name\n"));
  for (const std::string name : {"../out", ".hidden", "a\nb"}) {
    const RunResult result = run({"show", "d.xml", "--save-preset", name});
    EXPECT_EQ(result.status, 2) << name;
    EXPECT_NE(result.errors.find("cannot be a file's name; leave out slashes and control "
                                 "characters, and do not begin with a dot"),
              std::string::npos)
        << result.errors;
  }
  EXPECT_FALSE(std::filesystem::exists(folder() / "d.presets"));
  write("d.presets", "");
  EXPECT_EQ(run({"show", "d.xml", "--save-preset", "a"}),
            failure(1, "driver-feature: d.presets: the folder cannot be made: File exists\n"));
}

TEST_F(PresetsTest, Show_Presets_ListsThem) {
  EXPECT_EQ(run({"show", "d.xml", "--presets"}),
            success("PRESET  TEXT         SETTINGS\n"
                    "saving  Saves paper  Duplex=Long, Copies=2\n"
                    "wrong   wrong        Copies=2, Copies=100, Pin=****, Duplx=Long\n"));
  EXPECT_EQ(run({"show", "d.xml", "--presets", "--language", "de-AT"}).output,
            "PRESET  TEXT     SETTINGS\n"
            "saving  Sparsam  Duplex=Long, Copies=2\n"
            "wrong   wrong    Copies=2, Copies=100, Pin=****, Duplx=Long\n");
  const std::string json = run({"show", "d.xml", "--presets", "--json"}).output;
  EXPECT_NE(json.find("      \"name\": \"saving\",\n      \"text\": \"Saves paper\",\n"
                      "      \"settings\": [\n        \"Duplex=Long\",\n        \"Copies=2\"\n"
                      "      ],\n      \"file\": \"d.xml\",\n      \"line\": 13\n"),
            std::string::npos)
      << json;
  describe("none.xml", {});
  EXPECT_EQ(run({"show", "none.xml", "--presets"}).output, "The description has no presets.\n");
}

TEST_F(PresetsTest, Show_Language_HasTextsBesideNames) {
  EXPECT_EQ(run({"show", "d.xml", "--language", "de"}),
            success("NAME    TEXT        TYPE         VALUE  AVAILABILITY  CHOICES AND LIMITS\n"
                    "Copies  Copies      IntEntry     1      available     from 1 to 99\n"
                    "Duplex  Beidseitig  MultiSelect  None   available     None: Aus, Long\n"
                    "Pin     Pin         TextEntry    ****   available     encrypted\n"));
  const std::string json = run({"show", "d.xml", "--language", "fr", "--json"}).output;
  EXPECT_NE(json.find("      \"name\": \"Duplex\",\n      \"text\": \"Two sides\",\n"),
            std::string::npos)
      << json;
  EXPECT_NE(json.find("          \"name\": \"Long\",\n          \"text\": \"Long\",\n"),
            std::string::npos)
      << json;
}

TEST_F(PresetsTest, Show_LanguageAndName_IsRefused) {
  EXPECT_EQ(run({"show", "d.xml", "Duplex", "--language", "de"}),
            failure(2,
                    "driver-feature: --language and --presets are for the whole description; "
                    "leave out \"Duplex\"\n"));
}

TEST_F(PresetsTest, Show_TranslationsCannotBeRead_ShowsTheRest) {
  write("d.fr.po", "wrong\n");
  const RunResult result = run({"show", "d.xml", "--presets"});
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.output, "");
  EXPECT_NE(result.errors.find("driver-feature: d.fr.po:1: the translations cannot be read: "),
            std::string::npos)
      << result.errors;
}

TEST_F(PresetsTest, Diff_OfPresets_ComparesWhatTheyChange) {
  const RunResult result = run({"diff", "d.xml", "/dev/null", "preset:saving"});
  EXPECT_EQ(result.status, 1) << result.errors;
  EXPECT_NE(result.output.find("+Copies=2\n"), std::string::npos) << result.output;
  EXPECT_EQ(run({"diff", "d.xml", "preset:saving", "preset:saving"}), success(""));
}

TEST_F(PresetsShellTest, Shell_Presets_AreShownAndSet) {
  const RunResult result = runScript({"presets", "preset saving", "get Copies", "preset wrong"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.output,
            "PRESET  TEXT         SETTINGS\n"
            "saving  Saves paper  Duplex=Long, Copies=2\n"
            "wrong   wrong        Copies=2, Copies=100, Pin=****, Duplx=Long\n"
            "2\n");
  EXPECT_NE(result.errors.find("preset \"wrong\": nothing was set; correct the lines above"),
            std::string::npos)
      << result.errors;
}

}  // namespace
