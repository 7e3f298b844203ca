#include "programs/printer/job_list.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace driver_feature::printer {
namespace {

namespace fs = std::filesystem;

class JobListTest : public ::testing::Test {
 protected:
  JobListTest() {
    std::string name = (fs::temp_directory_path() / "jobs-XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
    start();
  }
  ~JobListTest() override { fs::remove_all(folder_); }

  void start() {
    list_.reset();
    auto spool = Spool::open(folder_);
    ASSERT_TRUE(spool);
    list_ = std::make_unique<JobList>(std::move(*spool), JobLimits{3, 2, 10});
    EXPECT_TRUE(list_->load(1000).empty());
  }

  Job& add(const std::string& printer, ipp_jstate_t state = IPP_JSTATE_PENDING) {
    Job job;
    job.printer = printer;
    job.state = state;
    Job& added = **list_->add(job, "", nullptr);
    EXPECT_TRUE(list_->spool().commit(added));
    return added;
  }

  fs::path folder_;
  std::unique_ptr<JobList> list_;
};

TEST_F(JobListTest, Next_SeveralWait_IsTheFirstOfThePrinterThatCanPrint) {
  add("labels");
  add("office", IPP_JSTATE_HELD);
  Job& third = add("office");
  add("office");
  EXPECT_EQ(list_->next("office"), &third);
  EXPECT_EQ(list_->next("other"), nullptr);
  EXPECT_EQ(list_->waiting("office"), 3U);
}

TEST_F(JobListTest, Load_JobWasBeingPrinted_IsPrintedAgain) {
  Job& job = add("office");
  job.state = IPP_JSTATE_PROCESSING;
  job.sheets = 4;
  ASSERT_TRUE(list_->keep(job));
  start();
  ASSERT_NE(list_->next("office"), nullptr);
  EXPECT_EQ(list_->next("office")->sheets, 0);
}

TEST_F(JobListTest, Load_JobIsOver_IsNotPrintedAgain) {
  Job& job = add("office");
  ASSERT_TRUE(list_->end(job, IPP_JSTATE_COMPLETED, "job-completed-successfully", "", 5));
  start();
  EXPECT_EQ(list_->next("office"), nullptr);
  EXPECT_EQ(list_->find(1)->ended, 5);
}

TEST_F(JobListTest, Load_DocumentHasNotCome_IsAbortedAfterSomeTime) {
  for (const int created : {600, 800}) {
    Job job;
    job.printer = "office";
    job.state = IPP_JSTATE_HELD;
    job.isIncoming = true;
    job.created = created;
    auto added = list_->add(job, "", nullptr);
    ASSERT_TRUE(added && list_->spool().commit(**added));
  }
  start();
  EXPECT_EQ(list_->find(1)->state, IPP_JSTATE_ABORTED);
  EXPECT_EQ(list_->find(2)->state, IPP_JSTATE_HELD);
}

TEST_F(JobListTest, End_JobHadOptions_NoneIsKept) {
  Job job;
  job.printer = "office";
  job.options = {{"HoldPin", "1234"}};
  Job& added = **list_->add(job, "", nullptr);
  ASSERT_TRUE(list_->spool().commit(added));
  EXPECT_EQ(list_->find(1)->options.size(), 1U);
  ASSERT_TRUE(list_->end(added, IPP_JSTATE_COMPLETED, "none", "", 5));
  start();
  EXPECT_TRUE(list_->find(1)->options.empty());
}

TEST_F(JobListTest, End_MoreThanAreKept_ForgetsTheOldest) {
  for (int i = 0; i < 4; ++i) {
    ASSERT_TRUE(list_->end(add("office"), IPP_JSTATE_COMPLETED, "none", "", 5));
  }
  EXPECT_EQ(list_->find(1), nullptr);
  EXPECT_EQ(list_->find(2), nullptr);
  EXPECT_NE(list_->find(3), nullptr);
  EXPECT_FALSE(fs::exists(folder_ / "jobs/2"));
}

TEST_F(JobListTest, End_OldestEndsLast_ItStaysForNow) {
  Job& first = add("office");
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(list_->end(add("office"), IPP_JSTATE_COMPLETED, "none", "", 5));
  }
  ASSERT_TRUE(list_->end(first, IPP_JSTATE_CANCELED, "none", "gone", 5));
  ASSERT_NE(list_->find(1), nullptr);
  EXPECT_EQ(first.message, "gone");
}

TEST_F(JobListTest, Limits_Reached_IsFull) {
  for (int i = 0; i < 2; ++i) add("office");
  EXPECT_FALSE(list_->isFull());
  Job& third = add("labels", IPP_JSTATE_HELD);
  EXPECT_TRUE(list_->isFull());
  ASSERT_TRUE(list_->end(third, IPP_JSTATE_CANCELED, "none", "", 5));
  EXPECT_FALSE(list_->isFull());
  EXPECT_FALSE(list_->isSpoolFull(10));
  EXPECT_TRUE(list_->isSpoolFull(11));
}

}  // namespace
}  // namespace driver_feature::printer
