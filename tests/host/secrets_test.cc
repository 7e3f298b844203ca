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
        "records Jobs list\ndump\n");
  const auto openScript = [] { static_cast<void>(freopen("script", "r", stdin)); };
  std::string all;
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"show", "office.xml"},
                                             {"show", "office.xml", "--json"},
                                             {"show", "office.xml", "Pin"},
                                             {"show", "office.xml", "Pin", "--json"},
                                             {"show", "office.xml", "Jobs"},
                                             {"show", "office.xml", "Jobs", "--json"},
                                             {"dump", "office.xml"},
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

TEST_F(SecretsTest, ShowSecrets_ShowAndTry_ShowEveryValue) {
  const std::vector<std::string> given = {"-o",   "Pin=4711",  "--records",
                                          "Jobs", "jobs.json", "--show-secrets"};
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"show", "office.xml"},
                                             {"show", "office.xml", "--json"},
                                             {"show", "office.xml", "Pin"},
                                             {"show", "office.xml", "Pin", "--json"},
                                             {"show", "office.xml", "Jobs"},
                                             {"show", "office.xml", "Jobs", "--json"}}) {
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.end(), given.begin(), given.end());
    const RunResult result = run(arguments);
    EXPECT_EQ(result.output.find("****"), std::string::npos) << result.output;
    const bool isGroup = command[2 % command.size()] == "Jobs";
    EXPECT_NE(result.output.find(isGroup ? "secret" : "4711"), std::string::npos) << result.output;
  }
  EXPECT_EQ(run({"try", "office.xml", "-o", "Pin=1", "--show-secrets"}),
            success("NAME  BEFORE  CHANGED  RESTORED\n"
                    "Pin   \"0000\"  \"1\"      \"0000\"\n"));
}

TEST_F(SecretsTest, Diff_SecretValues_AreSeenToDifferAndNotShown) {
  write("a.conf", "Pin=4711\n[Jobs]\nCode=secret\n");
  write("b.conf", "Pin=4712\n[Jobs]\nCode=secret\n[Jobs]\nCode=\n");
  EXPECT_EQ(run({"diff", "office.xml", "a.conf", "b.conf"}),
            (RunResult{1,
                       "--- a.conf (settings)\n+++ b.conf (settings)\n"
                       "-Pin=**** (1)\n+Pin=**** (2)\n+[Jobs]\n+Code=\n"
                       "--- a.conf (ps)\n+++ b.conf (ps)\n@@ -1,3 +1,3 @@\n 0\n a4\n"
                       "-(**** (1))\n+(**** (2))\n",
                       ""}));
  const RunResult json = run({"diff", "office.xml", "a.conf", "/dev/null", "--json"});
  EXPECT_NE(json.output.find("**** (2)"), std::string::npos) << json.output;
  EXPECT_EQ(json.output.find("secret"), std::string::npos) << json.output;
  EXPECT_EQ(json.output.find("4711"), std::string::npos) << json.output;
  EXPECT_EQ(json.output.find("0000"), std::string::npos) << json.output;
  const RunResult shown = run({"diff", "office.xml", "a.conf", "b.conf", "--show-secrets"});
  EXPECT_NE(shown.output.find("-Pin=4711\n+Pin=4712\n"), std::string::npos) << shown.output;
  EXPECT_NE(shown.output.find("-(4711)\n+(4712)\n"), std::string::npos) << shown.output;
}

TEST_F(SecretsTest, Diff_SecretThatEndsLikeAnEmptyOne_IsMasked) {
  describe("forms.xml", {feature("TextEntry", "Pin", "Encrypted='true'")});
  write("a.conf", "Pin=abc=\n");
  EXPECT_EQ(
      run({"diff", "forms.xml", "/dev/null", "a.conf"}),
      (RunResult{1, "--- /dev/null (settings)\n+++ a.conf (settings)\n-Pin=\n+Pin=****\n", ""}));
}

TEST_F(SecretsTest, Diff_SecretThatBeginsAnother_IsNotTakenForIt) {
  write("a.conf", "Pin=47\n");
  write("b.conf", "Pin=4711\n");
  const RunResult result = run({"diff", "office.xml", "a.conf", "b.conf"});
  EXPECT_NE(result.output.find("-(**** (1))\n+(**** (2))\n"), std::string::npos) << result.output;
}

// In the forms in which commands and tickets spell it.
TEST_F(SecretsTest, Diff_SpelledSecrets_AreMasked) {
  describe("forms.xml",
           {feature("TextEntry", "Pin",
                    "Encrypted='true' PSCommand='%s|\\(\\)a&amp;&lt;|282961263c|282961263C&#10;'"
                    " TESKJTAttributeName='pin' TESKAttributeSyntax='text'")});
  write("a.conf", "Pin=()a&<\n");
  const RunResult result =
      run({"diff", "forms.xml", "/dev/null", "a.conf", "--allow-control-characters"});
  EXPECT_EQ(result.output,
            "--- /dev/null (settings)\n+++ a.conf (settings)\n-Pin=\n+Pin=****\n"
            "--- /dev/null (ps)\n+++ a.conf (ps)\n@@ -1,1 +1,1 @@\n"
            "-|****|****|****\n+****|****|****|****\n"
            "--- /dev/null (ticket)\n+++ a.conf (ticket)\n@@ -1,5 +1,7 @@\n"
            " <?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            " <JobTicket argument1=\"\" argument2=\"\">\n"
            "-  <JobTicketAttributes/>\n"
            "+  <JobTicketAttributes>\n"
            "+    <Command name=\"pin\" syntax=\"text\" value=\"****\"/>\n"
            "+  </JobTicketAttributes>\n"
            "   <OutputAttributes/>\n </JobTicket>\n");
}

TEST_F(SecretsTest, Dump_SecretValue_IsMaskedUnlessAskedFor) {
  const std::string begin = "\"Pin\" (TextEntry/enabled/visible)Text:";
  const RunResult masked = run({"dump", "office.xml", "-o", "Pin=4711"});
  EXPECT_NE(masked.output.find(begin + "**** (not in a group)"), std::string::npos)
      << masked.output;
  EXPECT_EQ(masked.output.find("4711"), std::string::npos) << masked.output;
  const RunResult shown = run({"dump", "office.xml", "-o", "Pin=4711", "--show-secrets"});
  EXPECT_NE(shown.output.find(begin + "4711 (not in a group)"), std::string::npos) << shown.output;
  // An empty value is shown as it is.
  const RunResult empty = run({"dump", "office.xml", "-o", "Pin="});
  EXPECT_EQ(empty.output, run({"dump", "office.xml", "-o", "Pin=", "--show-secrets"}).output);
  EXPECT_NE(empty.output.find(begin + " (not in a group)"), std::string::npos) << empty.output;
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
