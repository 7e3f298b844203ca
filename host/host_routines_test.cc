#include "host/host_routines.h"

#include <gtest/gtest.h>

#include <memory>

#include "Symbols.h"
#include "XMLDocument.h"

#include "host/plugin.h"

namespace driver_feature {

namespace {

// A description that names both routines, loaded into the real library.
class HostRoutinesTest : public testing::Test {
 protected:
  HostRoutinesTest() {
    std::string problem;
    plugin_ = Plugin::load(DRIVER_FEATURE_LIBRARY, problem);
    description_ = parse(
        "<FeatureDescription><BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'"
        " LoadVORNCallbackHandler='DriverFeatureHostLoad'/>"
        "<Feature FeatureType='IntEntry' Name='Copies' IntMaxValue='9' DefaultValue='1'/>"
        "<Feature FeatureType='TextEntry' Name='Owner' DefaultValue='nobody'/>"
        "</FeatureDescription>");
    plugin_->handOver(description_->root());
    plugin_->completeCreation();
    model_ = std::make_unique<Model>(
        Model{featuresOf(plugin_->features()), DescriptionIndex(description_->root()), "test.xml"});
    setLoadTarget(model_.get());
  }
  ~HostRoutinesTest() override { setLoadTarget(nullptr); }

  static std::unique_ptr<XMLDocument> parse(const std::string& text) {
    XMLProblem problem;
    return XMLDocument::parseText(text, "test.xml", problem);
  }

  void loadTicket(const std::string& text) {
    const auto ticket = parse(text);
    auto* handler = reinterpret_cast<int (*)(void*)>(plugin_->find("JobTicketVORNTagHandler"));
    EXPECT_EQ(handler(ticket->root()), 1);
  }

  const FeatureView& feature(const std::string& name) const { return model_->features.at(name); }

  std::unique_ptr<Plugin> plugin_;
  std::unique_ptr<XMLDocument> description_;
  std::unique_ptr<Model> model_;
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
  testing::internal::CaptureStderr();
  EXPECT_EQ(DriverFeatureHostLoad(ticket->root(), 0), 3);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "driver-feature: setting in line 2: 10 is out of range; give a whole number, at most 9 "
            "(test.xml:1)\n"
            "driver-feature: setting in line 3: there is no attribute \"Name\"; name a feature "
            "with it\n"
            "driver-feature: setting in line 4: there is no attribute \"Value\"; give the value of "
            "\"Owner\" with it\n");
  EXPECT_EQ(feature("Copies").currentInt(), 3);
  EXPECT_EQ(feature("Owner").currentText(), "me");
}

TEST_F(HostRoutinesTest, Load_NoTarget_RefusesEverySetting) {
  setLoadTarget(nullptr);
  const auto ticket = parse("<Ticket><s Name='Copies' Value='8'/></Ticket>");
  testing::internal::CaptureStderr();
  EXPECT_EQ(DriverFeatureHostLoad(ticket->root(), 1), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "driver-feature: setting in line 1: no description is loaded; load one first\n");
  EXPECT_NE(feature("Copies").currentInt(), 8);
}

}  // namespace

}  // namespace driver_feature
