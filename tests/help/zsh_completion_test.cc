// The completion in zsh, typed into an interactive shell.

#include "help/commands.h"

namespace {

class ZshCompletionTest : public HelpTest {
 protected:
  // The line after a tab at its end.
  std::string completed(const std::string& line) const {
    const RunResult result =
        runShell("zsh -f '" SOURCE_FOLDER "/tests/help/zsh_completion.zsh' '" SOURCE_FOLDER
                 "/completions' '" +
                 line + "'");
    EXPECT_EQ(result.errors, "");
    return result.output;
  }
};

TEST_F(ZshCompletionTest, Syntax_Function_IsRight) {
  EXPECT_EQ(runShell("zsh -n '" SOURCE_FOLDER "/completions/_driver-feature'"), success(""));
}

TEST_F(ZshCompletionTest, Tab_BeginOfAWord_CompletesIt) {
  const char* const kRows[][2] = {
      {"driver-feature em", "<<driver-feature emit >>\n"},
      {"driver-feature show --js", "<<driver-feature show --json >>\n"},
      {"driver-feature show off", "<<driver-feature show office.xml >>\n"},
      {"driver-feature emit office.xml --to ti",
       "<<driver-feature emit office.xml --to ticket >>\n"},
      {"driver-feature emit office.xml --to ps=off",
       "<<driver-feature emit office.xml --to ps=office.xml >>\n"},
      {"driver-feature show office.xml -o PageS",
       "<<driver-feature show office.xml -o PageSize=>>\n"},
      {"driver-feature show office.xml -o Duplex=L",
       "<<driver-feature show office.xml -o Duplex=LongEdge >>\n"},
      {"driver-feature show office.xml --option=Duplex=L",
       "<<driver-feature show office.xml --option=Duplex=LongEdge >>\n"},
      {"driver-feature show office.xml Stap", "<<driver-feature show office.xml Staple >>\n"},
      {"driver-feature show office.xml Zzz", "<<driver-feature show office.xml Zzz>>\n"},
  };
  for (const auto& [line, expected] : kRows) EXPECT_EQ(completed(line), expected);
}

}  // namespace
