#include "programs/filter/queue.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "host/ppd/queue/libcups_queue_ppd.h"
#include "support/problem_text.h"

namespace driver_feature::filter {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QueueTest : public testing::Test {
 protected:
  QueueTest() { std::filesystem::create_directory(folder_); }
  ~QueueTest() override { std::filesystem::remove_all(folder_); }

  host::Result<Queue> read(const std::string& lines) {
    std::ofstream(folder_ / "q.ppd") << "*PPD-Adobe: \"4.3\"\n" << lines;
    const auto ppd = ppd::LibcupsQueuePpd::open(folder_ / "q.ppd");
    EXPECT_EQ(problemText(ppd), "");
    return readQueue(ppd->get(), [this](const char* name) {
      const auto found = environment_.find(name);
      return found == environment_.end() ? nullptr : found->second.c_str();
    });
  }

  std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                  ("driver-feature-queue-" + std::to_string(::getpid()));
  std::map<std::string, std::string> environment_;
};

TEST_F(QueueTest, PpdLines_AreRead) {
  const auto queue = read(
      "*DriverFeatureDescription: \"/d/a.xml\"\n*DriverFeatureLibrary: \"/l/b.so\"\n"
      "*DriverFeatureRoutines: \"/r/c.so\"\n*DriverFeatureRoutines: \"/r/d.so\"\n"
      "*DriverFeatureRefusedValue: \"default\"\n");
  ASSERT_TRUE(queue);
  EXPECT_EQ(queue->description, "/d/a.xml");
  EXPECT_EQ(queue->library, "/l/b.so");
  EXPECT_THAT(queue->routines, ElementsAre("/r/c.so", "/r/d.so"));
  EXPECT_EQ(queue->refusedValue, RefusedValue::kDefault);
}

TEST_F(QueueTest, RelativeNames_AreBesideThePpd) {
  const auto queue = read("*DriverFeatureDescription: \"a.xml\"\n");
  ASSERT_TRUE(queue);
  EXPECT_EQ(queue->description, (folder_ / "a.xml").string());
  EXPECT_EQ(queue->library, "");
  EXPECT_THAT(queue->routines, IsEmpty());
  EXPECT_EQ(queue->refusedValue, RefusedValue::kFail);
}

TEST_F(QueueTest, Environment_HasTheLastWord) {
  environment_ = {{"DRIVER_FEATURE_DESCRIPTION", "b.xml"},
                  {"DRIVER_FEATURE_LIBRARY", "l.so"},
                  {"DRIVER_FEATURE_ROUTINES", "r.so"},
                  {"DRIVER_FEATURE_REFUSED_VALUE", "fail"}};
  const auto queue =
      read("*DriverFeatureDescription: \"/d/a.xml\"\n*DriverFeatureRefusedValue: \"default\"\n");
  ASSERT_TRUE(queue);
  EXPECT_EQ(queue->description, "b.xml");
  EXPECT_EQ(queue->library, "l.so");
  EXPECT_THAT(queue->routines, ElementsAre("r.so"));
  EXPECT_EQ(queue->refusedValue, RefusedValue::kFail);
}

TEST_F(QueueTest, NoDescription_IsRefused) {
  environment_ = {{"DRIVER_FEATURE_DESCRIPTION", ""}};
  EXPECT_EQ(problemText(read("")),
            "the queue names no description; write its PPD with \"driver-feature queue\", or set "
            "DRIVER_FEATURE_DESCRIPTION for a trial by hand");
}

TEST_F(QueueTest, OtherRefusedValue_IsRefused) {
  EXPECT_EQ(problemText(read("*DriverFeatureDescription: \"a.xml\"\n"
                             "*DriverFeatureRefusedValue: \"maybe\"\n")),
            "*DriverFeatureRefusedValue is \"maybe\"; make it \"fail\" or \"default\"");
  environment_ = {{"DRIVER_FEATURE_REFUSED_VALUE", "x"}};
  EXPECT_EQ(problemText(read("*DriverFeatureDescription: \"a.xml\"\n")),
            "DRIVER_FEATURE_REFUSED_VALUE is \"x\"; make it \"fail\" or \"default\"");
}

}  // namespace
}  // namespace driver_feature::filter
