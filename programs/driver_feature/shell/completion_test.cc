#include "programs/driver_feature/shell/completion.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "programs/driver_feature/shell/history.h"
#include "programs/driver_feature/shell/shell.h"
#include "programs/driver_feature/shell/tab_key.h"
#include "support/problem_text.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kDescription =
    "<Driver><FeatureDescription>"
    "<Feature FeatureType='MultiSelect' Name='Duplex'><O Name='Off'/><O Name='Long Edge'/>"
    "<O Name='Long'/></Feature>"
    "<Feature FeatureType='IntEntry' Name='Copies'/>"
    "<Feature FeatureType='TextEntry' Name='Password' Encrypted='true'/>"
    "<FeatureDynamicGroup Name='Pages'><FeatureStaticGroup Name='Page'>"
    "<Feature FeatureType='IntEntry' Name='First'/>"
    "<Feature FeatureType='MultiSelect' Name='Tray'><O Name='Upper'/><O Name='Lower'/></Feature>"
    "</FeatureStaticGroup></FeatureDynamicGroup>"
    "</FeatureDescription>"
    "<FeaturePresets><Preset Name='draft'/><Preset Name='final'/></FeaturePresets>"
    "</Driver>";

// One shell for all tests: the library keeps one model per process.
class CompletionTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    std::string folder =
        (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    files = folder + "/";
    for (const char* file : {"a file.ps", "abc1", "abc2", "it's", ".hidden"}) {
      std::ofstream(files + file).flush();
    }
    std::filesystem::create_directories(files + "sub dir");
    const std::string file = files + "office.xml";
    std::ofstream(file) << kDescription;
    host::SessionRequest request;
    request.description = file;
    request.library = DRIVER_FEATURE_LIBRARY;
    auto opened = host::Session::open(request);
    ASSERT_EQ(problemText(opened), "");
    session = std::move(*opened);
    transcript = std::make_unique<Transcript>();
    shell = std::make_unique<Shell>(*session, *transcript);
  }

  static void TearDownTestSuite() {
    shell.reset();
    session.reset();
    transcript.reset();
    std::filesystem::remove_all(files);
  }

  // The line after Tab, with the cursor at its end.
  static std::string afterTab(const std::string& line) {
    const TabStep step = pressTab(*shell, line);
    return line.substr(0, step.begin) + step.written;
  }

  static Words words(const std::string& line) { return complete(*shell, line).words; }

  static std::string files;  // A folder, with a slash.
  static std::unique_ptr<host::Session> session;
  static std::unique_ptr<Transcript> transcript;
  static std::unique_ptr<Shell> shell;
};

std::string CompletionTest::files;
std::unique_ptr<host::Session> CompletionTest::session;
std::unique_ptr<Transcript> CompletionTest::transcript;
std::unique_ptr<Shell> CompletionTest::shell;

const Words kNames = {"Copies", "Duplex", "First", "Page", "Pages", "Password", "Tray"};

TEST_F(CompletionTest, Complete_FirstWord_IsACommand) {
  EXPECT_EQ(words(""),
            (Words{"constrain", "defaults", "dump",   "emit",    "get",  "help",    "load",
                   "log",       "option",   "preset", "presets", "quit", "records", "release",
                   "resolve",   "restore",  "save",   "set",     "show", "write"}));
  EXPECT_EQ(words("  re"), (Words{"records", "release", "resolve", "restore"}));
  EXPECT_EQ(words("help s"), (Words{"save", "set", "show"}));
  EXPECT_EQ(words("zz"), Words{});
}

TEST_F(CompletionTest, Complete_Name_IsOfTheKindThatTheCommandTakes) {
  EXPECT_EQ(words("set "), kNames);
  EXPECT_EQ(words("get "), kNames);
  EXPECT_EQ(words("show P"), (Words{"Page", "Pages", "Password"}));
  EXPECT_EQ(words("show Pages "), Words{});
  EXPECT_EQ(words("save Copies "), (Words{"Copies", "Duplex", "First", "Password", "Tray"}));
  EXPECT_EQ(words("records "), Words{"Pages"});
  EXPECT_EQ(words("constrain "), (Words{"Duplex", "Tray"}));
  EXPECT_EQ(words("unknown "), Words{});
  EXPECT_EQ(words("dump "), Words{});
}

TEST_F(CompletionTest, Complete_Preset_IsOneOfTheDescription) {
  EXPECT_EQ(words("preset "), (Words{"draft", "final"}));
  EXPECT_EQ(words("preset f"), Words{"final"});
  EXPECT_EQ(words("preset draft "), Words{});
}

TEST_F(CompletionTest, Complete_Value_IsAnOptionOrAProperty) {
  EXPECT_EQ(words("set Duplex L"), (Words{"Long", "Long Edge"}));
  EXPECT_EQ(words("set Duplex \"Long "), Words{"Long Edge"});
  EXPECT_EQ(words("set Copies Vi"), Words{"Visibility"});
  EXPECT_EQ(words("set Copies Visibility "), (Words{"false", "true"}));
  EXPECT_EQ(words("set Duplex ValueString O"), Words{"Off"});
  EXPECT_EQ(words("set Copies Visibility true "), Words{});
  EXPECT_EQ(words("get Pages Record"), Words{"RecordInFocus"});
  EXPECT_EQ(words("get Pages a"), Words{"all"});
  EXPECT_EQ(words("release Duplex "), (Words{"Long", "Long Edge", "Off"}));
  EXPECT_EQ(words("constrain Duplex Off "), Words{});
  EXPECT_EQ(words("constrain Duplex Off 1 "), Words{"hide"});
  EXPECT_EQ(words("release Duplex Off 1 "), Words{});
}

TEST_F(CompletionTest, Complete_Properties_AreAllThatAnObjectTakes) {
  const Words all = words("get Copies ");
  EXPECT_EQ(all.size(), 44U);  // 43 properties and "all".
  EXPECT_EQ(all.front(), "AddCallbackRoutine");
  EXPECT_EQ(all.back(), "all");
}

TEST_F(CompletionTest, Complete_Records_KnowsActionsMembersAndOptions) {
  EXPECT_EQ(words("records Pages "), (Words{"add", "add-file", "clear", "deselect", "has", "list",
                                            "load", "remove", "select", "sort"}));
  const Proposals members = complete(*shell, "records Pages add ");
  EXPECT_EQ(members.words, (Words{"First=", "Tray="}));
  EXPECT_TRUE(members.unfinished);
  const Proposals options = complete(*shell, "records Pages has First=1 Tray=");
  EXPECT_EQ(options.words, (Words{"Tray=Lower", "Tray=Upper"}));
  EXPECT_FALSE(options.unfinished);
  EXPECT_EQ(words("records Nothing add "), Words{});
}

TEST_F(CompletionTest, Complete_Option_KnowsOptionsAndTheirProperties) {
  EXPECT_EQ(words("option "), (Words{"Duplex", "Tray"}));
  EXPECT_EQ(words("option Tray "), (Words{"Lower", "Upper"}));
  EXPECT_EQ(words("option Tray Lower TESK"), (Words{"TESKCommand", "TESKTicketCommand"}));
  EXPECT_EQ(words("option Tray Lower ").size(), 10U);
  EXPECT_EQ(words("option Tray Lower Visibility "), (Words{"false", "true"}));
  EXPECT_EQ(words("option Tray Lower Name "), Words{});
}

TEST_F(CompletionTest, Complete_Files_AreProposedWhereTheyBelong) {
  EXPECT_EQ(words("emit "), (Words{"pjl", "ps", "ticket"}));
  EXPECT_FALSE(complete(*shell, "emit ").files);
  EXPECT_TRUE(complete(*shell, "emit ps ").files);
  EXPECT_EQ(words("emit ticket -"), Words{"--inst-opt"});
  EXPECT_TRUE(complete(*shell, "records Pages add-file ").files);
  EXPECT_FALSE(complete(*shell, "records Pages add-file a ").files);
  EXPECT_FALSE(complete(*shell, "records Pages remove ").files);
  EXPECT_FALSE(complete(*shell, "set ").files);
  EXPECT_TRUE(complete(*shell, "write ").files);
  EXPECT_TRUE(complete(*shell, "load ").files);
}

TEST_F(CompletionTest, PressTab_OneProposal_EndsTheWord) {
  EXPECT_EQ(afterTab("se"), "set ");
  EXPECT_EQ(afterTab("set Dup"), "set Duplex ");
  EXPECT_EQ(afterTab("set \"Dup"), "set \"Duplex\" ");
  EXPECT_EQ(afterTab("set 'Dup"), "set 'Duplex' ");
  EXPECT_EQ(afterTab("set Du\"p"), "set \"Duplex\" ");
  EXPECT_EQ(afterTab("set Duplex Long\\ "), "set Duplex \"Long Edge\" ");
  EXPECT_EQ(afterTab("set Duplex \"Long "), "set Duplex \"Long Edge\" ");
  EXPECT_EQ(afterTab("set Duplex 'Long "), "set Duplex 'Long Edge' ");
  EXPECT_EQ(afterTab("records Pages add Fi"), "records Pages add First=");
  EXPECT_EQ(afterTab("records Pages add \"Fi"), "records Pages add \"First=");
  EXPECT_EQ(pressTab(*shell, "set Dup").choices, Words{});
}

TEST_F(CompletionTest, PressTab_SeveralProposals_GoesOnAsFarAsTheyAgree) {
  EXPECT_EQ(afterTab("set Duplex L"), "set Duplex Long");
  EXPECT_EQ(pressTab(*shell, "set Duplex L").choices, (Words{"Long", "\"Long Edge\""}));
  EXPECT_EQ(afterTab("set Duplex 'L"), "set Duplex 'Long");
  EXPECT_EQ(afterTab("set Duplex Long"), "set Duplex Long");
  EXPECT_EQ(afterTab("set 'P"), "set 'Pa");
  EXPECT_EQ(afterTab("set "), "set ");
}

TEST_F(CompletionTest, PressTab_NoProposal_LeavesTheLine) {
  EXPECT_EQ(afterTab("set 'zz"), "set 'zz");
  EXPECT_EQ(pressTab(*shell, "set 'zz").choices, Words{});
}

TEST_F(CompletionTest, PressTab_File_IsQuotedWhereItMustBe) {
  const std::string emit = "emit ps ";
  EXPECT_EQ(afterTab(emit + files + "a f"), emit + files + "a f");  // A word of its own.
  EXPECT_EQ(afterTab(emit + files + "a\\ "), emit + "\"" + files + "a file.ps\" ");
  EXPECT_EQ(afterTab(emit + files + "abc"), emit + files + "abc");
  EXPECT_EQ(pressTab(*shell, emit + files + "abc").choices, (Words{"abc1", "abc2"}));
  EXPECT_EQ(afterTab(emit + files + "su"), emit + "\"" + files + "sub dir/");
  EXPECT_EQ(afterTab(emit + "'" + files + "it"), emit + "\"" + files + "it's\" ");
  EXPECT_EQ(pressTab(*shell, emit + files).choices,
            (Words{".hidden", "a file.ps", "abc1", "abc2", "it's", "office.xml", "sub dir/"}));
  EXPECT_EQ(pressTab(*shell, emit + files + "nothing/").choices, Words{});
}

TEST(TabKey, LayOutChoices_Width_IsFilledColumnByColumn) {
  const Words choices = {"a", "bbb", "c", "d", "\xC3\x84"};
  EXPECT_EQ(layOutChoices(choices, 80), "a    bbb  c    d    \xC3\x84    \n");
  EXPECT_EQ(layOutChoices(choices, 12), "a    d    \nbbb  \xC3\x84    \nc    \n");
  EXPECT_EQ(layOutChoices(choices, 1), "a    \nbbb  \nc    \nd    \n\xC3\x84    \n");
  EXPECT_EQ(layOutChoices({}, 80), "");
}

TEST_F(CompletionTest, IsKept_Line_IsNeitherSecretNorEmpty) {
  const host::Model& model = session->model();
  EXPECT_TRUE(isKept(model, "set Copies 2"));
  EXPECT_TRUE(isKept(model, "set Copies \"2"));
  EXPECT_FALSE(isKept(model, ""));
  EXPECT_FALSE(isKept(model, " set Copies 2"));
  EXPECT_FALSE(isKept(model, "\tset Copies 2"));
  EXPECT_FALSE(isKept(model, "set Password secret"));
  EXPECT_FALSE(isKept(model, "set 'Pass'word \"secret"));
  EXPECT_FALSE(isKept(model, "records Pages add First=1 Password=secret"));
}

}  // namespace

}  // namespace driver_feature::cli
