// The print scheduler's own filter for the pages of PostScript documents,
// "pstops", as a child of this process.
#ifndef PROGRAMS_FILTER_PAGE_FILTER_H_
#define PROGRAMS_FILTER_PAGE_FILTER_H_

#include <sys/types.h>

#include <string>
#include <vector>

#include "host/settings/setting.h"
#include "programs/filter/arguments.h"

namespace driver_feature::filter {

// Where the scheduler says that its filter is.
std::string pageFilterPath();

// Whether it is there.
bool hasPageFilter();

// The options as the argument of a filter, for libcups to read.
std::string optionsText(const std::vector<host::Setting>& options);

class PageFilter {
 public:
  PageFilter() = default;
  // Ends the filter if it still runs.
  ~PageFilter();
  PageFilter(const PageFilter&) = delete;
  PageFilter& operator=(const PageFilter&) = delete;

  // Runs the filter with `document` (an open file) as its standard input, and
  // puts its output in the place of this process's standard input. `ppd` is the
  // text of the PPD that it uses. The filter makes `arguments.copies` copies.
  // Returns why that failed.
  host::Result<> start(int document, const std::string& ppd, const FilterArguments& arguments,
                       const std::vector<host::Setting>& options);

  // Waits for the end of the filter and returns why it failed. One whose output
  // has not been read to its end is ended, and nothing is returned.
  host::Result<> finish();

 private:
  bool waitFor(int milliseconds);
  void stop();
  host::Result<> launch(int document, int output, std::vector<std::string> words);

  pid_t child_ = -1;  // -1 when none runs.
  int status_ = 0;
  std::string ppdFile_;  // Empty without one.
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_PAGE_FILTER_H_
