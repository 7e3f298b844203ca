// Settings that are refused: one exact line, status 2, and nothing written.

#include "host/program_runner.h"

namespace {

class RefusalTest : public ProgramTest {
 protected:
  RefusalTest() {
    describe(
        "o.xml",
        {feature("MultiSelect", "PageSize", "DefaultValue='A4'",
                 "<O Name='A4'/><O Name='Letter'/><O Name='Legal' Sensitivity='false'/>"),
         feature("IntEntry", "Copies", "IntMinValue='1' IntMaxValue='999'"),
         feature("IntEntry", "AtLeast", "IntMinValue='0'"),
         feature("IntEntry", "AtMost", "IntMaxValue='0'"), feature("IntEntry", "Free"),
         feature("IntEntry", "Crossed", "IntMinValue='5' IntMaxValue='1'"),
         feature("FloatEntry", "Scale", "FloatMinValue='0.1' FloatMaxValue='4'"),
         feature("FloatEntry", "Angle"),
         feature("TextEntry", "Pin", "TextValidationCharSet='0123456789' MaxTextLength='4'"),
         feature("TextEntry", "Owner", "MaxTextLength='3'"),
         feature("TextEntry", "Street", "TextValidationCharSet='a&#xE9;&#xDF;'"),
         feature("UIOnly", "About"), feature("MVCList", "Overlays"),
         feature("IntEntry", "Tray", "Sensitivity='false'"),
         feature("MultiSelect", "Spent", "DefaultValue='x'", "<O Name='x' Sensitivity='false'/>"),
         "<FeatureStaticGroup Name='Finishing'>" +
             feature("IntEntry", "Staples", "IntMaxValue='2'") + "</FeatureStaticGroup>",
         "<FeatureDynamicGroup Name='Pages'><FeatureStaticGroup Name='Page'>" +
             feature("IntEntry", "Number") + "</FeatureStaticGroup></FeatureDynamicGroup>"});
  }

  RunResult emit(const std::vector<std::string>& settings) const {
    std::vector<std::string> arguments = {"emit", "o.xml", "--to", "ps", "--output", "job.ps"};
    for (const std::string& setting : settings) {
      arguments.insert(arguments.end(), {"-o", setting});
    }
    return run(arguments);
  }

  void expectRefused(const std::string& setting, const std::string& reason) const {
    const RunResult expected = failure(2, "driver-feature: -o " + setting + ": " + reason + "\n");
    EXPECT_EQ(emit({setting}), expected);
    // The settings before it are not written either.
    EXPECT_EQ(emit({"Free=1", setting, "Free=2"}), expected);
    EXPECT_EQ(run({"emit", "o.xml", "--to", "ps", "-o", setting}), expected);
  }
};

struct RefusalRow {
  const char* setting;
  const char* reason;
};

TEST_F(RefusalTest, Emit_RefusedSetting_SaysWhyAndWritesNothing) {
  constexpr RefusalRow kRows[] = {
      {"Copies", "there is no value; write NAME=VALUE"},
      {"", "there is no value; write NAME=VALUE"},
      {"=1", "there is no feature name; write NAME=VALUE"},
      {"copies=1", "there is no feature \"copies\"; did you mean \"Copies\"?"},
      {"Copie=1", "there is no feature \"Copie\"; did you mean \"Copies\"?"},
      {"Watermark=1",
       "there is no feature \"Watermark\"; \"driver-feature show\" lists the features"},
      {"Copies =1", "there is no feature \"Copies \"; did you mean \"Copies\"?"},
      {"Finishing=1",
       "\"Finishing\" is a static group and holds no value; set its features instead"},
      {"Page=1", "\"Page\" is a static group and holds no value; set its features instead"},
      {"Pages=1", "\"Pages\" is a dynamic group and holds records, not a value; leave it out"},
      {"About=1", "\"About\" is a UIOnly feature and holds no value; leave it out"},
      {"Overlays=1", "\"Overlays\" is a MVCList feature and holds no value; leave it out"},
      {"Tray=1", "feature \"Tray\" is unavailable; leave it out"},
      {"PageSize=A5",
       "feature \"PageSize\" has no option \"A5\"; did you mean \"A4\"? (choose one "
       "of A4, Letter)"},
      {"PageSize=Ledger",
       "feature \"PageSize\" has no option \"Ledger\"; did you mean \"Letter\"? "
       "(choose one of A4, Letter)"},
      {"PageSize=Photo", "feature \"PageSize\" has no option \"Photo\"; choose one of A4, Letter"},
      {"PageSize=", "feature \"PageSize\" has no option \"\"; choose one of A4, Letter"},
      {"PageSize=1", "feature \"PageSize\" has no option \"1\"; choose one of A4, Letter"},
      {"PageSize=Legal",
       "option \"Legal\" of feature \"PageSize\" is unavailable; choose one of A4, Letter"},
      {"Spent=x",
       "option \"x\" of feature \"Spent\" is unavailable; leave it out, since none is "
       "available"},
      {"Copies=0", "0 is out of range; give a whole number, from 1 to 999 (o.xml:3)"},
      {"Copies=1000", "1000 is out of range; give a whole number, from 1 to 999 (o.xml:3)"},
      {"Copies=99999999999",
       "99999999999 is out of range; give a whole number, from 1 to 999 (o.xml:3)"},
      {"Copies=12x", "\"12x\" is not a whole number; give a whole number, from 1 to 999 (o.xml:3)"},
      {"Copies=1.5", "\"1.5\" is not a whole number; give a whole number, from 1 to 999 (o.xml:3)"},
      {"Copies= 2", "\" 2\" is not a whole number; give a whole number, from 1 to 999 (o.xml:3)"},
      {"Copies=", "\"\" is not a whole number; give a whole number, from 1 to 999 (o.xml:3)"},
      {"Copies=++2", "\"++2\" is not a whole number; give a whole number, from 1 to 999 (o.xml:3)"},
      {"Copies=+-2", "\"+-2\" is not a whole number; give a whole number, from 1 to 999 (o.xml:3)"},
      {"AtLeast=-1", "-1 is out of range; give a whole number, at least 0 (o.xml:4)"},
      {"AtLeast=3000000000",
       "3000000000 is out of range; give a whole number, from 0 to 2147483647 (o.xml:4)"},
      {"AtMost=1", "1 is out of range; give a whole number, at most 0 (o.xml:5)"},
      {"Free=x", "\"x\" is not a whole number; give a whole number"},
      {"Free=2147483648",
       "2147483648 is out of range; give a whole number, from -2147483648 to 2147483647"},
      {"Crossed=3",
       "no number is allowed, because the limits are from 5 to 1; correct them in the "
       "description (o.xml:7)"},
      {"Scale=0.0999", "0.0999 is out of range; give a decimal number, from 0.1 to 4 (o.xml:8)"},
      {"Scale=4.001", "4.001 is out of range; give a decimal number, from 0.1 to 4 (o.xml:8)"},
      {"Scale=1,5",
       "\"1,5\" is not a decimal number; give a decimal number, from 0.1 to 4 "
       "(o.xml:8)"},
      {"Scale=nan",
       "\"nan\" is not a decimal number; give a decimal number, from 0.1 to 4 "
       "(o.xml:8)"},
      {"Angle=inf", "\"inf\" is not a decimal number; give a decimal number"},
      {"Angle=1e39",
       "1e39 is out of range; give a decimal number, from -3.4028235e+38 to "
       "3.4028235e+38"},
      {"Angle=1e999",
       "1e999 is out of range; give a decimal number, from -3.4028235e+38 to "
       "3.4028235e+38"},
      {"Angle=0x10", "\"0x10\" is not a decimal number; give a decimal number"},
      {"Pin=12345", "the text has 5 characters; give at most 4 (o.xml:10)"},
      {"Pin=12a4", "character \"a\" is not allowed; use only \"0123456789\" (o.xml:10)"},
      {"Owner=gr\xC3\xBC\xC3\x9F", "the text has 4 characters; give at most 3 (o.xml:11)"},
      {"Street=a\xC3\xA8",
       "character \"\xC3\xA8\" is not allowed; use only \"a\xC3\xA9\xC3\x9F\" "
       "(o.xml:12)"},
      {"Staples=3", "3 is out of range; give a whole number, at most 2 (o.xml:17)"},
  };
  for (const RefusalRow& row : kRows) {
    SCOPED_TRACE(row.setting);
    expectRefused(row.setting, row.reason);
  }
  EXPECT_EQ(fileNames(), std::vector<std::string>{"o.xml"});
}

TEST_F(RefusalTest, Emit_LimitsThemselves_AreTaken) {
  for (const char* setting :
       {"Copies=1", "Copies=999", "AtLeast=0", "AtLeast=2147483647", "AtMost=0",
        "AtMost=-2147483648", "Scale=0.1", "Scale=4", "Pin=0129", "Pin=", "Owner=\xC3\xBC\xC3\x9F.",
        "Street=a\xC3\xA9\xC3\x9F", "PageSize=Letter", "Staples=2", "Number=1"}) {
    EXPECT_EQ(emit({setting}), success("")) << setting;
  }
}

TEST_F(RefusalTest, Emit_ExistingFile_IsUntouched) {
  write("job.ps", "old");
  EXPECT_EQ(emit({"Copies=2", "PageSize=Legal"}),
            failure(2,
                    "driver-feature: -o PageSize=Legal: option \"Legal\" of feature "
                    "\"PageSize\" is unavailable; choose one of A4, Letter\n"));
  EXPECT_EQ(read("job.ps"), "old");
  EXPECT_EQ(fileNames(), (std::vector<std::string>{"job.ps", "o.xml"}));
}

TEST_F(RefusalTest, Emit_SeveralRefused_NamesAll) {
  EXPECT_EQ(emit({"Free=x", "Scale=2", "Copies=0"}),
            failure(2,
                    "driver-feature: -o Free=x: \"x\" is not a whole number; give a whole "
                    "number\n"
                    "driver-feature: -o Copies=0: 0 is out of range; give a whole number, from 1 "
                    "to 999 (o.xml:3)\n"));
}

TEST_F(RefusalTest, Emit_LoadAndEarlierSettingsHaveLogged_StillIsOneLine) {
  describe("gone.xml", {"<Feature FeatureType='IntEntry' Name='A' AddCallbackRoutine='gone'/>",
                        "<Feature FeatureType='IntEntry' Name='B' PSCommand='%d&#10;'/>"});
  const std::string misuse =
      "driver-feature: misuse: DriverFeature::setFeatureProperty(string):  Failed to load custom "
      "feature callback:  gone\n";
  const std::string refusal =
      "driver-feature: -o B=x: \"x\" is not a whole number; give a whole number\n";
  EXPECT_EQ(run({"emit", "gone.xml", "--to", "ps", "-o", "B=1"}), (RunResult{0, "1\n", misuse}));
  EXPECT_EQ(run({"emit", "gone.xml", "--to", "ps", "-o", "B=1", "-o", "B=x"}), failure(2, refusal));
  EXPECT_EQ(run({"show", "gone.xml", "-o", "B=x"}), failure(2, refusal));
  // Who asks for every line gets it.
  const RunResult verbose = run({"-v", "emit", "gone.xml", "--to", "ps", "-o", "B=x"});
  EXPECT_NE(verbose.errors.find(misuse), std::string::npos);
  EXPECT_TRUE(verbose.errors.ends_with(refusal)) << verbose.errors;
}

TEST_F(RefusalTest, Emit_LineEndInTheSetting_StaysOnOneLine) {
  EXPECT_EQ(emit({"Free=1\n2\x1B"}),
            failure(2,
                    "driver-feature: -o Free=1\\n2\\x1b: \"1\\n2\\x1b\" is not a whole number; "
                    "give a whole number\n"));
}

TEST_F(RefusalTest, Emit_EarlierSettingMakesAFeatureUnavailable_RefusesTheLater) {
  describe("rules.xml",
           {"<Feature FeatureType='IntEntry' Name='Booklet' AddCallbackRoutine='forbidDuplex'/>",
            "<Feature FeatureType='IntEntry' Name='Duplex' PSCommand='%d duplex&#10;'/>"});
  const std::vector<std::string> arguments = {"emit", "rules.xml",   "--to",
                                              "ps",   "--callbacks", ROUTINES_LIBRARY};
  const auto with = [&arguments](const std::vector<std::string>& settings) {
    std::vector<std::string> all = arguments;
    for (const std::string& setting : settings) all.insert(all.end(), {"-o", setting});
    return all;
  };
  EXPECT_EQ(run(with({"Duplex=1", "Booklet=1"})), success("1 duplex\n"));
  EXPECT_EQ(run(with({"Booklet=1", "Duplex=1"})),
            failure(2,
                    "driver-feature: -o Duplex=1: feature \"Duplex\" is unavailable; leave it "
                    "out\n"));
}

}  // namespace
