#include "programs/driver_feature/shell/history.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace driver_feature::cli {

namespace {

using Lines = std::vector<std::string>;

class HistoryTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string folder =
        (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    folder_ = folder;
    file_ = folder + "/history";
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::string content() const {
    std::ifstream input(file_);
    return {std::istreambuf_iterator<char>(input), {}};
  }

  std::string folder_;
  std::string file_;
};

TEST_F(HistoryTest, Read_LongFile_GivesItsLastLines) {
  EXPECT_EQ(readHistory(file_, 2), Lines{});
  std::ofstream(file_) << "one\ntwo\nthree\n";
  EXPECT_EQ(readHistory(file_, 2), (Lines{"two", "three"}));
  EXPECT_EQ(readHistory(file_, 3), (Lines{"one", "two", "three"}));
}

TEST_F(HistoryTest, Append_Lines_ComeAfterWhatOthersHaveWritten) {
  std::ofstream(file_) << "of another shell\n";
  appendHistory(file_, {"one", "two"}, 3);
  EXPECT_EQ(content(), "of another shell\none\ntwo\n");
  appendHistory(file_, {}, 3);
  EXPECT_EQ(content(), "of another shell\none\ntwo\n");
}

TEST_F(HistoryTest, Append_TooManyLines_DropsTheFirst) {
  std::ofstream(file_) << "one\ntwo\n";
  std::filesystem::permissions(
      file_, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  appendHistory(file_, {"three", "four"}, 3);
  EXPECT_EQ(content(), "two\nthree\nfour\n");
  EXPECT_EQ(std::filesystem::status(file_).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(HistoryTest, Append_NoSuchFolder_DoesNothing) {
  appendHistory(folder_ + "/missing/history", {"one"}, 3);
  EXPECT_FALSE(std::filesystem::exists(folder_ + "/missing"));
}

}  // namespace

}  // namespace driver_feature::cli
