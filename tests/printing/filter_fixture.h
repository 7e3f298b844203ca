// Runs the built filter as a print scheduler does.
#ifndef TESTS_PRINTING_FILTER_FIXTURE_H_
#define TESTS_PRINTING_FILTER_FIXTURE_H_

#include <map>
#include <string>

#include "host/program_runner.h"

// What every job ends with, and what leaves a printer's language.
inline const std::string kExit = "\x1b%-12345X";

// What the filter reports of a job of two pages.
inline const std::string kTwoPages = "PAGE: 1 1\nPAGE: 2 1\n";

class FilterTest : public ProgramTest {
 protected:
  FilterTest();

  // Sets an environment variable of the filter.
  void set(const std::string& name, const std::string& value) { environment_[name] = value; }

  // Writes the queue's PPD, with more lines after those that name the
  // description "printer.xml", and sets PPD.
  void useQueue(const std::string& ppd);

  // Runs the filter for the job in the file "job.ps".
  RunResult filter(const std::string& options, const std::string& copies = "1",
                   const std::string& title = "A title") const;

  // Runs it with other arguments and standard streams that `prepare` makes.
  RunResult filterWith(const std::vector<std::string>& arguments,
                       const std::function<void()>& prepare = {}) const;

  // Runs the program driver-feature, which must succeed.
  void command(const std::vector<std::string>& arguments) const;

  void enter() const;  // In the child: its environment.

 private:
  std::map<std::string, std::string> environment_;
};

// What the filter leaves when it works: its output, and its lines of PAGE,
// WARNING and ERROR. (DEBUG lines are left out.)
RunResult printed(const std::string& output, const std::string& lines);
// What a result is without DEBUG lines.
RunResult withoutDebug(RunResult result);

#endif  // TESTS_PRINTING_FILTER_FIXTURE_H_
