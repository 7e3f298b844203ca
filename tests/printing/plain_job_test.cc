// Jobs printed with and without libcups.

#include <gmock/gmock.h>

#include "printing/queue_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class PlainJobProgramTest : public QueueCommandTest {
 protected:
  PlainJobProgramTest() {
    command({"import", "office.ppd", "--output", "office.xml"});
    EXPECT_EQ(queue({"office.xml", "--ppd", "office.ppd", "--output", "queue.ppd"}), success(""));
    set("PPD", "queue.ppd");
  }

  // Changes the queue's PPD by hand.
  void edit(const std::string& from, const std::string& to) {
    std::string ppd = read("queue.ppd");
    ASSERT_NE(ppd.find(from), std::string::npos);
    ppd.replace(ppd.find(from), from.size(), to);
    write("queue.ppd", ppd);
  }

  // What the loader of programs reports of a job.
  std::string loadedFor(const std::string& options) {
    set("LD_DEBUG", "files");
    const std::string files = filter(options).errors;
    set("LD_DEBUG", "");
    return files;
  }
};

TEST_F(PlainJobProgramTest, Jobs_AreTheSameWithAndWithoutLibcups) {
  const std::string stamp = read("queue.ppd");
  for (const char* options : {"", "PageSize=A5", "Duplex=duplexnotumble Stamp=On", "Density=Dark",
                              "JCLEconoMode=True job-uuid=urn:1 date-time-at-creation="}) {
    write("queue.ppd", stamp);
    const RunResult plain = filter(options);
    EXPECT_EQ(plain.status, 0);
    edit("*DriverFeaturePlain", "*DriverFeaturePlaim");
    EXPECT_EQ(filter(options), plain) << options;
  }
}

TEST_F(PlainJobProgramTest, Libcups_IsLoadedOnlyWhereItIsNeeded) {
  EXPECT_THAT(loadedFor("PageSize=A5"), Not(HasSubstr("libcups")));
  EXPECT_THAT(loadedFor("media=A5"), HasSubstr("libcups"));
  edit("/density 1 def", "/density 3 def");
  EXPECT_THAT(loadedFor("PageSize=A5"), HasSubstr("libcups"));
}

TEST_F(PlainJobProgramTest, ChangedDefault_HasEffectWithoutLibcups) {
  edit("*DefaultDensity: Normal", "*DefaultDensity: Dark");
  EXPECT_THAT(loadedFor(""), Not(HasSubstr("libcups")));
  EXPECT_THAT(filter("").output, HasSubstr("/density 2 def"));
}

}  // namespace
