// Several outputs of one run of "emit".

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "host/program_runner.h"

namespace {

class EmitFormsTest : public ProgramTest {
 protected:
  EmitFormsTest() {
    describe("office.xml", {"<Feature FeatureType='IntEntry' Name='A' PSCommand='ps %d'"
                            " PJLCommand='pjl %d'/>"});
  }

  RunResult emit(const std::vector<std::string>& arguments) const {
    std::vector<std::string> all = {"emit", "office.xml"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return run(all);
  }
};

TEST_F(EmitFormsTest, Emit_SeveralForms_EachGoesToItsFile) {
  EXPECT_EQ(emit({"--to", "ps=a=1.ps", "--to", "pjl", "-o", "A=3"}), success("pjl 3"));
  EXPECT_EQ(read("a=1.ps"), "ps 3");
  EXPECT_EQ(emit({"--to", "ps=x.ps", "--to", "pjl", "--output", "x.pjl"}), success(""));
  EXPECT_EQ(read("x.ps"), "ps 0");
  EXPECT_EQ(read("x.pjl"), "pjl 0");
}

TEST_F(EmitFormsTest, Emit_FormsThatShareAnOutput_AreRefused) {
  const RunResult several =
      failure(2,
              "driver-feature: several forms cannot share one output; give each a file, as in "
              "--to ps=job.ps --to pjl=job.pjl\n");
  EXPECT_EQ(emit({"--to", "ps,pjl"}), several);
  EXPECT_EQ(emit({"--to", "ps", "--to", "pjl", "--output", "x"}), several);
  EXPECT_EQ(emit({"--to", "ps=x", "--output", "y"}),
            failure(2,
                    "driver-feature: --output y is for a form without a file of its own; leave it "
                    "out, or the file of a form\n"));
  EXPECT_EQ(emit({"--to", "ps=x", "--to", "pjl=./x"}),
            failure(1, "driver-feature: ./x: is given for two outputs; give each its own file\n"));
  EXPECT_EQ(emit({"--to", "ps,"}),
            failure(2, "driver-feature: --to: there is no form \"\"; give ps, pjl or ticket\n"));
  EXPECT_EQ(emit({"--to", "ps="}),
            failure(2,
                    "driver-feature: --to: \"ps=\" names no file; give one after the equals "
                    "sign\n"));
  EXPECT_EQ(fileNames(), std::vector<std::string>{"office.xml"});
}

TEST_F(EmitFormsTest, Emit_OneFileCannotBeWritten_LeavesAllAsTheyWere) {
  write("a.ps", "old");
  EXPECT_EQ(emit({"--to", "ps=a.ps", "--to", "pjl=no/b.pjl"}),
            failure(1,
                    "driver-feature: no/b.pjl: a temporary file beside it cannot be created: No "
                    "such file or directory\n"));
  EXPECT_EQ(emit({"--to", "ps=a.ps", "--to", "pjl=/dev/full"}),
            failure(1, "driver-feature: /dev/full: cannot be written: No space left on device\n"));
  EXPECT_EQ(read("a.ps"), "old");
  EXPECT_EQ(fileNames(), (std::vector<std::string>{"a.ps", "office.xml"}));
}

// The pipe, which is not read yet, holds the program up between the file that
// is on the disk and its name.
TEST_F(EmitFormsTest, Emit_SignalWhileWriting_LeavesNoTemporaryFile) {
  write("a.ps", "old");
  ASSERT_EQ(mkfifo((folder() / "pipe").c_str(), 0600), 0);
  const RunResult result = run({"emit", "office.xml", "--to", "ps=a.ps", "--to", "pjl=pipe"}, [] {
    signal(SIGALRM, SIG_DFL);
    const pid_t program = getpid();
    if (fork() == 0) {
      sleep(1);
      kill(program, SIGTERM);
      _exit(0);
    }
  });
  EXPECT_EQ(result.status, 1000 + SIGTERM);
  EXPECT_EQ(read("a.ps"), "old");
  EXPECT_EQ(fileNames(), (std::vector<std::string>{"a.ps", "office.xml", "pipe"}));
}

}  // namespace
