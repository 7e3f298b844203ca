#include "host/shell_fixture.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

// For the child: its standard input is the script.
void readScript() {
  const int script = open("script", O_RDONLY);
  dup2(script, STDIN_FILENO);
  close(script);
}

std::vector<std::string> command(const std::vector<std::string>& arguments) {
  std::vector<std::string> all = {"--callbacks", ROUTINES_LIBRARY, "shell", "office.xml"};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return all;
}

}  // namespace

ShellTest::ShellTest() {
  describe(
      "office.xml",
      {"<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'"
       " LoadVORNCallbackHandler='DriverFeatureHostLoad'/>",
       feature("MultiSelect", "Media", "AddCallbackRoutine='forbidDuplex' PSCommand='(%s) m&#10;'",
               "<O Name='Plain' PSCommand='plain'/><O Name='Foil' PSCommand='foil'/>"),
       feature("MultiSelect", "Duplex", "", "<O Name='Off'/><O Name='Long'/><O Name='Short'/>"),
       feature("IntEntry", "Copies",
               "DefaultValue='1' IntMinValue='1' IntMaxValue='9'"
               " PSCommand='/Copies %d def&#10;'"),
       feature("FloatEntry", "Scale", "DefaultValue='0.5'"),
       feature("TextEntry", "Owner", "DefaultValue='me' MaxTextLength='20'"),
       feature("UIOnly", "Heading"),
       "<FeatureDynamicGroup Name='Pages' SortFunctionName='byFirst'>",
       "<FeatureStaticGroup Name='Page'>",
       feature("IntEntry", "First", "DefaultValue='1' IntMinValue='1'"),
       feature("MultiSelect", "Tray", "", "<O Name='Upper'/><O Name='Lower'/>"),
       "</FeatureStaticGroup></FeatureDynamicGroup>"});
}

RunResult ShellTest::runScript(const std::vector<std::string>& lines,
                               const std::vector<std::string>& arguments) const {
  write("script", joined(lines));
  return run(command(arguments), &readScript);
}

std::string ShellTest::transcriptOf(const std::vector<std::string>& lines,
                                    const std::vector<std::string>& arguments) const {
  write("script", joined(lines));
  const RunResult result = run(command(arguments), [] {
    readScript();
    dup2(STDOUT_FILENO, STDERR_FILENO);
  });
  EXPECT_EQ(result.status, 0);
  return result.output;
}
