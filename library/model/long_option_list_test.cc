// Lists of so many options that they are found through an index: what is found is
// what a search one by one would find.

#include <deque>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

constexpr int kOptions = 100;

std::string nameOf(int number) {
  return "option " + std::to_string(number);
}

// An option of a host's own class, which says another name than it holds.
class HostOption final : public DriverFeatureOption {
 public:
  using DriverFeatureOption::DriverFeatureOption;
  using DriverFeatureOption::getOptionProperty;
  bool getOptionProperty(const std::string& /*name*/, std::string& value) override {
    value = "of the host";
    return true;
  }
};

class LongOptionListTest : public ::testing::Test {
 protected:
  LongOptionListTest() {
    for (int i = 0; i < kOptions; ++i) model_.option(list_, nameOf(i));
  }

  int find(const std::string& name) { return list_.fetchOptionIndexByName(name); }

  RecordingHost host_;
  ModelBuilder model_;
  DriverFeature& list_ = model_.feature("list", 1);
};

TEST_F(LongOptionListTest, Each_IsFoundByName) {
  for (int i = 0; i < kOptions; ++i) {
    EXPECT_EQ(find(nameOf(i)), i);
    EXPECT_EQ(list_.fetchOptionByName(nameOf(i)), list_.fetchOptionByIndex(i));
    EXPECT_EQ(list_.fetchOptionByName(std::string("Name"), nameOf(i)), list_.fetchOptionByIndex(i));
  }
  EXPECT_EQ(find("option"), -1);
}

TEST_F(LongOptionListTest, OptionRenamed_IsFoundByItsNewNameOnly) {
  EXPECT_EQ(find(nameOf(70)), 70);
  list_.fetchOptionByIndex(70)->setOptionProperty(std::string("Name"), std::string("renamed"));
  EXPECT_EQ(find("renamed"), 70);
  EXPECT_EQ(find(nameOf(70)), -1);
}

TEST_F(LongOptionListTest, EarlierOptionGetsTheSameName_IsTheOneThatIsFound) {
  EXPECT_EQ(find(nameOf(70)), 70);
  list_.fetchOptionByIndex(3)->setOptionProperty(std::string("Name"), nameOf(70));
  EXPECT_EQ(find(nameOf(70)), 3);
}

TEST_F(LongOptionListTest, AnotherPropertyChanges_OptionIsFoundByItsNewTextOnly) {
  const auto findCommand = [this](const std::string& command) {
    return list_.fetchOptionIndexByName("PJLCommand", command);
  };
  list_.fetchOptionByIndex(70)->setOptionProperty(std::string("PJLCommand"), std::string("before"));
  EXPECT_EQ(findCommand("before"), 70);
  EXPECT_EQ(findCommand("before"), 70);
  list_.fetchOptionByIndex(70)->setOptionProperty(std::string("PJLCommand"), std::string("after"));
  EXPECT_EQ(findCommand("after"), 70);
  EXPECT_EQ(findCommand("before"), -1);
}

TEST_F(LongOptionListTest, AddedAfterASearch_IsFound) {
  EXPECT_EQ(find("late"), -1);
  model_.option(list_, "late");
  EXPECT_EQ(find("late"), kOptions);
}

TEST_F(LongOptionListTest, OptionOfAHostAmongThem_IsAskedForItsName) {
  EXPECT_EQ(find(nameOf(70)), 70);
  HostOption option(std::string("what it holds"));
  list_.addOptionToFeature(&option);
  model_.option(list_, "after it");
  EXPECT_EQ(find("of the host"), kOptions);
  EXPECT_EQ(find("what it holds"), -1);
  EXPECT_EQ(find("after it"), kOptions + 1);
  EXPECT_EQ(find(nameOf(70)), 70);
}

TEST_F(LongOptionListTest, OptionsOfAHostAlone_AreAskedInEverySearch) {
  DriverFeature& hosts = model_.feature("list of the host", 1);
  std::deque<HostOption> options;
  for (int i = 0; i < kOptions; ++i) {
    hosts.addOptionToFeature(&options.emplace_back(std::string("what it holds")));
  }
  for (int i = 0; i < 2 * kOptions; ++i) EXPECT_EQ(hosts.fetchOptionIndexByName("of the host"), 0);
}

TEST_F(LongOptionListTest, AnotherProperty_TheFirstOptionThatHoldsItIsFound) {
  for (const int i : {40, 50}) {
    list_.fetchOptionByIndex(i)->setOptionProperty(std::string("SNMPValue"), std::string("5"));
  }
  EXPECT_EQ(list_.fetchOptionIndexByName(std::string("SNMPValue"), std::string("5")), 40);
  EXPECT_EQ(list_.fetchOptionIndexByName(std::string("SNMPValue"), std::string("")), 0);
}

}  // namespace
}  // namespace driver_feature::testing
