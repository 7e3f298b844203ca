// Comments by which an author allows findings.

#include <regex>

#include "host/program_runner.h"

namespace {

class CheckCommentTest : public ProgramTest {
 protected:
  // The lines after the one of the base info; the findings without their last
  // words.
  std::string findings(const std::vector<std::string>& lines,
                       const std::vector<std::string>& arguments = {}) {
    std::string text =
        "<FeatureDescription>\n<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate' "
        "LoadVORNCallbackHandler='DriverFeatureHostLoad'/>\n";
    for (const std::string& line : lines) text += line + "\n";
    write("d.xml", text + "</FeatureDescription>\n");
    std::vector<std::string> all = {"check", "d.xml", "--format", "github"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const RunResult result = run(all);
    status_ = result.status;
    static const std::regex kStart("::([a-z]+) file=d.xml,line=([0-9]+),col=([0-9]+),title=");
    return std::regex_replace(result.output, kStart, "$1 $2:$3 ");
  }

  int status_ = -1;
};

const std::string kTray =
    "<Feature FeatureType='MultiSelect' Name='Tray'><Option Name='One'/></Feature>";
const std::string kTrayFinding =
    "::feature \"Tray\" has no default; its first option \"One\" is taken; name the default option "
    "in DefaultValue\n";

TEST_F(CheckCommentTest, Allow_CodeOfTheNextElement_IsNotReported) {
  EXPECT_EQ(findings({"<!-- driver-feature: allow DF303: one tray is always there -->", kTray}),
            "");
  EXPECT_EQ(findings({"<!--driver-feature:allow df203,\nDF303 : why not-->", "<!-- Another -->",
                      "<Feature FeatureType='MultiSelect' Name='Tray' x='1'>"
                      "<Option Name='One'/></Feature>"},
                     {"--strict"}),
            "");
  EXPECT_EQ(status_, 0);
}

TEST_F(CheckCommentTest, Allow_CodeOfAnElement_IsAllowedInsideOfItAndNotAfterIt) {
  EXPECT_EQ(
      findings({"<!-- driver-feature: allow DF303: test -->",
                "<FeatureStaticGroup Name='G' PSCommand='%s'>", kTray, "</FeatureStaticGroup>",
                "<Feature FeatureType='MultiSelect' Name='B'><Option Name='One'/></Feature>"},
               {"--select", "DF3,DF9"}),
      "warning 7:1 DF303::feature \"B\" has no default; its first option \"One\" is taken; "
      "name the default option in DefaultValue\n");
}

TEST_F(CheckCommentTest, Allow_Nothing_IsAWarning) {
  EXPECT_EQ(findings({kTray, "<!-- driver-feature: allow DF303, DF501: test -->"}),
            "warning 3:1 DF303" + kTrayFinding +
                "warning 4:1 DF911::this comment allows DF303, which is not reported for the next "
                "element; remove DF303 from it\n"
                "warning 4:1 DF911::this comment allows DF501, which is not reported for the next "
                "element; remove DF501 from it\n");
}

TEST_F(CheckCommentTest, Allow_NoReason_IsAWarningAndFollowed) {
  for (const std::string end : {"", ":", ": "}) {
    EXPECT_EQ(findings({"<!-- driver-feature: allow DF303" + end + "-->", kTray}),
              "warning 3:1 DF912::this comment allows DF303 without a reason; give it after a "
              "colon: allow DF303: REASON\n");
  }
}

TEST_F(CheckCommentTest, Allow_NotUnderstood_IsAWarningAndAllowsNothing) {
  const std::string rest = "; write <!-- driver-feature: allow DF303: REASON -->\n";
  EXPECT_EQ(findings({"<!-- driver-feature: ignore DF303: test -->",
                      "<!-- driver-feature: allow DF303, DF999: test -->",
                      "<!-- driver-feature: allowed DF303: test -->", kTray}),
            "warning 3:1 DF913::this comment does not say \"allow\"" + rest +
                "warning 4:1 DF913::there is no code \"DF999\" to allow" + rest +
                "warning 5:1 DF913::this comment does not say \"allow\"" + rest +
                "warning 6:1 DF303" + kTrayFinding);
}

TEST_F(CheckCommentTest, Allow_RefusedDescription_StillFails) {
  findings({"<!-- driver-feature: allow DF101: test -->", "<Other/>"});
  EXPECT_EQ(status_, 1);
}

}  // namespace
