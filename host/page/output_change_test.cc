#include "host/page/output_change.h"

#include <gtest/gtest.h>

namespace driver_feature::page {
namespace {

using Json = nlohmann::json;

Json output(const std::string& text, const std::string& spans) {
  return {{"text", text}, {"spans", Json::parse(spans)}};
}

TEST(OutputChangeTest, TextAndSpansBetweenTheSameEnds_AreTold) {
  struct Row {
    const char* name;
    Json before, now;
    std::string change;
  };
  const Json three = output("aaabbbccc", R"([[0,3,"A"],[3,3,"B"],[6,3,"C"]])");
  const std::vector<Row> rows = {
      {"a value", three, output("aaabxbccc", R"([[0,3,"A"],[3,3,"B"],[6,3,"C"]])"),
       R"({"at":4,"gone":1,"text":"x","head":3,"tail":0,"spans":[]})"},
      {"a longer value", three, output("aaabbxxbccc", R"([[0,3,"A"],[3,5,"B"],[8,3,"C"]])"),
       R"({"at":5,"gone":0,"text":"xx","head":1,"tail":1,"spans":[[3,5,"B"]]})"},
      {"one has gone", three, output("aaaccc", R"([[0,3,"A"],[3,3,"C"]])"),
       R"({"at":3,"gone":3,"text":"","head":1,"tail":1,"spans":[]})"},
      {"all have gone", three, output("", "[]"),
       R"({"at":0,"gone":9,"text":"","head":0,"tail":0,"spans":[]})"},
      {"the first ones", output("", "[]"), output("ab", R"([[0,2,"A"]])"),
       R"({"at":0,"gone":0,"text":"ab","head":0,"tail":0,"spans":[[0,2,"A"]]})"},
      {"only an owner", three, output("aaabbbccc", R"([[0,3,"A"],[3,3,"D"],[6,3,"C"]])"),
       R"({"at":9,"gone":0,"text":"","head":1,"tail":1,"spans":[[3,3,"D"]]})"},
      {"no more spans", three, output("aaabbbcccd", "[]"),
       R"({"at":9,"gone":0,"text":"d","head":0,"tail":0,"spans":[]})"},
      {"the same letters at both ends", output("aa", R"([[0,2,"A"]])"),
       output("aaa", R"([[0,3,"A"]])"),
       R"({"at":2,"gone":0,"text":"a","head":0,"tail":0,"spans":[[0,3,"A"]]})"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(outputChange(row.before, row.now), Json::parse(row.change)) << row.name;
  }
}

// The characters differ in their last bytes, and in their first ones.
TEST(OutputChangeTest, Characters_StayWholeAndCountAsUnits) {
  const Json change = outputChange(output("\xF0\x9F\x96\xA8x\xC3\xA9y", "[]"),
                                   output("\xF0\x9F\x96\xA8x\xC3\xAAy", "[]"));
  EXPECT_EQ(change, Json::parse("{\"at\":3,\"gone\":1,\"text\":\"\xC3\xAA\",\"head\":0,\"tail\":0,"
                                "\"spans\":[]}"));
  const Json tail = outputChange(output("\xC3\xA9", "[]"), output("\xC4\xA9", "[]"));
  EXPECT_EQ(tail, Json::parse("{\"at\":0,\"gone\":1,\"text\":\"\xC4\xA9\",\"head\":0,\"tail\":0,"
                              "\"spans\":[]}"));
}

TEST(OutputChangeTest, OutputWithAProblem_IsTheOutput) {
  const Json good = output("a", "[]");
  Json bad = output("ab", "[]");
  bad["problem"] = "a command is wrong";
  EXPECT_EQ(outputChange(good, bad), bad);
  EXPECT_EQ(outputChange(bad, good), good);
  EXPECT_EQ(outputChange(Json(), good), good);
}

}  // namespace
}  // namespace driver_feature::page
