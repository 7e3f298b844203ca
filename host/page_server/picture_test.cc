#include "host/page_server/picture.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "host/page_server/device_report.h"

namespace driver_feature::page_server {
namespace {

// The pictures that come of what is wanted at once.
std::vector<Picture::Result> drawn(const std::vector<std::string>& wanted, std::size_t count,
                                   const std::string& program = "gs") {
  host::EventLoop loop;
  std::vector<Picture::Result> results;
  Picture picture(loop, program, [&](const Picture::Result& result) {
    results.push_back(result);
    if (results.size() == count) loop.stop();
  });
  long serial = 0;
  for (const std::string& settings : wanted) picture.want(++serial, settings);
  loop.after(std::chrono::seconds(20), [&] { loop.stop(); });
  loop.run();
  return results;
}

// The width and height that a PNG says.
std::string sizeOf(const std::string& png) {
  const auto number = [&png](std::size_t at) {
    return static_cast<unsigned char>(png[at]) * 256 + static_cast<unsigned char>(png[at + 1]);
  };
  if (png.size() < 24 || !png.starts_with("\x89PNG")) return "none";
  return std::to_string(number(18)) + " x " + std::to_string(number(22));
}

TEST(Picture, Settings_AreWhatTheDeviceIsAskedFor) {
  const auto results = drawn({"<< /Duplex true /PageSize [842 595] /HWResolution [600 600]\n"
                              "   /Staple 1 /MediaType (Thick) >> setpagedevice\n"
                              "/#copies 3 def currentpagedevice /Tumble known { << /Tumble true >> "
                              "setpagedevice } if 1 dict begin 7 8"},
                             1);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].problem, "");
  EXPECT_EQ(sizeOf(results[0].png), "1123 x 793");
  const auto device = nlohmann::json::parse(R"json({
    "size":[842,595],"orientation":"landscape","duplex":true,"tumble":true,"tray":"",
    "media":"Thick","copies":3,"finishing":["Staple 1"],"entries":[["Duplex","true"],
    ["HWResolution","[600 600]"],["MediaType","(Thick)"],["NumCopies","3"],
    ["PageSize","[842 595]"],["Staple","1"],["Tumble","true"]]})json");
  EXPECT_EQ(nlohmann::json::parse(results[0].device), device);
}

TEST(Picture, FaultySettings_SayWhichError_AndAreDrawn) {
  const auto results = drawn({"<< /Duplex true >> setpagedevice unheardOf"}, 1);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].problem,
            "The PostScript of the settings has an error: undefined unheardOf.");
  EXPECT_NE(results[0].png, "");
}

TEST(Picture, SettingsThatReadFiles_AreRefused) {
  const auto results = drawn({"(/etc/passwd) (r) file"}, 1);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].problem,
            "The PostScript of the settings has an error: invalidfileaccess file.");
}

TEST(Picture, SeveralAtOnce_TheFirstAndTheNewestAreDrawn) {
  const auto results = drawn({"", "", "", "<< /NumCopies 4 >> setpagedevice"}, 2);
  ASSERT_EQ(results.size(), 2U);
  EXPECT_EQ(results[0].serial, 1);
  EXPECT_EQ(results[1].serial, 4);
  EXPECT_EQ(nlohmann::json::parse(results[1].device)["copies"], 4);
}

TEST(Picture, NoGhostscript_IsSaid) {
  const auto results = drawn({"", ""}, 2, "/nothing/gs");
  ASSERT_EQ(results.size(), 2U);
  EXPECT_EQ(results[1].problem, "There is no picture: Ghostscript (gs) is not installed.");
  EXPECT_EQ(results[1].device, "null");
}

TEST(DeviceReport, LinesOfOthers_AreLeftOut) {
  const DeviceReport report = readDeviceReport(
      "hello\nDF Size\nDF MediaPosition\t3\nDF Jog\t0\nDF Orientation\t1\nDF Size\t[595 842]\n");
  EXPECT_TRUE(report.isWhole);
  const auto device = nlohmann::json::parse(R"json({
    "size":[595,842],"orientation":"landscape","duplex":false,"tumble":false,"tray":"3",
    "media":"","copies":1,"finishing":[],
    "entries":[["Jog","0"],["MediaPosition","3"],["Orientation","1"]]})json");
  EXPECT_EQ(nlohmann::json::parse(report.device), device);
  EXPECT_FALSE(readDeviceReport("DF Duplex\ttrue\n").isWhole);
}

}  // namespace
}  // namespace driver_feature::page_server
