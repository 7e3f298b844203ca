// Runs the built program as a user does, and catches all that it
// prints.
#ifndef TESTS_HOST_PROGRAM_RUNNER_H_
#define TESTS_HOST_PROGRAM_RUNNER_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

struct RunResult {
  int status = 0;  // The exit status; 1000 and the signal when one ended the process.
  std::string output;
  std::string errors;

  bool operator==(const RunResult&) const = default;
};

void PrintTo(const RunResult& result, std::ostream* stream);

// A fresh folder for each test, in which the program runs, so that messages
// hold short file names. It is removed afterwards.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  // Runs the program. `prepare` is called in the child before the program
  // starts, with its standard streams in place.
  RunResult run(const std::vector<std::string>& arguments,
                const std::function<void()>& prepare = {}) const;
  static RunResult runIn(const std::filesystem::path& folder, const std::string& program,
                         const std::vector<std::string>& arguments,
                         const std::function<void()>& prepare = {});

  // From now on programs that crash end by the signal, also where checks of
  // addresses would catch it.
  static void letCrashesEndPrograms();

  void write(const std::string& name, const std::string& content) const;
  // Wraps the elements in a FeatureDescription that begins in line 1; each
  // element of `lines` has a line of its own, the first one line 2.
  void describe(const std::string& name, const std::vector<std::string>& lines) const;
  // A "Feature" element on one line.
  static std::string feature(const std::string& type, const std::string& name,
                             const std::string& attributes = "", const std::string& options = "");
  std::string read(const std::string& name) const;
  std::vector<std::string> fileNames() const;  // Sorted.

  const std::filesystem::path& folder() const { return folder_; }

 private:
  std::filesystem::path folder_;
};

// What the program prints when it works, and when it refuses something.
RunResult success(const std::string& output);
RunResult failure(int status, const std::string& errors);

#endif  // TESTS_HOST_PROGRAM_RUNNER_H_
