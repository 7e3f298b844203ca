#include "host/ppd/queue/ppd_names.h"

#include <cups/ppd.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

namespace driver_feature::ppd {
namespace {

class PpdNamesTest : public testing::Test {
 protected:
  ~PpdNamesTest() override { std::remove(file_.c_str()); }

  // Whether libcups reads an option of the name with its choices and, unless it
  // is a list, its custom value.
  bool isRead(const std::string& name, bool isList) const {
    std::ofstream(file_) << "*PPD-Adobe: \"4.3\"\n*OpenUI *" << name
                         << ": PickOne\n*OrderDependency: 10 AnySetup *" << name << "\n*Default"
                         << name << ": 1\n*" << name << " 1: \"\"\n*CloseUI: *" << name << "\n"
                         << (isList ? ""
                                    : "*Custom" + name + " True: \"\"\n*ParamCustom" + name +
                                          " Value: 1 int 0 9\n");
    const std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd(ppdOpenFile(file_.c_str()),
                                                                 &ppdClose);
    if (!ppd) return false;
    ppdMarkDefaults(ppd.get());
    const ppd_choice_t* choice = ppdFindMarkedChoice(ppd.get(), name.c_str());
    const ppd_coption_t* custom = ppdFindCustomOption(ppd.get(), name.c_str());
    return choice != nullptr && choice->option->num_choices == (isList ? 1 : 2) &&
           (isList || (custom != nullptr && cupsArrayCount(custom->params) == 1));
  }

  // Whether libcups finds a choice by its name.
  bool isReadAsChoice(const std::string& name) const {
    std::ofstream(file_) << "*PPD-Adobe: \"4.3\"\n*OpenUI *Tray: PickOne\n*Tray " << name
                         << ": \"code\"\n*CloseUI: *Tray\n";
    const std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd(ppdOpenFile(file_.c_str()),
                                                                 &ppdClose);
    if (!ppd) return false;
    const ppd_choice_t* choice = ppdFindChoice(ppdFindOption(ppd.get(), "Tray"), name.c_str());
    return choice != nullptr && choice->choice == name;
  }

  std::string file_ = std::filesystem::temp_directory_path() /
                      ("driver-feature-names-" + std::to_string(::getpid()));
};

TEST_F(PpdNamesTest, OptionNames_AreThoseThatLibcupsReads) {
  const std::string longestOfList(33, 'a');
  const std::string longestOfNumber(29, 'a');
  for (const std::string& name : {std::string("Duplex"), std::string("PageRegions"),
                                  std::string("cupsPrintQuality"), longestOfNumber}) {
    EXPECT_TRUE(isOptionName(name, true)) << name;
    EXPECT_TRUE(isOptionName(name, false)) << name;
    EXPECT_TRUE(isRead(name, true)) << name;
    EXPECT_TRUE(isRead(name, false)) << name;
  }
  EXPECT_TRUE(isOptionName(longestOfList, true));
  EXPECT_TRUE(isRead(longestOfList, true));
  EXPECT_FALSE(isOptionName(longestOfNumber + "a", false));
  EXPECT_FALSE(isRead(longestOfNumber + "a", false));
  EXPECT_FALSE(isOptionName(longestOfList + "a", true));
  EXPECT_FALSE(isRead(longestOfList + "a", true));
  for (const std::string name :
       {"JCLBegin", "JCLEnd", "JCLToPSInterpreter", "Product", "Font", "End", "ImageableArea",
        "PaperDimension", "OpenUI", "UIConstraints", "ParamCustomX", "cupsFilter"}) {
    EXPECT_FALSE(isOptionName(name, true)) << name;
    EXPECT_FALSE(isRead(name, true)) << name;
  }
  for (const std::string name : {"", "a b", "a.b", "a/b", "a:b", "a\"b", "*a", "CustomX", "\xE4",
                                 "DriverFeatureLibrary", "psversion", "1284DeviceId"}) {
    EXPECT_FALSE(isOptionName(name, true)) << name;
  }
}

TEST_F(PpdNamesTest, ChoicesThatLibcupsReads_AreNames) {
  for (const std::string name : {"A4.Fullbleed", "1.5", "a,b", "Custom", "Customs.1"}) {
    EXPECT_TRUE(isChoiceName(name)) << name;
  }
  for (const std::string name : {"A4.Fullbleed", "1.5", "a,b", "Customs.1"}) {
    EXPECT_TRUE(isReadAsChoice(name)) << name;
  }
  for (const std::string name : {"", "a b", "a/b", "a:b", "a\"b", "*a", "\xE4"}) {
    EXPECT_FALSE(isChoiceName(name)) << name;
  }
  // These are values of the user's own.
  for (const std::string name : {"{a", "Custom.1", "custom.1"}) {
    EXPECT_FALSE(isChoiceName(name)) << name;
    EXPECT_FALSE(isReadAsChoice(name)) << name;
  }
}

TEST_F(PpdNamesTest, ChoiceNames_HaveFortyCharacters) {
  EXPECT_TRUE(isChoiceName(std::string(40, 'a')));
  EXPECT_TRUE(isChoiceName("JCLBegin"));
  EXPECT_FALSE(isChoiceName(std::string(41, 'a')));
}

}  // namespace
}  // namespace driver_feature::ppd
