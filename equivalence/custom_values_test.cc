#include "equivalence/custom_values.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

namespace driver_feature::equivalence {

namespace {

ppd_cparam_t parameterOf(ppd_cptype_t type) {
  ppd_cparam_t parameter{};
  parameter.type = type;
  return parameter;
}

TEST(ShortestText, Float_ReadsBack) {
  EXPECT_EQ(shortestText(0), "0");
  EXPECT_EQ(shortestText(595.25F), "595.25");
  EXPECT_EQ(shortestText(841.89F), "841.89");
  EXPECT_EQ(shortestText(-0.1F), "-0.1");
}

TEST(CustomValue, StoredValue_IsReadBack) {
  ppd_cparam_t number = parameterOf(PPD_CUSTOM_INT);
  storeCustomValue(number, "-36");
  EXPECT_EQ(number.current.custom_int, -36);
  EXPECT_EQ(customValueOf(number), "-36");
  ppd_cparam_t points = parameterOf(PPD_CUSTOM_POINTS);
  storeCustomValue(points, "12.75");
  EXPECT_EQ(points.current.custom_points, 12.75F);
  EXPECT_EQ(customValueOf(points), "12.75");
  ppd_cparam_t text = parameterOf(PPD_CUSTOM_STRING);
  EXPECT_EQ(customValueOf(text), "");
  storeCustomValue(text, "one");
  storeCustomValue(text, "a (b)");
  EXPECT_STREQ(text.current.custom_string, "a (b)");
  EXPECT_EQ(customValueOf(text), "a (b)");
  std::free(text.current.custom_string);
}

TEST(RandomCustomValue, Numbers_ReachBothLimitsAndNoFurther) {
  ppd_cparam_t number = parameterOf(PPD_CUSTOM_INT);
  number.minimum.custom_int = -1;
  number.maximum.custom_int = 1;
  ppd_cparam_t real = parameterOf(PPD_CUSTOM_REAL);
  real.minimum.custom_real = 0.5F;
  real.maximum.custom_real = 1.1F;
  Random random(1);
  std::set<std::string> numbers;
  std::set<std::string> reals;
  for (int i = 0; i < 200; ++i) {
    numbers.insert(randomCustomValue(number, random));
    reals.insert(randomCustomValue(real, random));
  }
  EXPECT_EQ(numbers, (std::set<std::string>{"-1", "0", "1"}));
  EXPECT_EQ(reals, (std::set<std::string>{"0.5", "0.75", "1"}));
}

TEST(RandomCustomValue, NoRoomBetweenTheLimits_IsTheLeast) {
  ppd_cparam_t number = parameterOf(PPD_CUSTOM_INT);
  number.minimum.custom_int = 7;
  number.maximum.custom_int = 3;
  ppd_cparam_t real = parameterOf(PPD_CUSTOM_REAL);
  real.minimum.custom_real = 0.3F;
  real.maximum.custom_real = 0.4F;
  Random random(1);
  EXPECT_EQ(randomCustomValue(number, random), "7");
  EXPECT_EQ(randomCustomValue(real, random), "0.3");
}

TEST(RandomCustomValue, Texts_KeepTheirLength) {
  ppd_cparam_t text = parameterOf(PPD_CUSTOM_PASSCODE);
  text.minimum.custom_passcode = 2;
  text.maximum.custom_passcode = 4;
  Random random(1);
  std::set<std::size_t> lengths;
  for (int i = 0; i < 200; ++i) {
    const std::string value = randomCustomValue(text, random);
    lengths.insert(value.size());
    EXPECT_EQ(value.find_first_not_of("0123456789"), std::string::npos) << value;
  }
  EXPECT_EQ(lengths, (std::set<std::size_t>{2, 3, 4}));
}

}  // namespace

}  // namespace driver_feature::equivalence
