#include "host/base/file_watch.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "support/problem_text.h"

namespace driver_feature::host {

namespace {

namespace fs = std::filesystem;

class FileWatchTest : public testing::Test {
 protected:
  FileWatchTest() {
    std::string path = (fs::temp_directory_path() / "driver-feature-test-XXXXXX").string();
    folder_ = mkdtemp(path.data());
  }
  ~FileWatchTest() override { fs::remove_all(folder_); }

  std::string path(const std::string& name) const { return folder_ / name; }

  void put(const std::string& name, const std::string& content = "text") const {
    std::ofstream(path(name), std::ios::binary) << content;
  }

  void watchFiles(const std::string& folder, const std::string& begin, const std::string& end) {
    EXPECT_EQ(problemText(watch_.addFiles({path(folder), begin, end})), "");
  }

  fs::path folder_;
  FileWatch watch_;
};

TEST_F(FileWatchTest, TakeChanges_FileIsWrittenReplacedOrRemoved_IsAChangeOnce) {
  put("a.xml");
  ASSERT_EQ(problemText(watch_.addFile(path("a.xml"))), "");
  EXPECT_FALSE(watch_.takeChanges());
  put("a.xml");
  EXPECT_TRUE(watch_.takeChanges());
  EXPECT_FALSE(watch_.takeChanges());
  put("new");
  EXPECT_FALSE(watch_.takeChanges());
  fs::rename(path("new"), path("a.xml"));
  EXPECT_TRUE(watch_.takeChanges());
  fs::rename(path("a.xml"), path("old"));
  EXPECT_TRUE(watch_.takeChanges());
  fs::rename(path("old"), path("a.xml"));
  EXPECT_TRUE(watch_.takeChanges());
  fs::remove(path("a.xml"));
  EXPECT_TRUE(watch_.takeChanges());
  fs::create_symlink("new", path("a.xml"));
  EXPECT_TRUE(watch_.takeChanges());
}

TEST_F(FileWatchTest, TakeChanges_WrittenThroughALink_IsAChange) {
  for (const char* name : {"first", "second"}) fs::create_directory(path(name));
  put("first/real.xml");
  fs::create_symlink("first/real.xml", path("a.xml"));
  ASSERT_EQ(problemText(watch_.addFile(path("a.xml"))), "");
  put("first/real.xml");
  EXPECT_TRUE(watch_.takeChanges());
  put("first/new");
  fs::rename(path("first/new"), path("first/real.xml"));
  EXPECT_TRUE(watch_.takeChanges());
  put("second/real.xml");
  EXPECT_FALSE(watch_.takeChanges());
  fs::create_symlink("second/real.xml", path("new"));
  fs::rename(path("new"), path("a.xml"));
  EXPECT_TRUE(watch_.takeChanges());
  put("second/real.xml");
  EXPECT_TRUE(watch_.takeChanges());
}

TEST_F(FileWatchTest, TakeChanges_OtherNames_AreNoChange) {
  ASSERT_EQ(problemText(watch_.addFile(path("a.xml"))), "");
  watchFiles(".", "a.", ".po");
  for (const char* name : {"a.xml~", "b.xml", "a", "a.po", "b.de.po", "a.de.po2"}) put(name);
  EXPECT_FALSE(watch_.takeChanges());
  put("a.de.po");
  EXPECT_TRUE(watch_.takeChanges());
}

TEST_F(FileWatchTest, TakeChanges_FileThatIsBeingWritten_IsAChangeWhenItIsComplete) {
  ASSERT_EQ(problemText(watch_.addFile(path("a.xml"))), "");
  {
    std::ofstream file(path("a.xml"));
    EXPECT_FALSE(watch_.takeChanges());
  }
  EXPECT_TRUE(watch_.takeChanges());
}

TEST_F(FileWatchTest, TakeChanges_FolderComesGoesAndComesAgain_WatchesItsFiles) {
  watchFiles("presets", "", ".settings");
  for (int i = 0; i < 2; ++i) {
    fs::create_directory(path("presets"));
    EXPECT_TRUE(watch_.takeChanges());
    put("presets/draft.txt");
    put("presets/.settings");
    EXPECT_FALSE(watch_.takeChanges());
    put("presets/draft.settings");
    EXPECT_TRUE(watch_.takeChanges());
    fs::remove_all(path("presets"));
    EXPECT_TRUE(watch_.takeChanges());
  }
  fs::create_directory(path("other"));
  put("other/draft.settings");
  EXPECT_FALSE(watch_.takeChanges());
  fs::rename(path("other"), path("presets"));
  EXPECT_TRUE(watch_.takeChanges());
  put("presets/small.settings");
  EXPECT_TRUE(watch_.takeChanges());
}

TEST_F(FileWatchTest, TakeChanges_TwoSpellingsOfAFolder_WatchBoth) {
  ASSERT_EQ(problemText(watch_.addFile(path("a.xml"))), "");
  ASSERT_EQ(problemText(watch_.addFile(path("./b.xml"))), "");
  put("a.xml");
  EXPECT_TRUE(watch_.takeChanges());
  put("b.xml");
  EXPECT_TRUE(watch_.takeChanges());
}

TEST_F(FileWatchTest, TakeChanges_MoreThanTheSystemKeeps_IsAChange) {
  ASSERT_EQ(problemText(watch_.addFile(path("a.xml"))), "");
  std::ifstream limit("/proc/sys/fs/inotify/max_queued_events");
  int count = 0;
  limit >> count;
  if (count == 0 || count > 100'000) GTEST_SKIP() << "the system keeps " << count;
  put("x");
  // Equal events that follow each other are one.
  for (int i = 0; i <= count / 2; ++i) {
    fs::rename(path(i % 2 == 0 ? "x" : "y"), path(i % 2 == 0 ? "y" : "x"));
  }
  EXPECT_TRUE(watch_.takeChanges());
  put("a.xml");
  EXPECT_TRUE(watch_.takeChanges());
}

TEST_F(FileWatchTest, Wait_ChangesInQuickSuccession_AreOne) {
  ASSERT_EQ(problemText(watch_.addFile(path("a.xml"))), "");
  put("other");
  std::thread writer([this] {
    for (int i = 0; i < 3; ++i) {
      put("a.xml");
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  });
  EXPECT_TRUE(watch_.wait());
  writer.join();
  EXPECT_FALSE(watch_.takeChanges());
}

TEST_F(FileWatchTest, Descriptor_Change_IsReadable) {
  ASSERT_EQ(problemText(watch_.addFile(path("a.xml"))), "");
  pollfd waiting{watch_.descriptor(), POLLIN, 0};
  EXPECT_EQ(::poll(&waiting, 1, 0), 0);
  put("a.xml");
  EXPECT_EQ(::poll(&waiting, 1, 0), 1);
}

TEST_F(FileWatchTest, Add_FolderThatIsMissing_IsRefused) {
  const std::string place = path("none");
  const std::string text = "the folder " + place + " cannot be watched: No such file or directory";
  EXPECT_EQ(problemText(watch_.addFile(place + "/a.xml")), text);
  EXPECT_EQ(problemText(watch_.addFiles({place + "/presets", "", ".settings"})), text);
  EXPECT_EQ(problemText(watch_.addFiles({place, "", ".settings"})), "");
}

}  // namespace

}  // namespace driver_feature::host
