#include "equivalence/report.h"

#include <gtest/gtest.h>

#include <sstream>

namespace driver_feature::equivalence {

namespace {

using Json = nlohmann::json;

Report reportWith(const std::string& exceptions) {
  std::istringstream input(exceptions);
  return Report(Exceptions::read(input).value());
}

Json goodRecord(const std::string& ppd) {
  return {{"ppd", ppd},        {"causes", Json::array()}, {"options", 2},    {"choices", 5},
          {"jcl_options", 1},  {"custom_options", 1},     {"vectors", 3},    {"bytes", 1000},
          {"check_errors", 0}, {"check_warnings", 4},     {"whole_jobs", 6}, {"whole_bytes", 2000},
          {"fronts", 1}};
}

Json badRecord(const std::string& ppd, const std::vector<std::string>& causes) {
  Json record = goodRecord(ppd);
  record["causes"] = causes;
  record["detail"] = "first line\nsecond line";
  record["difference_count"] = 2;
  record["differences"] = {{{"part", "JCL"},
                            {"vector", "vector 3"},
                            {"marks", "A=1"},
                            {"offset", 7},
                            {"peer_size", 20},
                            {"our_size", 21},
                            {"peer", "ON"},
                            {"ours", "OFF"}}};
  return record;
}

TEST(Report, AllEqual_HasFiguresOnly) {
  Report report = reportWith("");
  EXPECT_FALSE(report.add(goodRecord("a.ppd")));
  EXPECT_FALSE(report.add(goodRecord("b.ppd")));
  report.close(true);
  EXPECT_FALSE(report.hasFailures());
  EXPECT_EQ(report.toText(),
            "             2  PPDs\n"
            "             2  of them equal\n"
            "             4  options\n"
            "            10  choices\n"
            "             2  JCL options\n"
            "             2  options with custom values\n"
            "             6  vectors compared\n"
            "          2000  bytes compared\n"
            "             0  texts that differ\n"
            "            12  whole jobs compared\n"
            "          4000  bytes of whole jobs\n"
            "             2  PPDs with job-control language in front of them\n"
            "             0  errors of the check\n"
            "             8  warnings of the check\n");
}

TEST(Report, Failures_AreSortedByNameWithTheirDifferences) {
  Report report = reportWith("difference in JCL | b.ppd | known\n");
  EXPECT_TRUE(report.add(badRecord("c.ppd", {"check"})));
  EXPECT_TRUE(report.add(badRecord("b.ppd", {"difference in JCL", "check"})));
  report.close(true);
  EXPECT_TRUE(report.hasFailures());
  const std::string text = report.toText();
  const std::string difference =
      "    JCL at byte 7 (20 bytes in libcups, 21 here), vector 3\n"
      "      libcups: ON\n"
      "      here:    OFF\n";
  EXPECT_EQ(text.substr(text.find("\nPPDs by cause")),
            "\nPPDs by cause:\n"
            "  check: 2\n"
            "  difference in JCL: 1\n"
            "\nExceptions:\n"
            "  b.ppd: difference in JCL: known\n"
            "\nFailures:\n"
            "  b.ppd: [check] first line\n" +
                difference + "  c.ppd: [check] first line\n" + difference);
  EXPECT_EQ(report.toJson()["figures"]["equal"], nullptr);
  EXPECT_EQ(report.toJson()["figures"]["difference_count"], 4);
}

TEST(Report, ExceptionsOnly_AreNotAFailure) {
  Report report = reportWith("check | a.ppd | known\n");
  EXPECT_FALSE(report.add(badRecord("a.ppd", {"check"})));
  report.close(true);
  EXPECT_FALSE(report.hasFailures());
}

TEST(Report, IdleException_IsAFailure) {
  Report report = reportWith("check | a.ppd | known\n");
  EXPECT_FALSE(report.add(goodRecord("a.ppd")));
  report.close(false);
  EXPECT_TRUE(report.hasFailures());
  EXPECT_EQ(report.toJson()["idle_exceptions"], Json::array({"check | a.ppd"}));
}

}  // namespace

}  // namespace driver_feature::equivalence
