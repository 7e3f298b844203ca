// Values that can end the command they are written into: every way by which
// they come in.

#include "host/program_runner.h"

namespace {

using Texts = std::vector<std::string>;

constexpr const char* kAllow = "--allow-control-characters";

class ValueSafetyTest : public ProgramTest {
 protected:
  ValueSafetyTest() {
    describe("o.xml",
             {
                 feature("TextEntry", "Job", "PJLCommand='@PJL SET J=&quot;%s&quot;&#10;'"),
                 feature("TextEntry", "Title", "PSCommand='(%s)&#10;'"),
                 "<FeatureStaticGroup Name='Marks' PSCommand='(%s)&#10;'>"
                 "<FeatureStaticGroup Name='Inner' PSCommand='%s'>" +
                     feature("TextEntry", "Mark", "PSCommand='m=%s'") +
                     "</FeatureStaticGroup></FeatureStaticGroup>",
                 feature("IntEntry", "Code", "DefaultValue='65' PJLCommand='@PJL %c&#10;'"),
                 feature("IntEntry", "Count", "PJLCommand='@PJL %d&#10;'"),
                 feature("TextEntry", "Note", "TESKJTAttributeName='n'"),
                 "<FeatureDynamicGroup Name='Logs'><FeatureStaticGroup Name='Log'>" +
                     feature("TextEntry", "Line", "PJLCommand='%s&#10;'") +
                     "</FeatureStaticGroup></FeatureDynamicGroup>",
                 // A string of the outer group, which the inner one ends.
                 "<FeatureStaticGroup Name='Outer' PSCommand='(%s)'>"
                 "<FeatureStaticGroup Name='Ended' PSCommand=') /%s ('>" +
                     feature("TextEntry", "Tag", "PSCommand='%s'") +
                     "</FeatureStaticGroup></FeatureStaticGroup>",
             });
    write("bad.conf", "Count=1\nJob=a\\nb\n[Logs]\nLine=@PJL RESET\n");
    write("bad.json", R"([{"Line": "fine"}, {"Line": "@PJL RESET"}])");
  }

  static std::string reason(const std::string& name, const std::string& byte,
                            const std::string& where, int line) {
    const std::string command =
        name == "Title" || name == "Mark" || name == "Tag" ? "PSCommand" : "PJLCommand";
    return "the value of feature \"" + name + "\" holds byte " + byte + ", which is not safe " +
           where + ", where " + command +
           " puts it; leave the byte out, or run with --allow-control-characters to write it as it "
           "is (o.xml:" +
           std::to_string(line) + ")\n";
  }

  static std::string jobReason() { return reason("Job", "0x0A", "in a quoted PJL string", 2); }
  static std::string lineReason() {
    return reason("Line", "0x40", "at the beginning of a PJL line", 8);
  }
};

TEST_F(ValueSafetyTest, Option_UnsafeByte_IsRefusedWithItsPlace) {
  struct Row {
    const char* setting;
    const char* shown;  // As the message shows it.
    std::string reason;
  };
  const Row rows[] = {
      {"Job=a\nb", "Job=a\\nb", jobReason()},
      {"Job=\x1B%-12345X@PJL", "Job=\\x1b%-12345X@PJL",
       reason("Job", "0x1B", "in a quoted PJL string", 2)},
      {"Job=a\"b", "Job=a\"b", reason("Job", "0x22", "in a quoted PJL string", 2)},
      {"Title=a)b", "Title=a)b", reason("Title", "0x29", "in a PostScript string", 3)},
      {"Title=a\\", "Title=a\\", reason("Title", "0x5C", "in a PostScript string", 3)},
      {"Mark=\x04", "Mark=\\x04", reason("Mark", "0x04", "in a PostScript string", 4)},
      {"Code=10", "Code=10", reason("Code", "0x0A", "in a PJL line", 5)},
      {"Code=+266", "Code=+266", reason("Code", "0x0A", "in a PJL line", 5)},
      {"Line=@PJL RESET", "Line=@PJL RESET", lineReason()},
      {"Tag=a b", "Tag=a b", reason("Tag", "0x20", "in PostScript outside a string", 9)},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(run({"emit", "o.xml", "--to", "ps", "-o", row.setting}),
              failure(2, "driver-feature: -o " + std::string(row.shown) + ": " + row.reason));
  }
}

TEST_F(ValueSafetyTest, Option_SafeValues_AreTaken) {
  for (const char* setting : {"Job=(a\\b)'%s'", "Title=\"a\" <gr\xC3\xBC\xC3\x9F>", "Mark=a/b c",
                              "Code=66", "Count=10", "Note=a\n\"(", "Line=a@PJL", "Job="}) {
    EXPECT_EQ(run({"show", "o.xml", "-o", setting}).status, 0) << setting;
  }
}

TEST_F(ValueSafetyTest, Option_Allowed_IsWrittenAsItIs) {
  EXPECT_EQ(run({"emit", "o.xml", "--to", "pjl", "-o", "Job=a\n@PJL X\"", "-o", "Code=9", kAllow}),
            success("@PJL \t\n@PJL 0\n@PJL SET J=\"a\n@PJL X\"\"\n"));
  EXPECT_EQ(run({"emit", "o.xml", "--to", "ps", "-o", "Title=a)", "-o", "Mark=(\\", kAllow}),
            success("(a))\n(m=(\\)\n() / ()"));
}

TEST_F(ValueSafetyTest, EveryCommand_SettingsFile_IsRefusedUnlessAllowed) {
  const std::string refused =
      "driver-feature: bad.conf:2: " + jobReason() + "driver-feature: bad.conf:4: " + lineReason();
  struct Row {
    Texts command;
    int status;  // Where the values are allowed.
  };
  const Row rows[] = {{{"emit", "o.xml", "--to", "pjl", "--settings", "bad.conf"}, 0},
                      {{"show", "o.xml", "--settings", "bad.conf"}, 0},
                      {{"dump", "o.xml", "--settings", "bad.conf"}, 0},
                      {{"try", "o.xml", "--settings", "bad.conf"}, 0},
                      {{"diff", "o.xml", "/dev/null", "bad.conf"}, 1}};
  for (const auto& [refusedCommand, status] : rows) {
    Texts command = refusedCommand;
    EXPECT_EQ(run(command), failure(2, refused)) << command.front();
    command.emplace_back(kAllow);
    const RunResult allowed = run(command);
    EXPECT_EQ(allowed.status, status) << command.front();
    EXPECT_NE(allowed.output, "") << command.front();
  }
}

TEST_F(ValueSafetyTest, Records_UnsafeMember_IsRefusedUnlessAllowed) {
  Texts arguments = {"show", "o.xml", "--records", "Logs", "bad.json"};
  EXPECT_EQ(run(arguments),
            failure(2, "driver-feature: bad.json:1: record 1: \"Line\": " + lineReason()));
  arguments.emplace_back(kAllow);
  EXPECT_EQ(run(arguments).status, 0);
}

TEST_F(ValueSafetyTest, Shell_EveryWayIn_IsRefusedUnlessAllowed) {
  write("script",
        "set Job \"a\\nb\"\n"
        "set Job CurrentTextValue \"a\\nb\"\n"
        "set Job DefaultTextValue \"a\\nb\"\n"
        "set Job DeferredTextValue \"a\\nb\"\n"
        "set Job OriginalTextValue \"a\\nb\"\n"
        "set Job ValueString \"a\\nb\"\n"
        "set Code CurrentIntValue 10\n"
        "set Job CLOKey \"a\\nb\"\n"
        "records Logs add \"Line=@PJL RESET\"\n"
        "records Logs add-file bad.json\n"
        "load bad.conf\n");
  const auto openScript = [] { freopen("script", "r", stdin); };
  const std::string at = "driver-feature: standard input:";
  std::string refused;
  for (int line = 1; line <= 6; ++line) refused += at + std::to_string(line) + ": " + jobReason();
  refused += at + "7: " + reason("Code", "0x0A", "in a PJL line", 5) + at +
             "9: \"Line\": " + lineReason() + at +
             "10: bad.json:1: record 1: \"Line\": " + lineReason();
  const RunResult result = run({"-q", "shell", "o.xml", "--keep-going"}, openScript);
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.errors.substr(0, refused.size()), refused);
  EXPECT_NE(result.errors.find("bad.conf:2: " + jobReason()), std::string::npos);
  EXPECT_EQ(run({"-q", "shell", "o.xml", kAllow}, openScript).status, 0);
}

TEST_F(ValueSafetyTest, Shell_CommandChanges_TheNewOneCounts) {
  write("script",
        "set Note a)b\n"
        "set Note PSCommand \"(%s)\"\n"
        "set Note c)d\n");
  EXPECT_EQ(run({"-q", "shell", "o.xml"}, [] { freopen("script", "r", stdin); }),
            failure(2,
                    "  changed Note: \"\" -> a)b\n"
                    "  update callback\n"
                    "driver-feature: standard input:3: the value of feature \"Note\" holds byte "
                    "0x29, which is not safe in a PostScript string, where PSCommand puts it; "
                    "leave the byte out, or run with --allow-control-characters to write it as it "
                    "is (o.xml:7)\n"));
}

TEST_F(ValueSafetyTest, Saved_UnsafeValue_IsRefusedWhenItComesBack) {
  EXPECT_EQ(run({"show", "o.xml", "-o", "Job=a\nb", "--save", "kept.conf", kAllow}).status, 0);
  EXPECT_EQ(run({"show", "o.xml", "--settings", "kept.conf"}),
            failure(2, "driver-feature: kept.conf:6: " + jobReason()));
}

TEST_F(ValueSafetyTest, Ticket_WhatXmlCannotCarry_DoesNoHarm) {
  const RunResult result = run({"emit", "o.xml", "--to", "ticket", "-o", "Note=</a>&\x1B\x01",
                                "--ticket-argument1", "\x01<"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output.find("</a>"), std::string::npos);
  EXPECT_EQ(result.output.find('\x1B'), std::string::npos);
  EXPECT_EQ(result.output.find('\x01'), std::string::npos);
}

}  // namespace
