#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <locale>
#include <string>

#include "AttributeMap.h"
#include "platform/recorded_log.h"

namespace {

double readDouble(const std::string& text, double fallback) {
  AttributeMap map;
  map["Name"] = text;
  double value = 0;
  EXPECT_TRUE(map.loadMapVariable("Name", value, &fallback));
  return value;
}

void expectPointIsRead() {
  driver_feature::testing::RecordedLog log;
  EXPECT_EQ(readDouble("2.5", -1), 2.5);
  EXPECT_EQ(readDouble("2,5", -1), -1.0);
  EXPECT_EQ(readDouble("1.234,5", -1), -1.0);
}

class CommaPunctuation final : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(AttributeMapLocaleTest, LoadDouble_StreamsUseAComma_StillReadsThePoint) {
  const std::locale before = std::locale::global(
      std::locale(std::locale::classic(), std::make_unique<CommaPunctuation>().release()));
  expectPointIsRead();
  std::locale::global(before);
}

// Sets the C locale to one with a decimal comma: an installed one, or one that
// is compiled for the test. False when there is neither.
class CommaLocale {
 public:
  CommaLocale() {
    folder_ = ::testing::TempDir() + "locales." + std::to_string(getpid());
    if (setOne()) return;
    std::filesystem::create_directories(folder_);
    const std::string command =
        "localedef -i de_DE -f UTF-8 '" + folder_ + "/de_DE.UTF-8' >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0) return;
    setenv("LOCPATH", folder_.c_str(), 1);
    setOne();
  }
  ~CommaLocale() {
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

  bool isSet() const { return *std::localeconv()->decimal_point == ','; }

 private:
  bool setOne() const {
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8"}) {
      if (std::setlocale(LC_ALL, name) != nullptr) return isSet();
    }
    return false;
  }

  std::string folder_;
};

TEST(AttributeMapLocaleTest, LoadDouble_ProcessUsesAComma_StillReadsThePoint) {
  const CommaLocale locale;
  if (!locale.isSet()) GTEST_SKIP() << "no locale with a decimal comma can be had here";
  char text[16];
  std::snprintf(text, sizeof text, "%.1f", 2.5);
  ASSERT_STREQ(text, "2,5");
  expectPointIsRead();
}

}  // namespace
