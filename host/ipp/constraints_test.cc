#include <gtest/gtest.h>

#include "support/ipp_support.h"

namespace driver_feature::ipp {
namespace {

using Kind = host::Condition::Kind;

Translation printerWith(std::vector<RuleCapability> rules) {
  FeatureCapability unit = listOf("Unit", {"Missing", "Installed"});
  unit.isHardware = true;
  Capabilities all = capabilitiesWith(
      {wholeNumber("Copies", 1, 99, "1"), listOf("Duplex", {"None", "DuplexTumble"}),
       decimalNumber("Gamma", 0, 3, "1"), listOf("InputSlot", {"Tray1", "Tray2"}),
       listOf("MediaType", {"Plain", "Labels", "Film"}), pageSizes(),
       listOf("Punch", {"None", "2Hole"}), listOf("Staple", {"None", "UpperLeft"}), unit,
       wholeNumber("Wait", 0, 100, "5")});
  all.rules = std::move(rules);
  return Translation(std::move(all));
}

TEST(ConstraintsTest, Rule_OfLists_IsACombinationOfValues) {
  const Translation printer = printerWith(
      {{"No A5",
        {{"Duplex", Kind::kIsNot, {"None"}, 0}, {"PageSize", Kind::kIs, {"A5", "Letter"}, 0}}}});
  EXPECT_EQ(advertised(printer, "job-constraints-supported"),
            "{resolver-name=no-a5,rule sides=two-sided-short-edge "
            "media=iso_a5_148x210mm,na_letter_8.5x11in}");
  EXPECT_EQ(advertised(printer, "job-resolvers-supported"),
            "{resolver-name=no-a5 media=iso_a4_210x297mm sides=one-sided}");
}

TEST(ConstraintsTest, Rule_OfMembersOfMediaCol_HasTheirCombinations) {
  const Translation printer = printerWith(
      {{"heavy",
        {{"MediaType", Kind::kIsNot, {"Plain"}, 0}, {"InputSlot", Kind::kIs, {"Tray2"}, 0}}}});
  EXPECT_EQ(advertised(printer, "job-constraints-supported"),
            "{resolver-name=heavy,rule media-col={media-type=labels media-source=tray-2},"
            "{media-type=transparency media-source=tray-2}},"
            "{resolver-name=heavy-2,rule media-type=labels,transparency media-source=tray-2}");
  EXPECT_EQ(advertised(printer, "job-resolvers-supported"),
            "{resolver-name=heavy media-col={media-source=tray-1 media-type=stationery}},"
            "{resolver-name=heavy-2 media-source=tray-1 media-type=stationery}");
  EXPECT_EQ(advertised(printer, "resolver-name-default"), "rule");
}

TEST(ConstraintsTest, Rule_OfNumbers_IsARange) {
  const Translation printer = printerWith({{"many",
                                            {{"Copies", Kind::kAbove, {}, 10},
                                             {"Wait", Kind::kBelow, {}, 2.5},
                                             {"Staple", Kind::kIs, {"UpperLeft"}, 0}}}});
  EXPECT_EQ(advertised(printer, "job-constraints-supported"),
            "{resolver-name=many,rule copies=11-99 x-wait=0-2 finishings=staple-top-left}");
  EXPECT_EQ(advertised(printer, "job-resolvers-supported"),
            "{resolver-name=many finishings=none x-wait=3}");
}

// Clients may use either of the attributes.
TEST(ConstraintsTest, Rule_OfAFeatureWithTwoAttributes_IsSaidOfBoth) {
  Capabilities all = capabilitiesWith({listOf("Duplex", {"None", "DuplexTumble", "Booklet"}),
                                       listOf("OutputBin", {"Upper", "Lower"})});
  all.rules = {
      {"bin", {{"OutputBin", Kind::kIs, {"Lower"}, 0}, {"Duplex", Kind::kIsNot, {"None"}, 0}}}};
  EXPECT_EQ(advertised(Translation(std::move(all)), "job-constraints-supported"),
            "{resolver-name=bin,rule output-bin=bottom sides=two-sided-short-edge},"
            "{resolver-name=bin-2,rule output-bin=bottom x-duplex=duplex-tumble,booklet}");
}

TEST(ConstraintsTest, Resolver_OfNumbers_IsTheNearestThatIsAllowed) {
  const Translation printer =
      printerWith({{"many", {{"Copies", Kind::kAbove, {}, 10}, {"Wait", Kind::kBelow, {}, 3}}}});
  EXPECT_EQ(advertised(printer, "job-resolvers-supported"),
            "{resolver-name=many x-wait=3 copies=10}");
}

TEST(ConstraintsTest, Rule_OfHardware_IsThereOnlyWhileThatIs) {
  const Translation printer = printerWith(
      {{"needs-unit",
        {{"Unit", Kind::kIs, {"Missing"}, 0}, {"Duplex", Kind::kIs, {"DuplexTumble"}, 0}}},
       {"has-unit",
        {{"Unit", Kind::kIs, {"Installed"}, 0}, {"Duplex", Kind::kIs, {"DuplexTumble"}, 0}}}});
  EXPECT_EQ(advertised(printer, "job-constraints-supported"),
            "{resolver-name=needs-unit,rule sides=two-sided-short-edge}");
  EXPECT_EQ(advertised(printer, "job-resolvers-supported"),
            "{resolver-name=needs-unit sides=one-sided}");
}

TEST(ConstraintsTest, Rule_ThatAttributesCannotSay_IsLeftOut) {
  const Translation printer =
      printerWith({{"decimal", {{"Gamma", Kind::kAbove, {}, 2}}},
                   {"unknown", {{"Nothing", Kind::kIs, {"x"}, 0}}},
                   {"two-finishings",
                    {{"Staple", Kind::kIs, {"UpperLeft"}, 0}, {"Punch", Kind::kIs, {"2Hole"}, 0}}},
                   {"never", {{"Copies", Kind::kAbove, {}, 99}}}});
  EXPECT_EQ(advertised(printer, "job-constraints-supported"), "(none)");
  EXPECT_EQ(advertised(printer, "job-resolvers-supported"), "(none)");
  EXPECT_EQ(advertised(printer, "resolver-name-default"), "(none)");
}

// Three rules more than there is room for.
TEST(ConstraintsTest, Rules_MoreThanClientsCanBeTold_TheLastOnesAreLeftOut) {
  std::vector<RuleCapability> rules;
  for (int number = 1; number <= 10003; ++number) {
    rules.push_back({"r" + std::to_string(number),
                     {{"Duplex", Kind::kIsNot, {"None"}, 0}, {"PageSize", Kind::kIs, {"A5"}, 0}}});
  }
  const Translation translation = printerWith(std::move(rules));
  const IppPointer printer(ippNew());
  EXPECT_EQ(translation.addPrinterAttributes(printer.get()), 3U);
  ipp_attribute_t* constraints =
      ippFindAttribute(printer.get(), "job-constraints-supported", IPP_TAG_BEGIN_COLLECTION);
  ASSERT_EQ(ippGetCount(constraints), 10000);
  ipp_attribute_t* last =
      ippFindAttribute(ippGetCollection(constraints, 9999), "resolver-name", IPP_TAG_NAME);
  EXPECT_STREQ(ippGetString(last, 0, nullptr), "r10000");
}

}  // namespace
}  // namespace driver_feature::ipp
