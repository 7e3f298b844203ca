#include "host/session/host_routines.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Symbols.h"
#include "XMLDocument.h"

#include "host/session/feature_view.h"
#include "host/session/plugin.h"

namespace driver_feature::host {

namespace {

// A description that names both routines, loaded into the real library.
class HostRoutinesTest : public testing::Test {
 protected:
  HostRoutinesTest() {
    plugin_ = *Plugin::load(DRIVER_FEATURE_LIBRARY);
    description_ = parse(
        "<FeatureDescription><BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'"
        " LoadVORNCallbackHandler='DriverFeatureHostLoad'/>"
        "<Feature FeatureType='IntEntry' Name='Copies' IntMaxValue='9' DefaultValue='1'/>"
        "<Feature FeatureType='TextEntry' Name='Owner' DefaultValue='nobody'/>"
        "</FeatureDescription>");
    plugin_->handOver(description_->root());
    plugin_->completeCreation();
    features_ = featuresOf(plugin_->features());
    setLoadTarget({[this](const std::string& name, const std::string& value) -> Result<> {
                     if (value == "10") return refused("no");
                     features_.at(name).setValue(value);
                     return {};
                   },
                   [this](const std::string& line) { reports_.push_back(line); }});
  }
  ~HostRoutinesTest() override { setLoadTarget({}); }

  static std::unique_ptr<XMLDocument> parse(const std::string& text) {
    XMLProblem problem;
    return XMLDocument::parseText(text, "test.xml", problem);
  }

  void loadTicket(const std::string& text) {
    const auto ticket = parse(text);
    auto* handler = reinterpret_cast<int (*)(void*)>(plugin_->find("JobTicketVORNTagHandler"));
    EXPECT_EQ(handler(ticket->root()), 1);
  }

  const FeatureView& feature(const std::string& name) const { return features_.at(name); }

  std::optional<Plugin> plugin_;
  std::unique_ptr<XMLDocument> description_;
  FeatureMap features_;
  std::vector<std::string> reports_;
};

TEST_F(HostRoutinesTest, FetchSymbol_BothRoutines_AreFoundByName) {
  EXPECT_EQ(FetchSymbol("DriverFeatureHostUpdate"),
            reinterpret_cast<void*>(&DriverFeatureHostUpdate));
  EXPECT_EQ(FetchSymbol("DriverFeatureHostLoad"), reinterpret_cast<void*>(&DriverFeatureHostLoad));
}

TEST_F(HostRoutinesTest, Update_CountsItsCalls) {
  const long before = updateCount();
  EXPECT_TRUE(feature("Copies").setValue("5"));
  EXPECT_EQ(updateCount(), before + 1);
  EXPECT_TRUE(DriverFeatureHostUpdate());
  EXPECT_EQ(updateCount(), before + 2);
}

TEST_F(HostRoutinesTest, Load_Ticket_SetsTheFeaturesAndNotifiesOnce) {
  const long before = updateCount();
  loadTicket("<Ticket><a Name='Copies' Value='7'/><b Name='Owner' Value='someone'/></Ticket>");
  EXPECT_EQ(feature("Copies").currentInt(), 7);
  EXPECT_EQ(feature("Owner").currentText(), "someone");
  EXPECT_EQ(updateCount(), before + 1);
}

TEST_F(HostRoutinesTest, Load_RefusedSettings_AreCountedAndReportedAndTheOthersSet) {
  EXPECT_TRUE(feature("Copies").setValue("3"));
  const auto ticket = parse(
      "<Ticket>\n<s Name='Copies' Value='10'/>\n<s Value='1'/>\n<s Name='Owner'/>\n"
      "<s Name='Owner' Value='me'/>\n</Ticket>");
  EXPECT_EQ(DriverFeatureHostLoad(ticket->root(), 0), 3);
  EXPECT_EQ(reports_,
            (std::vector<std::string>{
                "setting in line 2: no",
                "setting in line 3: there is no attribute \"Name\"; name a feature with it",
                "setting in line 4: there is no attribute \"Value\"; give the value of \"Owner\" "
                "with it"}));
  EXPECT_EQ(feature("Copies").currentInt(), 3);
  EXPECT_EQ(feature("Owner").currentText(), "me");
}

TEST_F(HostRoutinesTest, Load_NoTarget_RefusesEverySetting) {
  setLoadTarget({nullptr, [this](const std::string& line) { reports_.push_back(line); }});
  const auto ticket = parse("<Ticket><s Name='Copies' Value='8'/></Ticket>");
  EXPECT_EQ(DriverFeatureHostLoad(ticket->root(), 1), 1);
  EXPECT_EQ(
      reports_,
      (std::vector<std::string>{"setting in line 1: no description is loaded; load one first"}));
  EXPECT_NE(feature("Copies").currentInt(), 8);
}

// As after the end of a session.
TEST_F(HostRoutinesTest, Load_NoReport_OnlyCounts) {
  setLoadTarget({});
  const auto ticket = parse("<Ticket><s Name='Copies' Value='8'/><s/></Ticket>");
  EXPECT_EQ(DriverFeatureHostLoad(ticket->root(), 1), 2);
}

}  // namespace

}  // namespace driver_feature::host
