// The routines at work in a host that has loaded a shipped description.

#include "descriptions/office_routines.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <memory>

#include "XMLDocument.h"

#include "host/session/session.h"
#include "host/settings/setting.h"
#include "support/problem_text.h"

namespace driver_feature {

namespace {

class OfficeRoutinesTest : public testing::Test {
 protected:
  void open(const std::string& description) {
    host::SessionRequest request;
    request.description = std::string(DESCRIPTIONS_FOLDER) + "/" + description;
    request.library = DRIVER_FEATURE_LIBRARY;
    request.routines = {ROUTINES_LIBRARY};
    auto session = host::Session::open(request);
    ASSERT_EQ(problemText(session), "");
    session_ = std::move(*session);
  }

  const host::FeatureView& feature(const std::string& name) const {
    return session_->model().features.at(name);
  }

  void set(const std::string& name, const std::string& value) const {
    EXPECT_EQ(problemText(applySetting(session_->model(), {name, value})), "") << name;
  }

  std::string choice(const std::string& name) const {
    return feature(name).currentChoice().value_or("(none)");
  }

  // The options that can be chosen, each with a blank after it.
  std::string available(const std::string& name) const {
    std::string names;
    for (const host::Choice& each : feature(name).choices()) {
      if (each.available) names += each.name + " ";
    }
    return names;
  }

  // Calls a ticket handler of the library with the root of `document`.
  static int handle(const std::string& handler, const std::string& document) {
    XMLProblem problem;
    const auto ticket = XMLDocument::parseText(document, "ticket", problem);
    void* library = dlopen(DRIVER_FEATURE_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
    const auto routine = reinterpret_cast<int (*)(void*)>(dlsym(library, handler.c_str()));
    return routine(ticket->root());
  }

  std::string handleInstalled(const std::string& settings) const {
    testing::internal::CaptureStdout();
    EXPECT_EQ(handle("InstOptVORNTagHandler", "<Ticket>" + settings + "</Ticket>"), 1);
    return testing::internal::GetCapturedStdout();
  }

  std::unique_ptr<host::Session> session_;
};

TEST_F(OfficeRoutinesTest, DuplexUnit_NotInstalled_TakesTwoSidedPrintingAway) {
  open("office_laser.xml");
  set("Duplex", "LongEdge");
  set("InstalledDuplexUnit", "NotInstalled");
  EXPECT_EQ(choice("Duplex"), "OneSided");
  EXPECT_EQ(available("Duplex"), "OneSided ");
  set("InstalledDuplexUnit", "Installed");
  EXPECT_EQ(available("Duplex"), "OneSided LongEdge ShortEdge ");
}

TEST_F(OfficeRoutinesTest, Finisher_LeavesWhatItCanDo) {
  open("office_laser.xml");
  set("Staple", "DualLeft");
  set("Fold", "Half");
  set("InstalledFinisher", "Stapler");
  EXPECT_EQ(choice("Staple"), "DualLeft");
  EXPECT_EQ(choice("Fold"), "None");
  EXPECT_EQ(available("Fold"), "None ");
  set("InstalledFinisher", "NotInstalled");
  EXPECT_EQ(choice("Staple"), "None");
  EXPECT_EQ(available("Staple"), "None ");
  EXPECT_EQ(available("Punch"), "None ");
  set("InstalledFinisher", "BookletMaker");
  EXPECT_EQ(available("Staple"), "None TopLeft TopRight DualLeft ");
  EXPECT_EQ(available("Punch"), "None TwoHoles ThreeHoles FourHoles ");
  EXPECT_EQ(available("Fold"), "None Half Letter ");
}

TEST_F(OfficeRoutinesTest, PageSize_CustomMakesBothLengthsAvailable) {
  open("office_laser.xml");
  EXPECT_FALSE(feature("CustomPageWidth").isAvailable());
  EXPECT_FALSE(feature("CustomPageHeight").isAvailable());
  set("PageSize", "Custom");
  EXPECT_TRUE(feature("CustomPageWidth").isAvailable());
  EXPECT_TRUE(feature("CustomPageHeight").isAvailable());
  set("PageSize", "A3");
  EXPECT_FALSE(feature("CustomPageWidth").isAvailable());
  EXPECT_FALSE(feature("CustomPageHeight").isAvailable());
}

TEST_F(OfficeRoutinesTest, HoldJob_PrivateMakesTheNumberAvailable) {
  open("office_laser.xml");
  EXPECT_FALSE(feature("HoldPin").isAvailable());
  set("HoldJob", "Private");
  EXPECT_TRUE(feature("HoldPin").isAvailable());
  set("HoldJob", "Store");
  EXPECT_FALSE(feature("HoldPin").isAvailable());
}

TEST_F(OfficeRoutinesTest, Watermark_MakesAvailableWhatItTakes) {
  open("office_laser.xml");
  const struct {
    const char* watermark;
    bool text;
    bool angle;
  } kRows[] = {{"Draft", false, true}, {"Custom", true, true}, {"None", false, false}};
  for (const auto& row : kRows) {
    set("Watermark", row.watermark);
    EXPECT_EQ(feature("WatermarkText").isAvailable(), row.text) << row.watermark;
    EXPECT_EQ(feature("WatermarkAngle").isAvailable(), row.angle) << row.watermark;
    EXPECT_EQ(feature("WatermarkSize").isAvailable(), row.angle) << row.watermark;
  }
}

TEST_F(OfficeRoutinesTest, Cutter_NotInstalled_TakesCuttingAway) {
  open("label_printer.xml");
  EXPECT_EQ(choice("Cutter"), "EndOfJob");
  set("InstalledCutter", "NotInstalled");
  EXPECT_EQ(choice("Cutter"), "Off");
  EXPECT_EQ(available("Cutter"), "Off ");
  set("InstalledCutter", "Installed");
  EXPECT_EQ(available("Cutter"), "Off EveryLabel EverySet EndOfJob ");
}

TEST_F(OfficeRoutinesTest, LoadValues_JobTicket_SetsEveryFeatureNamed) {
  open("office_laser.xml");
  EXPECT_EQ(handle("JobTicketVORNTagHandler",
                   "<Ticket><Setting Name='PageSize' Value='A3'/><Any Name='Copies' Value='12'/>"
                   "<Setting Name='Gamma' Value='2.5'/><Setting Name='NoSuch' Value='1'/>"
                   "<Setting Name='JobName' Value='Loaded'/></Ticket>"),
            1);
  EXPECT_EQ(choice("PageSize"), "A3");
  EXPECT_EQ(feature("Copies").currentInt(), 12);
  EXPECT_EQ(feature("Gamma").currentFloat(), 2.5F);
  EXPECT_EQ(feature("JobName").currentText(), "Loaded");
}

TEST_F(OfficeRoutinesTest, LoadValues_InstallableOptions_TakesNothingElse) {
  open("office_laser.xml");
  EXPECT_EQ(handleInstalled("<Setting Name='InstalledFinisher' Value='Stapler'/>"), "");
  EXPECT_EQ(choice("InstalledFinisher"), "Stapler");
  EXPECT_EQ(available("Fold"), "None ");
  EXPECT_EQ(handleInstalled("<Setting Name='PageSize' Value='A3'/>"),
            "Queue Defaults Load Error\n");
  EXPECT_EQ(choice("PageSize"), "A4");
}

TEST_F(OfficeRoutinesTest, LoadValues_BadSettings_AreReportedAndTheOthersSet) {
  open("office_laser.xml");
  const std::string good = "<Setting Name='InstalledFinisher' Value='Stapler'/>";
  for (const char* bad : {"<Setting/>", "<Setting Name='InstalledFinisher'/>",
                          "<Setting Value='Stapler'/>", "<Setting Name='NoSuch' Value='1'/>",
                          "<Setting Name='InstalledDuplexUnit' Value='Perhaps'/>"}) {
    set("InstalledFinisher", "BookletMaker");
    EXPECT_EQ(handleInstalled(bad + good), "Queue Defaults Load Error\n") << bad;
    EXPECT_EQ(choice("InstalledFinisher"), "Stapler") << bad;
  }
  EXPECT_EQ(choice("InstalledDuplexUnit"), "Installed");
}

}  // namespace

}  // namespace driver_feature
