#include "programs/printer/spool.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "programs/printer/job_record.h"

namespace {

// The files and folders that were brought to the disk.
std::vector<std::string> flushed;

}  // namespace

// In place of the system's, for the whole test program.
extern "C" int fsync(int descriptor) {
  flushed.push_back(
      std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor)).string());
  return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

namespace driver_feature::printer {
namespace {

namespace fs = std::filesystem;

class SpoolTest : public ::testing::Test {
 protected:
  SpoolTest() {
    std::string name = (fs::temp_directory_path() / "spool-XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
    open();
  }
  ~SpoolTest() override { fs::remove_all(folder_); }

  void open() {
    spool_.reset();
    auto opened = Spool::open(folder_ / "spool");
    ASSERT_TRUE(opened);
    spool_ = std::move(*opened);
  }

  static Job pending() {
    Job job;
    job.printer = "office";
    job.name = "Letter";
    job.user = "jane";
    job.format = "application/pdf";
    job.options = {{"PageSize", "A4"}, {"Watermark", "a 'b' \\ c"}};
    return job;
  }

  // As the client hears of it.
  bool accept(Job& job, const std::string& attributes, IncomingDocument* document) {
    return spool_->add(job, attributes, document) && spool_->commit(job);
  }

  std::unique_ptr<IncomingDocument> received(const std::string& text) {
    auto document = spool_->receive();
    EXPECT_TRUE(document);
    EXPECT_TRUE((*document)->write(text));
    return std::move(*document);
  }

  static std::string read(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  }

  fs::path folder_;
  std::unique_ptr<Spool> spool_;
};

TEST_F(SpoolTest, Add_JobWithDocument_IsThereAfterANewStart) {
  Job job = pending();
  auto document = received("%PDF-");
  ASSERT_TRUE(accept(job, "attributes", document.get()));
  EXPECT_EQ(job.number, 1);
  document.reset();
  open();
  host::Problems problems;
  const std::vector<Job> jobs = spool_->load(problems);
  EXPECT_TRUE(problems.empty());
  ASSERT_EQ(jobs.size(), 1U);
  EXPECT_EQ(jobs[0].number, 1);
  EXPECT_EQ(jobs[0].name, "Letter");
  ASSERT_EQ(jobs[0].options.size(), 2U);
  EXPECT_EQ(jobs[0].options[1].value, "a 'b' \\ c");
  EXPECT_EQ(read(spool_->document(1)), "%PDF-");
  EXPECT_EQ(spool_->attributes(1), "attributes");
  EXPECT_EQ(spool_->used(), 5U);
  struct stat status {};
  ASSERT_EQ(::stat(spool_->document(1).c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(SpoolTest, Add_MachineEndsBeforeCommit_JobWasNeverAccepted) {
  Job job = pending();
  auto document = received("hello");
  ASSERT_TRUE(spool_->add(job, "attributes", document.get()));
  EXPECT_EQ(read(spool_->document(1)), "hello");
  document.reset();
  open();
  host::Problems problems;
  EXPECT_TRUE(spool_->load(problems).empty());
  EXPECT_TRUE(problems.empty());
  EXPECT_TRUE(fs::is_empty(folder_ / "spool" / "jobs"));
}

TEST_F(SpoolTest, AddDocument_MachineEndsBeforeCommit_JobWaitsForIt) {
  Job job = pending();
  job.isIncoming = true;
  ASSERT_TRUE(accept(job, "", nullptr));
  job.isIncoming = false;
  auto document = received("hello");
  ASSERT_TRUE(spool_->addDocument(job, *document));
  document.reset();
  open();
  host::Problems problems;
  const std::vector<Job> jobs = spool_->load(problems);
  ASSERT_EQ(jobs.size(), 1U);
  EXPECT_TRUE(jobs[0].isIncoming);
}

// All files get to the disk before the record has its name, and the names after that.
TEST_F(SpoolTest, Commit_EverythingOfTheJob_IsOnTheDisk) {
  const std::string jobs = folder_ / "spool" / "jobs";
  Job job = pending();
  job.isIncoming = true;
  flushed.clear();
  ASSERT_TRUE(spool_->add(job, "attributes", nullptr));
  EXPECT_EQ(flushed, std::vector<std::string>());
  ASSERT_TRUE(spool_->commit(job));
  EXPECT_EQ(flushed, (std::vector<std::string>{jobs + "/1/attributes", jobs + "/1/job.json.new",
                                               jobs + "/1", jobs}));
  flushed.clear();
  auto document = received("hello");
  ASSERT_TRUE(spool_->addDocument(job, *document));
  ASSERT_TRUE(spool_->commit(job));
  EXPECT_EQ(flushed, (std::vector<std::string>{jobs + "/1/job.json.new", jobs + "/1/document",
                                               jobs + "/1"}));
  flushed.clear();
  Job second = pending();
  document = received("hello");
  ASSERT_TRUE(accept(second, "attributes", document.get()));
  EXPECT_EQ(flushed, (std::vector<std::string>{jobs + "/2/attributes", jobs + "/2/job.json.new",
                                               jobs + "/2/document", jobs + "/2", jobs}));
  flushed.clear();
  ASSERT_TRUE(spool_->update(second));
  EXPECT_EQ(flushed, (std::vector<std::string>{jobs + "/2/job.json.new", jobs + "/2"}));
}

TEST_F(SpoolTest, Commit_FolderIsGone_IsAProblem) {
  Job job = pending();
  ASSERT_TRUE(spool_->add(job, "", nullptr));
  fs::remove_all(folder_ / "spool" / "jobs");
  const auto kept = spool_->commit(job);
  ASSERT_FALSE(kept);
  EXPECT_EQ(describe(kept.error()), (folder_ / "spool/jobs/1/attributes").string() +
                                        ": cannot be written: No such file or directory");
}

TEST_F(SpoolTest, Receive_DocumentIsNotKept_LeavesNothing) {
  { auto document = received("hello"); }
  EXPECT_TRUE(fs::is_empty(folder_ / "spool" / "incoming"));
  EXPECT_EQ(spool_->used(), 0U);
}

TEST_F(SpoolTest, Open_SomethingWasBeingReceived_IsRemoved) {
  fs::create_directory(folder_ / "spool" / "incoming" / "7");
  std::ofstream(folder_ / "spool" / "incoming" / "7" / "document") << "half";
  open();
  EXPECT_TRUE(fs::is_empty(folder_ / "spool" / "incoming"));
  host::Problems problems;
  EXPECT_TRUE(spool_->load(problems).empty());
}

TEST_F(SpoolTest, Open_FolderIsUsed_IsRefused) {
  const auto second = Spool::open(folder_ / "spool");
  ASSERT_FALSE(second);
  EXPECT_EQ(describe(second.error()), "the spool " + (folder_ / "spool").string() +
                                          " is used by another server; give this one a folder of "
                                          "its own with --spool");
}

TEST_F(SpoolTest, Open_FolderIsUsedForAMoment_Waits) {
  spool_.reset();
  const int lock = ::open((folder_ / "spool" / "lock").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(::flock(lock, LOCK_EX), 0);
  std::thread holder([lock] {
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    ::close(lock);
  });
  EXPECT_TRUE(Spool::open(folder_ / "spool"));
  holder.join();
}

TEST_F(SpoolTest, Open_FolderCannotBeMade_IsRefused) {
  std::ofstream(folder_ / "file") << "";
  const auto opened = Spool::open(folder_ / "file");
  ASSERT_FALSE(opened);
  EXPECT_EQ(describe(opened.error()),
            (folder_ / "file/jobs").string() + ": cannot be written: Not a directory");
}

TEST_F(SpoolTest, Add_FolderIsGone_NothingIsLeft) {
  fs::remove_all(folder_ / "spool" / "jobs");
  Job job = pending();
  auto document = received("hello");
  EXPECT_FALSE(spool_->add(job, "", document.get()));
  document.reset();
  EXPECT_TRUE(fs::is_empty(folder_ / "spool" / "incoming"));
  EXPECT_EQ(spool_->used(), 0U);
}

TEST_F(SpoolTest, Update_JobIsOver_KeepsItsRecordOnly) {
  Job job = pending();
  auto document = received("hello");
  ASSERT_TRUE(accept(job, "", document.get()));
  job.state = IPP_JSTATE_COMPLETED;
  ASSERT_TRUE(spool_->update(job));
  EXPECT_FALSE(fs::exists(spool_->document(1)));
  EXPECT_EQ(spool_->used(), 0U);
  open();
  host::Problems problems;
  EXPECT_EQ(spool_->load(problems).at(0).state, IPP_JSTATE_COMPLETED);
}

TEST_F(SpoolTest, AddDocument_JobWaitedForIt_HasIt) {
  Job job = pending();
  job.isIncoming = true;
  ASSERT_TRUE(accept(job, "", nullptr));
  EXPECT_FALSE(fs::exists(spool_->document(1)));
  job.isIncoming = false;
  auto document = received("hello");
  ASSERT_TRUE(spool_->addDocument(job, *document));
  EXPECT_EQ(read(spool_->document(1)), "hello");
  EXPECT_EQ(spool_->used(), 5U);
}

TEST_F(SpoolTest, Add_AfterANewStart_NoNumberIsGivenTwice) {
  Job first = pending();
  Job second = pending();
  ASSERT_TRUE(accept(first, "", nullptr));
  ASSERT_TRUE(accept(second, "", nullptr));
  spool_->remove(1);
  open();
  host::Problems problems;
  EXPECT_EQ(spool_->load(problems).size(), 1U);
  Job third = pending();
  ASSERT_TRUE(accept(third, "", nullptr));
  EXPECT_EQ(third.number, 3);
}

TEST_F(SpoolTest, Load_DamagedRecord_IsReportedAndKept) {
  Job job = pending();
  ASSERT_TRUE(accept(job, "", nullptr));
  const fs::path record = folder_ / "spool/jobs/1/job.json";
  std::ofstream(record) << "{";
  host::Problems problems;
  EXPECT_TRUE(spool_->load(problems).empty());
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(describe(problems[0]), record.string() + ": is not the record of a job");
  Job next = pending();
  ASSERT_TRUE(accept(next, "", nullptr));
  EXPECT_EQ(next.number, 2);
}

TEST_F(SpoolTest, Identity_NewStart_IsTheSame) {
  const std::string identity = spool_->identity();
  EXPECT_EQ(identity.size(), 16U);
  open();
  EXPECT_EQ(spool_->identity(), identity);
}

TEST(JobRecord, Damaged_EachMember_IsRefused) {
  Job job;
  job.number = 1;
  const std::string whole = recordOf(job);
  ASSERT_TRUE(jobOfRecord(whole));
  for (const std::string from : {"\"number\": 1", "\"state\": 3", "\"printer\": \"\"",
                                 "\"isIncoming\": false", "\"options\": []", "\"copies\": 1"}) {
    std::string damaged = whole;
    const std::size_t place = damaged.find(from);
    ASSERT_NE(place, std::string::npos) << from;
    damaged.replace(place, from.size(), from.substr(0, from.find(':')) + ": null");
    EXPECT_FALSE(jobOfRecord(damaged)) << from;
  }
  EXPECT_FALSE(jobOfRecord(""));
  EXPECT_FALSE(jobOfRecord("[]"));
}

TEST(JobRecord, NameIsNotUtf8_IsKeptWithoutItsBytes) {
  Job job;
  job.number = 1;
  job.name =
      "a\xff"
      "b";
  const auto read = jobOfRecord(recordOf(job));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->name,
            "a\xef\xbf\xbd"
            "b");
}

}  // namespace
}  // namespace driver_feature::printer
