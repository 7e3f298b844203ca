#include "printing/filter_fixture.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace fs = std::filesystem;

FilterTest::FilterTest() {
  fs::copy_file(fs::path(PRINTING_FOLDER) / "queue_printer.xml", folder() / "printer.xml");
  fs::copy_file(fs::path(PRINTING_FOLDER) / "two_pages.ps", folder() / "job.ps");
  fs::copy_file(fs::path(PRINTING_FOLDER) / "office.ppd", folder() / "office.ppd");
  set("DRIVER_FEATURE_LIBRARY", DRIVER_FEATURE_LIBRARY);
}

void FilterTest::useQueue(const std::string& ppd) {
  write("queue.ppd", ppd);
  set("PPD", "queue.ppd");
}

RunResult FilterTest::filter(const std::string& options, const std::string& copies,
                             const std::string& title) const {
  return filterWith({"7", "jane", title, copies, options, "job.ps"});
}

RunResult FilterTest::filterWith(const std::vector<std::string>& arguments,
                                 const std::function<void()>& prepare) const {
  return runIn(folder(), DRIVER_FEATURE_FILTER, arguments, [this, &prepare] {
    enter();
    if (prepare) prepare();
  });
}

void FilterTest::command(const std::vector<std::string>& arguments) const {
  EXPECT_EQ(runIn(folder(), DRIVER_FEATURE_PROGRAM, arguments).status, 0);
}

void FilterTest::enter() const {
  ::unsetenv("PPD");
  ::unsetenv("CONTENT_TYPE");
  for (const auto& [name, value] : environment_) ::setenv(name.c_str(), value.c_str(), 1);
}

RunResult printed(const std::string& output, const std::string& lines) {
  return {0, output, lines};
}

RunResult withoutDebug(RunResult result) {
  std::istringstream lines(result.errors);
  result.errors.clear();
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("DEBUG: ")) result.errors += line + "\n";
  }
  return result;
}
