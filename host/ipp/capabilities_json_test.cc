#include <gtest/gtest.h>

#include "support/ipp_support.h"

namespace driver_feature::ipp {
namespace {

// One of everything.
Capabilities wholeCapabilities() {
  FeatureCapability list = pageSizes();
  list.group = "Section.AnySetup";
  list.key = "media";
  list.ticketName = "media";
  list.syntax = "keyword";
  list.choices[1].key = "a5";
  list.choices[1].ticketName = "iso_a5_148x210mm";
  FeatureCapability number = wholeNumber("Wait", -2147483647 - 1, 2147483647, "-7");
  number.isHardware = true;
  FeatureCapability decimal = decimalNumber("Gamma", 0.1F, 2.5F, "0.1");
  FeatureCapability text = textOf("P\xFFn\\x41 \xC3\xA4", 4, "01\\\"\n");
  text.isEncrypted = true;
  text.enabler = {"Hold", "Private"};
  Capabilities all = capabilitiesWith({decimal, list, text, number});
  all.presets = {{"draft", {{"Gamma", "2"}, {"PageSize", "A5"}}}, {"empty", {}}};
  all.rules = {{"film",
                {{"PageSize", host::Condition::Kind::kIsNot, {"A4", "A5"}, 0},
                 {"Gamma", host::Condition::Kind::kBelow, {}, -1.5}}}};
  all.languages = {{"", {{"rule:film", "No film."}}}, {"zh-TW", {{"PageSize.A4", "\xE7\xB4\x99"}}}};
  return all;
}

std::string sizesOf(const FeatureCapability& feature) {
  std::string text;
  for (const ChoiceCapability& choice : feature.choices) {
    text += choice.name + "|" + choice.key + "|" + choice.ticketName + "|" +
            std::to_string(choice.width) + "x" + std::to_string(choice.height) + "|" +
            std::to_string(choice.left) + "," + std::to_string(choice.bottom) + "," +
            std::to_string(choice.right) + "," + std::to_string(choice.top) + "\n";
  }
  return text;
}

TEST(CapabilitiesJsonTest, Json_ReadBack_IsTheSame) {
  const std::string json = toJson(wholeCapabilities());
  EXPECT_EQ(json.find('\n'), std::string::npos);
  const auto read = capabilitiesFromJson(json);
  ASSERT_TRUE(read);
  EXPECT_EQ(toJson(*read), json);
  EXPECT_EQ(read->sizeFeature, "PageSize");
  ASSERT_EQ(read->features.size(), 4U);
  const FeatureCapability& list = read->features[1];
  EXPECT_EQ(list.kind, host::FeatureKind::kMultiSelect);
  EXPECT_EQ(
      list.group + " " + list.key + " " + list.ticketName + " " + list.syntax + " " + list.value,
      "Section.AnySetup media media keyword A4");
  EXPECT_EQ(sizesOf(list),
            "A4|||21000x29700|423,423,423,423\n"
            "A5|a5|iso_a5_148x210mm|14800x21000|423,423,423,423\n"
            "Letter|||21590x27940|423,423,423,423\n");
  EXPECT_EQ(read->features[0].floatMin, 0.1F);
  EXPECT_EQ(read->features[0].floatMax, 2.5F);
  EXPECT_EQ(read->features[0].intMin, std::nullopt);
  EXPECT_EQ(read->features[3].intMin, -2147483647 - 1);
  EXPECT_EQ(read->features[3].intMax, 2147483647);
  EXPECT_TRUE(read->features[3].isHardware);
  EXPECT_FALSE(read->features[3].isEncrypted);
}

TEST(CapabilitiesJsonTest, Json_BytesThatAreNotUtf8_ComeBack) {
  const auto read = capabilitiesFromJson(toJson(wholeCapabilities()));
  ASSERT_TRUE(read);
  const FeatureCapability& text = read->features[2];
  EXPECT_EQ(text.name, "P\xFFn\\x41 \xC3\xA4");
  EXPECT_EQ(text.allowedCharacters, "01\\\"\n");
  EXPECT_EQ(text.maxTextLength, 4);
  EXPECT_TRUE(text.isEncrypted);
  EXPECT_EQ(text.enabler.name + "=" + text.enabler.value, "Hold=Private");
}

TEST(CapabilitiesJsonTest, Json_RulesPresetsAndTexts_ComeBack) {
  const auto read = capabilitiesFromJson(toJson(wholeCapabilities()));
  ASSERT_TRUE(read);
  ASSERT_EQ(read->presets.size(), 2U);
  EXPECT_EQ(read->presets[0].name + ": " + textOf(read->presets[0].settings),
            "draft: Gamma=2 PageSize=A5");
  ASSERT_EQ(read->rules.size(), 1U);
  ASSERT_EQ(read->rules[0].conditions.size(), 2U);
  EXPECT_EQ(read->rules[0].conditions[0].choices, (std::vector<std::string>{"A4", "A5"}));
  EXPECT_EQ(read->rules[0].conditions[1].kind, host::Condition::Kind::kBelow);
  EXPECT_EQ(read->rules[0].conditions[1].number, -1.5);
  ASSERT_EQ(read->languages.size(), 2U);
  EXPECT_EQ(read->languages[1].texts.at("PageSize.A4"), "\xE7\xB4\x99");
}

TEST(CapabilitiesJsonTest, FromJson_OtherTexts_AreRefused) {
  for (const char* text :
       {"",
        "{",
        "5",
        "null",
        "[]",
        "\"x\"",
        R"({"features": 5})",
        R"({"features": [5]})",
        R"({"features": {"a": 1}})",
        R"({"features": [{"name": "A"}]})",
        R"({"features": [{"name": "", "kind": "IntEntry"}]})",
        R"({"features": [{"name": 1, "kind": "IntEntry"}]})",
        R"({"features": [{"name": "A", "kind": "UIOnly"}]})",
        R"({"features": [{"name": "A", "kind": "IntEntry", "intMin": 2147483648}]})",
        R"({"features": [{"name": "A", "kind": "IntEntry", "intMin": 18446744073709551615}]})",
        R"({"features": [{"name": "A", "kind": "IntEntry", "intMin": 1.5}]})",
        R"({"features": [{"name": "A", "kind": "FloatEntry", "floatMin": "1"}]})",
        R"({"features": [{"name": "A", "kind": "IntEntry", "hardware": 1}]})",
        R"({"features": [{"name": "A", "kind": "MultiSelect", "choices": [{"key": "a"}]}]})",
        R"({"features": [{"name": "A", "kind": "MultiSelect",
            "choices": [{"name": "a", "size": [1, 2, 3]}]}]})",
        R"({"rules": [{"id": "x", "conditions": [{"feature": "A", "kind": 4, "number": 0}]}]})",
        R"({"rules": [{"id": "x", "conditions": [{"feature": "A", "kind": -1, "number": 0}]}]})",
        R"({"presets": [{"settings": []}]})",
        R"({"presets": [{"name": "x", "settings": [1]}]})",
        R"({"languages": [{"language": "de"}]})"}) {
    const auto read = capabilitiesFromJson(text);
    ASSERT_FALSE(read) << text;
    EXPECT_EQ(read.error().text, "these are not the capabilities of a description") << text;
    EXPECT_EQ(read.error().kind, host::Problem::Kind::kMalformed);
  }
}

TEST(CapabilitiesJsonTest, FromJson_WhatIsMissing_IsEmpty) {
  const auto read = capabilitiesFromJson("{}");
  ASSERT_TRUE(read);
  EXPECT_TRUE(read->features.empty());
}

}  // namespace
}  // namespace driver_feature::ipp
