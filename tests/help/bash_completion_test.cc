// The completion in bash, by the function that bash calls.

#include <gmock/gmock.h>

#include "help/commands.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Words = std::vector<std::string>;

class BashCompletionTest : public HelpTest {
 protected:
  // The replies for a line with the cursor at its end. `words` is the line as
  // bash cuts it.
  Words replies(const std::string& line, const Words& words, const std::string& before = "") const {
    std::string script = "source '" SOURCE_FOLDER "/completions/driver-feature.bash'\n" + before;
    script += "\nCOMP_LINE='" + line + "' COMP_POINT=${point:-${#COMP_LINE}} COMP_WORDS=(";
    for (const std::string& word : words) script += " '" + word + "'";
    script += ") COMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_driver_feature\n";
    script += "[ ${#COMPREPLY[@]} -eq 0 ] || printf '%s\\n' \"${COMPREPLY[@]}\"";
    const RunResult result = runShell(script);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    return linesOf(result.output);
  }
};

TEST_F(BashCompletionTest, Reply_NoWordYet_IsEveryCommandOfTheHelp) {
  EXPECT_EQ(replies("driver-feature ", {"driver-feature", ""}), commands());
  EXPECT_THAT(replies("driver-feature em", {"driver-feature", "em"}), ElementsAre("emit"));
}

TEST_F(BashCompletionTest, Reply_Dash_IsEveryOptionOfTheHelp) {
  for (const std::string& command : commands()) {
    std::set<std::string> expected = optionsListedIn(help(command));
    expected.merge(optionsListedIn(help("")));
    const Words found =
        replies("driver-feature " + command + " -", {"driver-feature", command, "-"});
    EXPECT_EQ(std::set<std::string>(found.begin(), found.end()), expected) << command;
  }
  EXPECT_THAT(replies("driver-feature emit --ou", {"driver-feature", "emit", "--ou"}),
              ElementsAre("--output"));
}

TEST_F(BashCompletionTest, Reply_Description_IsFiles) {
  EXPECT_THAT(replies("driver-feature show off", {"driver-feature", "show", "off"}),
              ElementsAre("office.xml"));
  write("my printer.xml", "");
  EXPECT_THAT(replies("driver-feature show my\\ p", {"driver-feature", "show", "my\\ p"}),
              ElementsAre("my printer.xml"));
}

TEST_F(BashCompletionTest, Reply_Form_IsFormsAndThenFiles) {
  EXPECT_THAT(replies("driver-feature emit office.xml --to ",
                      {"driver-feature", "emit", "office.xml", "--to", ""}),
              ElementsAre("pjl", "ps", "ticket"));
  EXPECT_THAT(replies("driver-feature emit office.xml --to ps=off",
                      {"driver-feature", "emit", "office.xml", "--to", "ps", "=", "off"}),
              ElementsAre("office.xml"));
  EXPECT_THAT(replies("driver-feature emit office.xml --to=ti",
                      {"driver-feature", "emit", "office.xml", "--to", "=", "ti"}),
              ElementsAre("ticket"));
}

TEST_F(BashCompletionTest, Reply_Setting_IsFeaturesAndThenTheirOptions) {
  const Words start = {"driver-feature", "emit", "office.xml", "-o"};
  const auto after = [&start](const Words& more) {
    Words words = start;
    words.insert(words.end(), more.begin(), more.end());
    return words;
  };
  const std::string line = "driver-feature emit office.xml -o ";
  EXPECT_THAT(replies(line + "Page", after({"Page"})), ElementsAre("PageSize="));
  EXPECT_THAT(replies(line + "Duplex=", after({"Duplex", "="})),
              ElementsAre("OneSided", "LongEdge", "ShortEdge"));
  EXPECT_THAT(replies(line + "Duplex=L", after({"Duplex", "=", "L"})), ElementsAre("LongEdge"));
  EXPECT_THAT(
      replies(line + "Duplex=LongEdge -o Fol", after({"Duplex", "=", "LongEdge", "-o", "Fol"})),
      ElementsAre("Fold="));
  EXPECT_THAT(replies(line + "Duplex=X", after({"Duplex", "=", "X"})), IsEmpty());
}

TEST_F(BashCompletionTest, Reply_EqualsSignEndsNoWord_IsTheWholeWord) {
  EXPECT_THAT(
      replies("driver-feature emit office.xml -o Duplex=L",
              {"driver-feature", "emit", "office.xml", "-o", "Duplex=L"}, "COMP_WORDBREAKS=' '"),
      ElementsAre("Duplex=LongEdge"));
  EXPECT_THAT(
      replies("driver-feature emit office.xml --to ps=off",
              {"driver-feature", "emit", "office.xml", "--to", "ps=off"}, "COMP_WORDBREAKS=' '"),
      ElementsAre("ps=office.xml"));
}

TEST_F(BashCompletionTest, Reply_NameWithBlank_IsQuoted) {
  describe("blank.xml", {feature("MultiSelect", "Tray", "", "<Option Name=\"Upper tray\"/>")});
  EXPECT_THAT(replies("driver-feature emit blank.xml -o Tray=U",
                      {"driver-feature", "emit", "blank.xml", "-o", "Tray", "=", "U"}),
              ElementsAre("Upper\\ tray"));
}

TEST_F(BashCompletionTest, Reply_CursorWithinAWord_CompletesWhatIsBeforeIt) {
  EXPECT_THAT(replies("driver-feature dxxp", {"driver-feature", "dxxp"}, "point=16"),
              ElementsAre("dump", "diff"));
}

TEST_F(BashCompletionTest, Reply_NameOfAFeatureOrFile_ShowsBashWhatFollows) {
  const std::string show = "compopt() { echo \"$@\"; }";
  EXPECT_THAT(replies("driver-feature show office.xml -o Page",
                      {"driver-feature", "show", "office.xml", "-o", "Page"}, show),
              ElementsAre("-o nospace", "PageSize="));
  EXPECT_THAT(replies("driver-feature show office.xml -o Duplex=L",
                      {"driver-feature", "show", "office.xml", "-o", "Duplex", "=", "L"}, show),
              ElementsAre("LongEdge"));
  EXPECT_THAT(replies("driver-feature show off", {"driver-feature", "show", "off"}, show),
              ElementsAre("-o filenames", "office.xml"));
}

TEST_F(BashCompletionTest, Reply_ProgramThatIsMissing_IsNothing) {
  EXPECT_THAT(replies("./missing e", {"./missing", "e"}), IsEmpty());
}

}  // namespace
