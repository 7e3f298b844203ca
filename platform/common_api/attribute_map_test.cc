#include "AttributeMap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/recorded_log.h"

namespace {

using driver_feature::testing::RecordedLog;
using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

std::vector<std::pair<std::string, std::string>> entriesOf(const AttributeMap& map) {
  std::vector<std::pair<std::string, std::string>> entries;
  std::string name;
  std::string value;
  for (long i = 0; map.fetchAttributeValueByIndex(i, name, value); ++i) {
    entries.emplace_back(name, value);
  }
  return entries;
}

TEST(AttributeMapTest, New_IsEmpty) {
  const AttributeMap map;
  EXPECT_EQ(map.size(), 0);
  EXPECT_THAT(entriesOf(map), IsEmpty());
}

TEST(AttributeMapTest, Brackets_NameIsAbsent_AddsAnEmptyText) {
  AttributeMap map;
  EXPECT_EQ(map["Name"], "");
  EXPECT_EQ(map.size(), 1);
}

TEST(AttributeMapTest, Brackets_NameIsPresent_ReturnsTheTextInPlace) {
  AttributeMap map;
  map["Name"] = "one";
  std::string& text = map["Name"];
  text = "two";
  EXPECT_THAT(entriesOf(map), ElementsAre(Pair("Name", "two")));
}

TEST(AttributeMapTest, Entries_AreOrderedByUnsignedBytes) {
  AttributeMap map;
  for (const std::string& name : {"b"s, "\xC3\xA4"s, "B"s, "a\0z"s, "a"s, "ab"s, ""s}) map[name];
  EXPECT_THAT(entriesOf(map),
              ElementsAre(Pair("", ""), Pair("B", ""), Pair("a", ""), Pair("a\0z"s, ""),
                          Pair("ab", ""), Pair("b", ""), Pair("\xC3\xA4", "")));
}

TEST(AttributeMapTest, Clear_EmptiesTheMap) {
  AttributeMap map;
  map["a"] = "1";
  map["b"] = "2";
  EXPECT_EQ(map.size(), 2);
  map.clear();
  EXPECT_EQ(map.size(), 0);
  EXPECT_THAT(entriesOf(map), IsEmpty());
}

TEST(AttributeMapTest, FetchByIndex_NoSuchPosition_ReturnsFalseAndLeavesBothTexts) {
  AttributeMap map;
  map["a"] = "1";
  std::string name = "name";
  std::string value = "value";
  for (const long index : {-1L, 1L, 2L, -2147483647L, 2147483647L}) {
    EXPECT_FALSE(map.fetchAttributeValueByIndex(index, name, value)) << index;
  }
  EXPECT_EQ(name, "name");
  EXPECT_EQ(value, "value");
}

TEST(AttributeMapTest, Copy_IsIndependent) {
  AttributeMap map;
  map["a"] = "1";
  AttributeMap copy = map;
  copy["a"] = "2";
  EXPECT_THAT(entriesOf(map), ElementsAre(Pair("a", "1")));
  EXPECT_THAT(entriesOf(copy), ElementsAre(Pair("a", "2")));
}

// A read without a fallback, and one with, for a name that is absent.
template <class Value>
void expectAbsent(const Value& untouched, const Value& fallback) {
  RecordedLog log;
  AttributeMap map;
  map["name"] = "1";
  Value value = untouched;
  EXPECT_FALSE(map.loadMapVariable("Name", value, nullptr));
  EXPECT_EQ(value, untouched);
  EXPECT_TRUE(map.loadMapVariable("Name", value, &fallback));
  EXPECT_EQ(value, fallback);
  EXPECT_EQ(map.size(), 1);
  EXPECT_THAT(log.take(), IsEmpty());
}

TEST(AttributeMapTest, Load_NameIsAbsent_TakesTheFallbackOrFails) {
  expectAbsent<std::string>("before", "fallback");
  expectAbsent<bool>(false, true);
  expectAbsent<bool>(true, false);
  expectAbsent<int>(7, -3);
  expectAbsent<double>(7.5, -3.25);
}

TEST(AttributeMapTest, LoadText_NameIsPresent_ReturnsEveryByte) {
  RecordedLog log;
  AttributeMap map;
  const std::string fallback = "fallback";
  for (const std::string& text : {""s, " a "s, "a\0b"s, "\xFF"s, "1e400"s}) {
    map["Name"] = text;
    std::string value = "before";
    EXPECT_TRUE(map.loadMapVariable("Name", value, &fallback));
    EXPECT_EQ(value, text);
    value = "before";
    EXPECT_TRUE(map.loadMapVariable("Name", value, nullptr));
    EXPECT_EQ(value, text);
  }
  EXPECT_THAT(log.take(), IsEmpty());
}

template <class Value>
struct Reading {
  std::string text;
  Value value;
};

// The fallback differs from every expected value, so that taking it shows.
template <class Value>
void expectReadings(const std::vector<Reading<Value>>& rows, const Value& fallback) {
  RecordedLog log;
  AttributeMap map;
  for (const Reading<Value>& row : rows) {
    map["Name"] = row.text;
    Value value = fallback;
    EXPECT_TRUE(map.loadMapVariable("Name", value, nullptr)) << '"' << row.text << '"';
    EXPECT_EQ(value, row.value) << '"' << row.text << '"';
    value = fallback;
    EXPECT_TRUE(map.loadMapVariable("Name", value, &fallback)) << '"' << row.text << '"';
    EXPECT_EQ(value, row.value) << '"' << row.text << '"';
  }
  EXPECT_THAT(log.take(), IsEmpty());
}

TEST(AttributeMapTest, LoadBool_TextIsABool_ReturnsIt) {
  expectReadings<bool>({{"true", true}, {"1", true}}, false);
  expectReadings<bool>({{"false", false}, {"0", false}}, true);
}

TEST(AttributeMapTest, LoadInt_TextIsANumber_ReturnsIt) {
  expectReadings<int>({{"0", 0},
                       {"-0", 0},
                       {"1", 1},
                       {"-1", -1},
                       {"007", 7},
                       {"010", 10},
                       {"2147483647", 2147483647},
                       {"-2147483648", -2147483647 - 1},
                       {"00000000000000000005", 5}},
                      99);
}

TEST(AttributeMapTest, LoadDouble_TextIsANumber_ReturnsIt) {
  expectReadings<double>({{"0", 0.0},
                          {"1", 1.0},
                          {"-1.5", -1.5},
                          {"0.1", 0.1},
                          {".5", 0.5},
                          {"5.", 5.0},
                          {"1e3", 1000.0},
                          {"1E+3", 1000.0},
                          {"-25e-1", -2.5},
                          {"3000000000", 3000000000.0},
                          {"1e-400", 0.0},
                          {"-2e-999999", 0.0},
                          {"0.1e-309", 0.1e-309},
                          {"1.7976931348623157e308", 1.7976931348623157e308}},
                         99.0);
}

// A read of a text that does not convert, with and without a fallback.
template <class Value>
void expectRefused(const std::vector<std::string>& texts, const Value& untouched,
                   const Value& fallback, const std::string& wanted) {
  RecordedLog log;
  for (const std::string& text : texts) {
    AttributeMap map;
    map["Na me"] = text;
    std::string line = "3 CommonAPI: AttributeMap::loadMapVariable() - Attribute \"Na me\" holds ";
    line.append("\"").append(text).append("\" where ").append(wanted).append(" is needed.");
    Value value = untouched;
    EXPECT_FALSE(map.loadMapVariable("Na me", value, nullptr)) << '"' << text << '"';
    EXPECT_EQ(value, untouched) << '"' << text << '"';
    EXPECT_THAT(log.take(), ElementsAre(line));
    EXPECT_TRUE(map.loadMapVariable("Na me", value, &fallback)) << '"' << text << '"';
    EXPECT_EQ(value, fallback) << '"' << text << '"';
    EXPECT_THAT(log.take(), ElementsAre(line));
  }
}

TEST(AttributeMapTest, LoadBool_TextIsNotABool_FailsAndLogs) {
  expectRefused<bool>({"", "True", "TRUE", " true", "true ", "yes", "2", "-1", "01", "true\0"s},
                      true, false, R"("true", "false", "1" or "0")");
}

TEST(AttributeMapTest, LoadInt_TextIsNotANumber_FailsAndLogs) {
  expectRefused<int>(
      {"", "-", "+5", "--5", " 5", "5 ", "\t5", "5\n", "5x", "x", "0x10", "1.0", "1e3", "1,000",
       "5\0"s, "5\0007"s, "2147483648", "-2147483649", "99999999999999999999"},
      7, -3, "a decimal 32-bit number");
}

TEST(AttributeMapTest, LoadDouble_TextIsNotANumber_FailsAndLogs) {
  expectRefused<double>(
      {"",   "-",   "+1.5", ".",        "1,5", " 1.5", "1.5 ", "1.5f",   "1.5.2", "0x1p3", "1e",
       "e3", "inf", "-inf", "infinity", "INF", "nan",  "NaN",  "nan(1)", "1e400", "1.5\0"s},
      7.5, -3.25, "a decimal number");
}

TEST(AttributeMapTest, Load_TextIsRefused_LeavesTheSharedBufferAlone) {
  RecordedLog log;
  LogMessageBuffer = "in the making";
  AttributeMap map;
  map["Name"] = "x";
  int value = 0;
  EXPECT_FALSE(map.loadMapVariable("Name", value, nullptr));
  EXPECT_EQ(LogMessageBuffer.utf8(), "in the making");
}

}  // namespace
