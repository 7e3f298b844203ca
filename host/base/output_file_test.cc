#include "host/base/output_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "support/problem_text.h"

namespace driver_feature::host {

namespace {

namespace fs = std::filesystem;

class OutputFileTest : public testing::Test {
 protected:
  OutputFileTest() {
    std::string path = (fs::temp_directory_path() / "driver-feature-test-XXXXXX").string();
    folder_ = mkdtemp(path.data());
  }
  ~OutputFileTest() override { fs::remove_all(folder_); }

  std::string path(const std::string& name) const { return folder_ / name; }

  void put(const std::string& name, const std::string& content) const {
    std::ofstream(path(name), std::ios::binary) << content;
  }

  std::string content(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  std::set<std::string> names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) names.insert(entry.path().filename());
    return names;
  }

  mode_t modeOf(const std::string& name) const {
    struct stat status {};
    EXPECT_EQ(::stat(path(name).c_str(), &status), 0);
    return status.st_mode & 07777U;
  }

  fs::path folder_;
};

TEST_F(OutputFileTest, WriteToFile_NewFile_HoldsEveryByteWithTheUsualMode) {
  const mode_t mask = ::umask(027);
  const std::string bytes("\0\r\n\xFF\x1A", 5);
  EXPECT_EQ(problemText(writeToFile(path("new"), bytes)), "");
  ::umask(mask);
  EXPECT_EQ(content("new"), bytes);
  EXPECT_EQ(modeOf("new"), 0640U);
  EXPECT_EQ(names(), std::set<std::string>{"new"});
}

TEST_F(OutputFileTest, WriteToFile_NoBytes_MakesAnEmptyFile) {
  put("old", "old");
  EXPECT_EQ(problemText(writeToFile(path("old"), "")), "");
  EXPECT_EQ(content("old"), "");
}

TEST_F(OutputFileTest, WriteToFile_LargeOutput_IsWhole) {
  const std::string bytes(5'000'000, 'x');
  EXPECT_EQ(problemText(writeToFile(path("large"), bytes)), "");
  EXPECT_EQ(content("large"), bytes);
}

TEST_F(OutputFileTest, WriteToFile_ExistingFile_IsReplacedAndKeepsItsMode) {
  put("old", "a much longer text than the new one");
  fs::permissions(path("old"), static_cast<fs::perms>(0604));
  const fs::path link = path("hard link");
  fs::create_hard_link(path("old"), link);
  EXPECT_EQ(problemText(writeToFile(path("old"), "new")), "");
  EXPECT_EQ(content("old"), "new");
  EXPECT_EQ(modeOf("old"), 0604U);
  // The old bytes were never overwritten.
  EXPECT_EQ(content("hard link"), "a much longer text than the new one");
}

TEST_F(OutputFileTest, WriteToFile_SymbolicLink_IsFollowedAndKept) {
  put("target", "old");
  fs::create_symlink("target", path("link"));
  fs::create_symlink("link", path("second"));
  EXPECT_EQ(problemText(writeToFile(path("second"), "new")), "");
  EXPECT_EQ(content("target"), "new");
  EXPECT_TRUE(fs::is_symlink(path("link")));
  EXPECT_TRUE(fs::is_symlink(path("second")));
}

TEST_F(OutputFileTest, WriteToFile_LinkToNothing_MakesTheTarget) {
  fs::create_symlink("target", path("link"));
  EXPECT_EQ(problemText(writeToFile(path("link"), "new")), "");
  EXPECT_EQ(content("target"), "new");
  EXPECT_TRUE(fs::is_symlink(path("link")));
}

TEST_F(OutputFileTest, WriteToFile_FolderIsMissing_SaysSo) {
  EXPECT_EQ(problemText(writeToFile(path("no/file"), "new")),
            path("no/file") +
                ": a temporary file beside it cannot be created: No such file or directory");
  EXPECT_TRUE(names().empty());
}

TEST_F(OutputFileTest, WriteToFile_Folder_SaysSo) {
  fs::create_directory(path("folder"));
  EXPECT_EQ(problemText(writeToFile(path("folder"), "new")),
            path("folder") + ": cannot be opened: Is a directory");
  EXPECT_EQ(names(), std::set<std::string>{"folder"});
}

// Nothing is protected from the superuser, so the test runs as another user.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (user_ == 0) {
      EXPECT_EQ(::seteuid(65534), 0);
    }
  }
  ~OrdinaryUser() { EXPECT_EQ(::seteuid(user_), 0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  uid_t user_ = ::geteuid();
};

TEST_F(OutputFileTest, WriteToFile_ProtectedFile_IsUntouched) {
  put("old", "old");
  fs::permissions(path("old"), static_cast<fs::perms>(0444));
  // The folder would allow the file to be replaced.
  fs::permissions(folder_, fs::perms::all);
  {
    const OrdinaryUser user;
    EXPECT_EQ(problemText(writeToFile(path("old"), "new")),
              path("old") + ": cannot be opened: Permission denied");
  }
  EXPECT_EQ(content("old"), "old");
}

TEST_F(OutputFileTest, WriteToFile_ProtectedFolder_SaysSo) {
  put("old", "old");
  fs::permissions(path("old"), static_cast<fs::perms>(0666));
  fs::permissions(folder_, static_cast<fs::perms>(0555));
  {
    const OrdinaryUser user;
    EXPECT_EQ(problemText(writeToFile(path("old"), "new")),
              path("old") + ": a temporary file beside it cannot be created: Permission denied");
  }
  fs::permissions(folder_, fs::perms::owner_all);
  EXPECT_EQ(content("old"), "old");
}

TEST_F(OutputFileTest, WriteToFile_FileOfAnotherUser_KeepsItsOwnerOrIsMineWithoutSetUser) {
  if (::geteuid() != 0) GTEST_SKIP() << "needs the superuser to give files away";
  put("old", "old");
  ASSERT_EQ(::chown(path("old").c_str(), 65533, 65533), 0);
  fs::permissions(path("old"), static_cast<fs::perms>(04666));
  fs::permissions(folder_, fs::perms::all);
  EXPECT_EQ(problemText(writeToFile(path("old"), "by root")), "");
  struct stat status {};
  ASSERT_EQ(::stat(path("old").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 65533U);
  EXPECT_EQ(modeOf("old"), 04666U);
  {
    const OrdinaryUser user;
    // Writing bytes would clear the set-user bit anyway.
    EXPECT_EQ(problemText(writeToFile(path("old"), "")), "");
  }
  ASSERT_EQ(::stat(path("old").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 65534U);
  EXPECT_EQ(modeOf("old"), 0666U);
}

TEST_F(OutputFileTest, WriteToFile_FullDevice_SaysSo) {
  EXPECT_EQ(problemText(writeToFile("/dev/full", "new")),
            "/dev/full: cannot be written: No space left on device");
}

TEST_F(OutputFileTest, WriteToFile_NamedPipe_IsWrittenAsItIs) {
  ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
  const int reader = ::open(path("pipe").c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_EQ(problemText(writeToFile(path("pipe"), "new")), "");
  char buffer[8] = {};
  EXPECT_EQ(::read(reader, buffer, sizeof buffer), 3);
  EXPECT_STREQ(buffer, "new");
  ::close(reader);
  EXPECT_TRUE(fs::is_fifo(path("pipe")));
}

TEST_F(OutputFileTest, WriteToFile_OpenFileOfTheProcess_IsAppendedTo) {
  put("old", "old,");
  const int descriptor = ::open(path("old").c_str(), O_WRONLY);
  EXPECT_EQ(problemText(writeToFile("/dev/fd/" + std::to_string(descriptor), "new")), "");
  ::close(descriptor);
  EXPECT_EQ(content("old"), "old,new");
  EXPECT_EQ(names(), std::set<std::string>{"old"});
}

}  // namespace

}  // namespace driver_feature::host
