// Keys of the command line, what is saved, and values that are not shown.

#include <sys/stat.h>

#include "host/program_runner.h"

namespace {

class SecretsTest : public ProgramTest {
 protected:
  SecretsTest() {
    describe("office.xml",
             {"<Feature FeatureType='MultiSelect' Name='PageSize' CLOKey='media' DefaultValue='A4'"
              " PSCommand='%s&#10;'><Option Name='A4' PSCommand='a4' CLOKey='iso'/>"
              "<Option Name='iso' PSCommand='named'/>"
              "<Option Name='Letter' PSCommand='letter' CLOKey='na'/></Feature>",
              "<Feature FeatureType='IntEntry' Name='Copies' CLOKey='PageSize' PSCommand='%d&#10;'"
              "/>",
              "<Feature FeatureType='TextEntry' Name='Pin' CLOKey='pin' Encrypted='true'"
              " DefaultValue='0000' PSCommand='(%s)&#10;' TextValidationCharSet='0123456789'/>",
              "<Feature FeatureType='IntEntry' Name='Hidden' Visibility='false' DefaultValue='3'/>",
              "<Feature FeatureType='TextEntry' Name='Mark' Visibility='false'/>",
              "<FeatureDynamicGroup Name='Jobs'><FeatureStaticGroup Name='Job'>"
              "<FeatureStaticGroup Name='Inner'><Feature FeatureType='IntEntry' Name='Number'/>"
              "</FeatureStaticGroup>"
              "<Feature FeatureType='TextEntry' Name='Code' Encrypted='true'/>"
              "</FeatureStaticGroup></FeatureDynamicGroup>"});
    write("jobs.json", R"([{"Code": "secret"}])");
  }

  std::string emitted(const std::vector<std::string>& settings) const {
    std::vector<std::string> arguments = {"emit", "office.xml", "--to", "ps"};
    for (const std::string& setting : settings) arguments.insert(arguments.end(), {"-o", setting});
    const RunResult result = run(arguments);
    return result.output + result.errors;
  }

  mode_t modeOf(const std::string& name) const {
    struct stat status {};
    return ::stat((folder() / name).c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
  }
};

TEST_F(SecretsTest, Option_Keys_StandForNamesUnlessThereIsTheName) {
  EXPECT_EQ(emitted({"media=na"}), "0\nletter\n(0000)\n");
  EXPECT_EQ(emitted({"PageSize=na"}), "0\nletter\n(0000)\n");
  EXPECT_EQ(emitted({"media=iso", "Copies=2"}), "2\nnamed\n(0000)\n");
  EXPECT_EQ(emitted({"pin=12"}), "0\na4\n(12)\n");
  EXPECT_EQ(emitted({"media=B5"}),
            "driver-feature: -o media=B5: feature \"PageSize\" has no option \"B5\"; choose one of "
            "A4, iso, Letter\n");
  EXPECT_EQ(
      emitted({"medi=A4"}),
      "driver-feature: -o medi=A4: there is no feature \"medi\"; \"driver-feature show\" lists "
      "the features\n");
}

const std::string kSettingsHeading =
    "# Settings of driver-feature.\n"
    "# NAME=VALUE sets a feature. \"[GROUP]\" begins a record of a dynamic group.\n"
    "# In values: \\\\ backslash, \\s blank at an end, \\t tab, \\n line end, \\xNN byte.\n";

TEST_F(SecretsTest, Save_HiddenConstantsTemplatesAndSecrets_AreLeftOut) {
  EXPECT_EQ(run({"show", "office.xml", "-o", "Mark=x", "-o", "Pin=1234", "--records", "Jobs",
                 "jobs.json", "--save", "a.conf"})
                .status,
            0);
  EXPECT_EQ(read("a.conf"),
            kSettingsHeading +
                "Copies=0\nMark=x\nPageSize=A4\n"
                "# Pin is not saved, being marked Encrypted; --save-secrets saves it.\n"
                "\n# The records of Jobs are not saved, being marked Encrypted; --save-secrets "
                "saves it.\n");
  EXPECT_EQ(run({"show", "office.xml", "--settings", "a.conf"}).status, 0);
}

TEST_F(SecretsTest, SaveSecrets_File_HoldsThemAndOnlyItsOwnerCanReadIt) {
  write("a.conf", "old");
  ASSERT_EQ(::chmod((folder() / "a.conf").c_str(), 0664), 0);
  for (const char* file : {"a.conf", "b.conf"}) {
    EXPECT_EQ(run({"emit", "office.xml", "--to", "ps=job.ps", "-o", "Pin=1234", "--records", "Jobs",
                   "jobs.json", "--save", file, "--save-secrets"}),
              success(""));
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(read(file), kSettingsHeading +
                              "Copies=0\nPageSize=A4\nPin=1234\n"
                              "\n[Jobs]\nCode=secret\n");
  }
  EXPECT_NE(modeOf("job.ps") & 0044U, 0U);
}

TEST_F(SecretsTest, Shown_SecretValues_AreMaskedEverywhere) {
  write("script",
        "set Pin 4711\nget Pin\nget Pin CurrentTextValue\nget Pin all\nshow\nshow Pin\n"
        "records Jobs list\n");
  const auto openScript = [] { static_cast<void>(freopen("script", "r", stdin)); };
  std::string all;
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"show", "office.xml"},
                                             {"show", "office.xml", "--json"},
                                             {"show", "office.xml", "Pin"},
                                             {"show", "office.xml", "Pin", "--json"},
                                             {"show", "office.xml", "Jobs"},
                                             {"show", "office.xml", "Jobs", "--json"},
                                             {"try", "office.xml"}}) {
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.end(), {"-o", "Pin=4711", "--records", "Jobs", "jobs.json"});
    const RunResult result = run(arguments);
    EXPECT_EQ(result.status, 0) << command.front();
    EXPECT_NE(result.output.find("****"), std::string::npos) << result.output;
    all += result.output + result.errors;
  }
  const RunResult shell = run({"shell", "office.xml"}, openScript);
  EXPECT_EQ(shell.status, 0) << shell.errors;
  EXPECT_NE((shell.output + shell.errors).find("Pin: another value, which is not shown"),
            std::string::npos)
      << shell.output << shell.errors;
  all += shell.output + shell.errors;
  // A refusal does not repeat it either.
  const RunResult refused = run({"show", "office.xml", "-o", "pin=4711x"});
  EXPECT_EQ(refused.errors,
            "driver-feature: -o pin=****: character \"x\" is not allowed; use only \"0123456789\" "
            "(office.xml:4)\n");
  EXPECT_EQ((all + refused.errors).find("4711"), std::string::npos) << all;
  EXPECT_EQ(all.find("0000"), std::string::npos) << all;
  EXPECT_EQ(all.find("secret"), std::string::npos) << all;
}

TEST_F(SecretsTest, Try_SecretValue_ShowsThatItHasChanged) {
  EXPECT_EQ(run({"try", "office.xml", "-o", "Pin=1"}), success("NAME  BEFORE  CHANGED  RESTORED\n"
                                                               "Pin   ****    ****     ****\n"));
}

TEST_F(SecretsTest, Diff_SecretValues_AreSeenToDifferAndNotShown) {
  write("a.conf", "Pin=4711\n[Jobs]\nCode=secret\n");
  write("b.conf", "Pin=4712\n[Jobs]\nCode=secret\n[Jobs]\nCode=\n");
  const RunResult result = run({"diff", "office.xml", "a.conf", "b.conf"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output.substr(0, result.output.find("--- a.conf (ps)")),
            "--- a.conf (settings)\n+++ b.conf (settings)\n"
            "-Pin=**** (1)\n+Pin=**** (2)\n+[Jobs]\n+Code=\n");
  const RunResult json = run({"diff", "office.xml", "a.conf", "/dev/null", "--json"});
  EXPECT_NE(json.output.find("**** (2)"), std::string::npos) << json.output;
  EXPECT_EQ(json.output.find("secret"), std::string::npos) << json.output;
}

TEST_F(SecretsTest, Help_Command_IsThatOfTheOption) {
  EXPECT_EQ(run({"help"}), run({"--help"}));
  EXPECT_EQ(run({"help", "emit"}), run({"emit", "--help"}));
  EXPECT_EQ(run({"help", "help"}), run({"help", "--help"}));
  EXPECT_EQ(run({"help", "emti"}),
            failure(2, "driver-feature: there is no command \"emti\"; did you mean \"emit\"?\n"));
  EXPECT_EQ(run({"__complete", "help", "e"}),
            success("words\nemit\tWrite printer-ready output of the features\n"));
}

}  // namespace
