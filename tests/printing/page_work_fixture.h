// The built filter with options for the pages of a document.
#ifndef TESTS_PRINTING_PAGE_WORK_FIXTURE_H_
#define TESTS_PRINTING_PAGE_WORK_FIXTURE_H_

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <utility>

#include "printing/filter_fixture.h"

// The PJL in front of a job with the defaults.
inline const std::string kHeader =
    kExit + "@PJL\r\n@PJL SET COPIES=1\r\n@PJL SET PAPER=A4\r\n@PJL ENTER LANGUAGE=POSTSCRIPT\r\n";

inline std::size_t countOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

// The lines of PAGE, WARNING and ERROR.
inline std::string reported(RunResult result) {
  return withoutDebug(std::move(result)).errors;
}

class PageWorkTest : public FilterTest {
 protected:
  PageWorkTest() {
    set("DRIVER_FEATURE_DESCRIPTION", "printer.xml");
    set("TMPDIR", folder() / "tmp");
    std::filesystem::create_directory(folder() / "tmp");
  }

  ~PageWorkTest() override {
    EXPECT_TRUE(std::filesystem::is_empty(folder() / "tmp")) << "a file is left";
  }

  // Replaces the scheduler's filter by a shell script.
  void replaceFilter(const std::string& script) {
    const auto bin = folder() / "serverbin" / "filter";
    std::filesystem::create_directories(bin);
    std::ofstream(bin / "pstops") << "#!/bin/sh\n" << script << "\n";
    std::filesystem::permissions(bin / "pstops", std::filesystem::perms::owner_all);
    set("CUPS_SERVERBIN", folder() / "serverbin");
  }

  // The process that the replaced filter has noted in the file "pid", which
  // must be there soon.
  pid_t notedProcess() const {
    pid_t process = 0;
    for (int i = 0; i < 200 && process == 0; ++i) {
      std::ifstream(folder() / "pid") >> process;
      if (process == 0) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return process;
  }

  std::string ofFilter(const std::string& rest) const {
    return "the scheduler's filter " + (folder() / "serverbin/filter/pstops").string() + rest;
  }
};

#endif  // TESTS_PRINTING_PAGE_WORK_FIXTURE_H_
