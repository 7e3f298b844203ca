// The shell at a terminal.

#include <csignal>

#include "host/shell_fixture.h"
#include "host/shell_terminal.h"

namespace {

class ShellTerminalTest : public ShellTest {
 protected:
  // Waits for the first prompt.
  std::unique_ptr<Terminal> start(const std::vector<std::string>& environment = {}) const {
    auto terminal = std::make_unique<Terminal>(folder(), environment);
    const std::string shown = terminal->readPrompt();
    EXPECT_TRUE(shown.ends_with(kPrompt)) << shown;
    return terminal;
  }
};

TEST_F(ShellTerminalTest, Tab_Pressed_CompletesCommandNameAndOption) {
  const auto terminal = start();
  terminal->press("se\tDup\tLo\t\r");
  EXPECT_EQ(terminal->readPrompt(),
            "set Duplex Long \r\n"
            "  changed Duplex: Off -> Long\r\n"
            "  update callback\r\n"
            "driver-feature> ");
  terminal->press("get \"Dup\t\r");
  EXPECT_EQ(terminal->readPrompt(), "get \"Duplex\" \r\nLong\r\ndriver-feature> ");
}

TEST_F(ShellTerminalTest, Tab_PressedTwice_ShowsTheProposals) {
  const auto terminal = start();
  terminal->press("records Pages l\t\t");
  EXPECT_EQ(terminal->readPrompt(), "records Pages l\x07\r\nlist  load  \r\ndriver-feature> ");
  terminal->press("\x15records Pages add \t\t");
  const std::string shown = terminal->readUntil("First=  Tray=   \r\n");
  EXPECT_TRUE(shown.ends_with("First=  Tray=   \r\n")) << shown;
}

TEST_F(ShellTerminalTest, Tab_AfterAMember_GoesOnWithItsValue) {
  const auto terminal = start();
  terminal->press("records Pages add Fi\t3 Tr\tL\t\r");
  EXPECT_EQ(terminal->readPrompt(),
            "records Pages add First=3 Tray=Lower \r\n"
            "  changed Pages records: 0 -> 1\r\n"
            "  update callback\r\n"
            "driver-feature> ");
}

TEST_F(ShellTerminalTest, Tab_InAFile_CompletesItsName) {
  write("report.ps", "");
  const auto terminal = start();
  terminal->press("emit ps rep\t\r");
  EXPECT_EQ(terminal->readPrompt(), "emit ps report.ps \r\ndriver-feature> ");
  EXPECT_EQ(read("report.ps"), "/Copies 1 def\n(plain) m\n");
}

TEST_F(ShellTerminalTest, Tab_ThatAltersTheWord_DrawsTheLineAnew) {
  write("a file.ps", "");
  const auto terminal = start({"TERM=xterm"});
  terminal->press("emit ps a\\ \t\r");
  terminal->readPrompt();
  EXPECT_EQ(read("a file.ps"), "/Copies 1 def\n(plain) m\n");
}

TEST_F(ShellTerminalTest, BytesOfAnotherEncoding_ArriveAsTheyAre) {
  for (const char* locale : {"LC_ALL=C", "LC_ALL=C.UTF-8"}) {
    const auto terminal = start({locale});
    terminal->press("set Media M\xFCller\r");
    const std::string refusal =
        "feature \"Media\" has no option \"M\xFCller\"; choose one of Plain, Foil\r\n";
    const std::string shown = terminal->readUntil(refusal);
    EXPECT_TRUE(shown.ends_with(refusal)) << shown;
  }
}

TEST_F(ShellTerminalTest, RefusedLine_IsReported_AndTheShellGoesOn) {
  const auto terminal = start();
  terminal->press("set Copies 0\r");
  EXPECT_EQ(terminal->readPrompt(),
            "set Copies 0\r\n"
            "0 is out of range; give a whole number, from 1 to 9 (office.xml:5)\r\n"
            "driver-feature> ");
  terminal->press("quit\r");
  EXPECT_EQ(terminal->end(), 0);
}

TEST_F(ShellTerminalTest, Emit_ToTheTerminal_SpellsOutWhatItWouldObey) {
  const auto terminal = start();
  terminal->press("set Media PSCommand \"\\e[2J\\n%s\\r\\n\"\r");
  terminal->readPrompt();
  terminal->press("emit ps\r");
  EXPECT_EQ(terminal->readPrompt(),
            "emit ps\r\n/Copies 1 def\r\n\\x1b[2J\r\nplain\\r\r\ndriver-feature> ");
}

TEST_F(ShellTerminalTest, ControlC_DropsTheLineOnly) {
  const auto terminal = start();
  terminal->press("set Copies 5");
  EXPECT_EQ(terminal->readUntil("5"), "set Copies 5");
  terminal->press("\x03");
  EXPECT_EQ(terminal->readPrompt(), "^C\r\ndriver-feature> ");
  terminal->press("get Copies\r");
  EXPECT_EQ(terminal->readPrompt(), "get Copies\r\n1\r\ndriver-feature> ");
}

TEST_F(ShellTerminalTest, ControlD_EndsTheShell) {
  const auto terminal = start();
  terminal->press("\x04");
  EXPECT_EQ(terminal->readUntil("\n"), "\r\n");
  EXPECT_EQ(terminal->end(), 0);
  EXPECT_FALSE(terminal->isLineEditing());
}

TEST_F(ShellTerminalTest, ControlD_InALine_DeletesACharacter) {
  const auto terminal = start();
  terminal->press("get CXopies\x04");
  EXPECT_EQ(terminal->readUntil("\x07"), "get CXopies\x07");
  terminal->press("\x02\x02\x02\x02\x02\x02\x04\r");  // Control-B: to the left.
  const std::string shown = terminal->readUntil("1\r\ndriver-feature> ");
  EXPECT_TRUE(shown.ends_with("\r\n1\r\ndriver-feature> ")) << shown;
}

TEST_F(ShellTerminalTest, WindowOfAnotherSize_ShowsTheLineAgain) {
  const auto terminal = start();
  terminal->press("get Copies");
  terminal->readUntil("get Copies");
  terminal->resize(40);
  EXPECT_EQ(terminal->readUntil("get Copies"), "\rdriver-feature> get Copies");
  terminal->press("\r");
  EXPECT_EQ(terminal->readPrompt(), "\r\n1\r\ndriver-feature> ");
}

TEST_F(ShellTerminalTest, Terminated_LeavesTheTerminalAsItWas) {
  const auto terminal = start();
  terminal->press("set C");
  terminal->readUntil("set C");
  EXPECT_TRUE(terminal->isLineEditing());
  kill(terminal->child(), SIGTERM);
  EXPECT_EQ(terminal->end(), 1000 + SIGTERM);
  EXPECT_FALSE(terminal->isLineEditing());
}

TEST_F(ShellTerminalTest, History_IsKeptForTheNextUse) {
  describe("office.xml",
           {feature("IntEntry", "Copies"), feature("TextEntry", "Password", "Encrypted='true'")});
  {
    const auto terminal = start();
    for (const char* line : {"get Copies\r", "get Copies\r", "set Password secret\r", "\r"}) {
      terminal->press(line);
      terminal->readPrompt();
    }
    terminal->press("quit\r");
    EXPECT_EQ(terminal->end(), 0);
  }
  EXPECT_EQ(read("state/driver-feature/history"), "get Copies\nquit\n");
  using std::filesystem::perms;
  EXPECT_EQ(std::filesystem::status(folder() / "state/driver-feature").permissions(),
            perms::owner_all);
  EXPECT_EQ(std::filesystem::status(folder() / "state/driver-feature/history").permissions(),
            perms::owner_read | perms::owner_write);
  const auto terminal = start();
  terminal->press("\x10\x10\r");  // Control-P: the line before.
  // This terminal can only show a line from the past by writing a whole line anew.
  const std::string shown = terminal->readUntil("0\r\ndriver-feature> ");
  EXPECT_TRUE(shown.ends_with("get Copies\r\n0\r\ndriver-feature> ")) << shown;
}

TEST_F(ShellTerminalTest, History_OfTwoShells_KeepsTheLinesOfBoth) {
  const auto first = start();
  const auto second = start();
  for (const auto* terminal : {&second, &first}) {
    (*terminal)->press(terminal == &first ? "get Copies\r" : "get Duplex\r");
    (*terminal)->readPrompt();
    (*terminal)->press("\x04");
    EXPECT_EQ((*terminal)->end(), 0);
  }
  EXPECT_EQ(read("state/driver-feature/history"), "get Duplex\nget Copies\n");
}

TEST_F(ShellTerminalTest, History_WithoutAPlace_IsNotAFailure) {
  write("state", "a file, not a folder");
  const auto terminal = start();
  terminal->press("get Copies\r");
  EXPECT_EQ(terminal->readPrompt(), "get Copies\r\n1\r\ndriver-feature> ");
  terminal->press("quit\r");
  EXPECT_EQ(terminal->end(), 0);
  EXPECT_EQ(read("state"), "a file, not a folder");
}

TEST_F(ShellTerminalTest, Colours_AreShownUnlessUnwanted) {
  const auto coloured = start({"TERM=xterm"});
  coloured->press("set Copies 2\r");
  const std::string change = coloured->readUntil("1 -> 2\x1B[0m\r\n");
  EXPECT_TRUE(change.ends_with("  \x1B[32mchanged Copies: 1 -> 2\x1B[0m\r\n")) << change;
  const auto plain = start({"TERM=xterm", "NO_COLOR=1"});
  plain->press("set Copies 2\r");
  const std::string same = plain->readUntil("1 -> 2\r\n");
  EXPECT_TRUE(same.ends_with("  changed Copies: 1 -> 2\r\n")) << same;
}

}  // namespace
