// Memory that runs out while the program writes files: every file has its old
// content or its new one, whole, and nothing else is left in the folder.

#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>

#include <gmock/gmock.h>

#include "fault/failing_memory.h"
#include "host/base/output_file.h"
#include "host/program_runner.h"

// The program's own main(), under another name.
int driverFeatureMain(int argc, char** argv);

namespace driver_feature::testing {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::StartsWith;

const std::string kOld = "the old content of the file\n";

// A program's folder with two files in it.
class Folder : public ProgramTest {
 public:
  void TestBody() override {}
  using ProgramTest::fileNames;
  using ProgramTest::folder;
  using ProgramTest::read;
  using ProgramTest::write;

  std::string path(const std::string& name) const { return (folder() / name).string(); }
};

class FileMemoryTest : public MemoryFaultTest {
 protected:
  void writeOldFiles() {
    folder_.write("first.out", kOld);
    folder_.write("second.out", kOld);
  }

  Folder folder_;
};
INSTANTIATE_MEMORY_FAULTS(FileMemoryTest);

TEST_P(FileMemoryTest, WriteToFile_NoMemory_KeepsTheOldFile) {
  const std::string path = folder_.path("first.out");
  sweep(3, [&](const FailurePlan& plan) {
    writeOldFiles();
    host::Result<> written;
    const bool done = endsWithoutThrow(plan, [&] { written = host::writeToFile(path, "new"); });
    EXPECT_EQ(folder_.read("first.out"), done && written ? "new" : kOld);
    EXPECT_EQ(done, !memoryHasFailed());
    EXPECT_THAT(folder_.fileNames(), ElementsAre("first.out", "second.out"));
  });
}

TEST_P(FileMemoryTest, WriteAllOutputs_NoMemory_WritesAllFilesOrNone) {
  const std::vector<host::OutputText> outputs = {{folder_.path("first.out"), "new"},
                                                 {folder_.path("second.out"), "new"}};
  sweep(6, [&](const FailurePlan& plan) {
    writeOldFiles();
    host::Result<> written;
    const bool done = endsWithoutThrow(plan, [&] { written = writeAllOutputs(outputs); });
    EXPECT_EQ(folder_.read("first.out"), done && written ? "new" : kOld);
    EXPECT_EQ(folder_.read("second.out"), done && written ? "new" : kOld);
    EXPECT_EQ(done, !memoryHasFailed());
    EXPECT_THAT(folder_.fileNames(), ElementsAre("first.out", "second.out"));
  });
}

// The whole program, in a copy of this process for each allocation.
class ProgramMemoryTest : public FileMemoryTest {
 protected:
  ProgramMemoryTest() {
    folder_.write("printer.xml",
                  "<FeatureDescription><Feature FeatureType='IntEntry' Name='Copies'"
                  " DefaultValue='1' PSCommand='copies %d&#10;' TESKJTAttributeName='copies'"
                  " TESKAttributeSyntax='integer'/></FeatureDescription>");
  }

  struct Outcome {
    int status;  // Of exit; 1000 and the signal when one ended the process.
    bool memoryFailed;
  };

  // Runs the program with failing memory.
  Outcome runProgram(const FailurePlan& plan, std::vector<std::string> arguments) {
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const pid_t child = fork();
    if (child == 0) {
      const int errors = open(folder_.path("errors").c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
      dup2(errors, STDOUT_FILENO);
      dup2(errors, STDERR_FILENO);
      std::vector<char*> pointers;
      for (std::string& argument : arguments) pointers.push_back(argument.data());
      int status = 0;
      {
        const FailingMemory failing(plan);
        status = driverFeatureMain(static_cast<int>(pointers.size()), pointers.data());
      }
      const char failed = memoryHasFailed() ? '1' : '0';
      _exit(::write(ends[1], &failed, 1) == 1 ? status : 99);
    }
    close(ends[1]);
    char failed = '1';  // Of a program that ended by itself, too.
    EXPECT_GE(::read(ends[0], &failed, 1), 0);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status), failed == '1'};
  }

  // Tries the program with every `step`th allocation failing, and expects its
  // results whole or not at all.
  void sweepProgram(int step, const std::vector<std::string>& arguments) {
    writeOldFiles();
    ASSERT_EQ(runProgram({1 << 30, GetParam(), Allocations::kAll}, arguments).status, 0)
        << folder_.read("errors");
    const std::string first = folder_.read("first.out");
    const std::string second = folder_.read("second.out");
    ASSERT_NE(first, kOld);
    int attempts = 0;
    for (Outcome outcome{0, true}; outcome.memoryFailed; ++attempts) {
      SCOPED_TRACE("allocation " + std::to_string(attempts * step));
      writeOldFiles();
      outcome = runProgram({attempts * step, GetParam(), Allocations::kAll}, arguments);
      const bool isNew = folder_.read("first.out") == first && folder_.read("second.out") == second;
      const bool isOld = folder_.read("first.out") == kOld && folder_.read("second.out") == kOld;
      EXPECT_TRUE(outcome.status == 0 ? isNew : isOld) << folder_.read("errors");
      EXPECT_THAT(outcome.status, AnyOf(0, 1, 2)) << folder_.read("errors");
      EXPECT_THAT(folder_.fileNames(),
                  ElementsAre("errors", "first.out", "printer.xml", "second.out"));
      if (HasFailure()) return;
    }
    EXPECT_GT(attempts, 50);
  }
};
INSTANTIATE_MEMORY_FAULTS(ProgramMemoryTest);

TEST_P(ProgramMemoryTest, EmitAndSave_NoMemory_WritesAllFilesOrNone) {
  sweepProgram(7, {"driver-feature", "--library", DRIVER_FEATURE_LIBRARY, "emit",
                   folder_.path("printer.xml"), "--to", "ps=" + folder_.path("first.out"), "-o",
                   "Copies=3", "--save", folder_.path("second.out")});
}

}  // namespace
}  // namespace driver_feature::testing
