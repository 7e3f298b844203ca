// What the filter does with jobs that rules forbid.

#include <gmock/gmock.h>

#include "printing/filter_fixture.h"
#include "printing/queue_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

// "Stock=Film" forbids "Sided=On"; "Staple=Yes" needs the hardware "Unit=Yes".
constexpr const char* kRules =
    "</FeatureDescription><FeatureRules><Hardware Feature='Unit'/>\n"
    "<Never Id='film' Text='Film is printed on one side.'>"
    "<When Feature='Stock' Is='Film'/><When Feature='Sided' Is='On'/></Never>\n"
    "<Never Id='staple'>"
    "<When Feature='Staple' Is='Yes'/><When Feature='Unit' Is='No'/></Never>\n"
    "</FeatureRules></Driver>\n";

class JobRulesTest : public QueueCommandTest {
 protected:
  JobRulesTest() {
    write("rules.xml",
          "<Driver><FeatureDescription>"
          "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'/>" +
              list("Sided", "Off", "On") + list("Stock", "Plain", "Film") +
              list("Staple", "No", "Yes") + list("Unit", "No", "Yes") + kRules);
    write("job.ps", "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\nshowpage\n%%EOF\n");
    set("DRIVER_FEATURE_DESCRIPTION", "rules.xml");
  }

  static std::string list(const std::string& name, const std::string& first,
                          const std::string& second) {
    return feature("MultiSelect", name, "DefaultValue='" + first + "' PSCommand='%s&#10;'",
                   "<O Name='" + first + "' PSCommand='" + name + first + "'/><O Name='" + second +
                       "' PSCommand='" + name + second + "'/>");
  }
};

constexpr const char* kReason =
    "Stock=Film cannot be combined with Sided=On: Film is printed on one side (rules.xml:2)";

TEST_F(JobRulesTest, ForbiddenValues_FailTheJob) {
  RunResult result = withoutDebug(filter("Stock=Film Sided=On"));
  EXPECT_EQ(result, failure(1, std::string("ERROR: ") + kReason +
                                   "; a queue made with --resolve changes Sided: On -> Off\n"));
  EXPECT_EQ(withoutDebug(filter("Staple=Yes")),
            failure(1,
                    "ERROR: Staple=Yes cannot be combined with Unit=No (rule staple) "
                    "(rules.xml:3); possible with Unit=Yes\n"));
  EXPECT_EQ(filter("Stock=Film").status, 0);
}

TEST_F(JobRulesTest, ForbiddenValues_AreMendedWhenTheQueueSaysSo) {
  set("DRIVER_FEATURE_RULES", "resolve");
  const RunResult result = withoutDebug(filter("Stock=Film Sided=On"));
  EXPECT_EQ(result.errors, "WARNING: Sided is changed from \"On\" to \"Off\": " +
                               std::string(kReason) + "\nPAGE: 1 1\n");
  EXPECT_THAT(result.output, HasSubstr("SidedOff\nStapleNo\nStockFilm\n"));
  EXPECT_EQ(filter("Staple=Yes").status, 1);
}

TEST_F(JobRulesTest, ForbiddenValues_AreWrittenWhenRulesAreIgnored) {
  set("DRIVER_FEATURE_RULES", "ignore");
  const RunResult result = withoutDebug(filter("Stock=Film Sided=On"));
  EXPECT_EQ(result.errors, "PAGE: 1 1\n");
  EXPECT_THAT(result.output, HasSubstr("SidedOn\nStapleNo\nStockFilm\n"));
}

TEST_F(JobRulesTest, QueueThatFailsNoJob_PrintsForbiddenValues) {
  set("DRIVER_FEATURE_REFUSED_VALUE", "default");
  EXPECT_THAT(filter("Stock=Film Sided=On").output, HasSubstr("SidedOff\nStapleNo\nStockFilm\n"));
  const RunResult result = withoutDebug(filter("Staple=Yes"));
  EXPECT_EQ(result.errors,
            "WARNING: Staple=Yes cannot be combined with Unit=No (rule staple) (rules.xml:3); "
            "possible with Unit=Yes; the job is printed as it is\nPAGE: 1 1\n");
  EXPECT_THAT(result.output, HasSubstr("StapleYes\nStockPlain\nUnitNo\n"));
}

TEST_F(JobRulesTest, UnknownConduct_IsRefused) {
  set("DRIVER_FEATURE_RULES", "mend");
  EXPECT_EQ(withoutDebug(filter("")),
            failure(1,
                    "ERROR: DRIVER_FEATURE_RULES is \"mend\"; make it \"refuse\", \"resolve\" or "
                    "\"ignore\"\n"));
}

TEST_F(JobRulesTest, QueueCommand_Resolve_StandsInThePpd) {
  EXPECT_EQ(queue({"rules.xml", "--resolve", "--output", "queue.ppd"}), success(""));
  EXPECT_THAT(read("queue.ppd"), HasSubstr("*DriverFeatureRules: \"resolve\"\n"));
  set("DRIVER_FEATURE_DESCRIPTION", "");
  set("PPD", "queue.ppd");
  EXPECT_EQ(withoutDebug(filter("Stock=Film Sided=On")).errors,
            "WARNING: Sided is changed from \"On\" to \"Off\": Stock=Film cannot be combined with "
            "Sided=On: Film is printed on one side (" +
                path("rules.xml") + ":2)\nPAGE: 1 1\n");
  EXPECT_EQ(queue({"rules.xml", "--output", "queue.ppd"}), success(""));
  EXPECT_THAT(read("queue.ppd"), Not(HasSubstr("DriverFeatureRules")));
  EXPECT_EQ(filter("Stock=Film Sided=On").status, 1);
}

// The values of the queue are its operator's: with them alone every job is
// printed.
TEST_F(JobRulesTest, ForbiddenDefaultsOfTheQueue_RefuseOnlyJobsThatSetThem) {
  EXPECT_EQ(queue({"rules.xml", "--output", "queue.ppd"}), success(""));
  std::string ppd = read("queue.ppd");
  for (const char* const text : {"*DefaultStock: Plain", "*DefaultSided: Off"}) {
    ASSERT_NE(ppd.find(text), std::string::npos);
  }
  ppd.replace(ppd.find("*DefaultStock: Plain"), 20, "*DefaultStock: Film");
  ppd.replace(ppd.find("*DefaultSided: Off"), 18, "*DefaultSided: On");
  write("queue.ppd", ppd);
  set("DRIVER_FEATURE_DESCRIPTION", "");
  set("PPD", "queue.ppd");
  EXPECT_THAT(filter("").output, HasSubstr("SidedOn\nStapleNo\nStockFilm\n"));
  EXPECT_THAT(filter("Sided=On Stock=Film").output, HasSubstr("SidedOn\nStapleNo\nStockFilm\n"));
  EXPECT_THAT(filter("Sided=Off").output, HasSubstr("SidedOff\nStapleNo\nStockFilm\n"));
}

}  // namespace
