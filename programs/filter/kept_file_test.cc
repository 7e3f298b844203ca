#include "programs/filter/kept_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>

namespace driver_feature::filter {
namespace {

class KeptFileTest : public testing::Test {
 protected:
  KeptFileTest() {
    std::filesystem::create_directory(folder_);
    ::setenv("TMPDIR", folder_.c_str(), 1);
  }
  ~KeptFileTest() override {
    ::unsetenv("TMPDIR");
    std::filesystem::remove_all(folder_);
  }

  std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                  ("driver-feature-kept-" + std::to_string(::getpid()));
};

TEST_F(KeptFileTest, Folder_IsTheOneThatIsSaid) {
  EXPECT_EQ(temporaryFolder(), folder_.string());
  ::setenv("TMPDIR", "", 1);
  EXPECT_EQ(temporaryFolder(), "/tmp");
  ::unsetenv("TMPDIR");
  EXPECT_EQ(temporaryFolder(), "/tmp");
}

TEST_F(KeptFileTest, NamedFile_IsForThisUserOnly) {
  std::string name;
  const int descriptor = makeNamedFile(name);
  ASSERT_NE(descriptor, -1);
  struct stat status {};
  EXPECT_EQ(::stat(name.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  ::close(descriptor);
  ::setenv("TMPDIR", (folder_ / "none").c_str(), 1);
  EXPECT_EQ(makeNamedFile(name), -1);
  EXPECT_EQ(name, "");
  EXPECT_EQ(makeNamelessFile(), -1);
}

TEST_F(KeptFileTest, NamelessFile_LeavesNothing) {
  const int descriptor = makeNamelessFile();
  EXPECT_EQ(::write(descriptor, "a", 1), 1);
  EXPECT_TRUE(std::filesystem::is_empty(folder_));
  ::close(descriptor);
}

TEST_F(KeptFileTest, Room_HasAnEnd) {
  EXPECT_TRUE(hasRoomFor(0));
  EXPECT_FALSE(hasRoomFor(std::numeric_limits<std::uint64_t>::max()));
}

}  // namespace
}  // namespace driver_feature::filter
