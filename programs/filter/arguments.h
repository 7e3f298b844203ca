// The arguments with which a print scheduler runs a filter:
//
//   driver-feature-filter JOB USER TITLE COPIES OPTIONS [FILE]
#ifndef PROGRAMS_FILTER_ARGUMENTS_H_
#define PROGRAMS_FILTER_ARGUMENTS_H_

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::filter {

struct FilterArguments {
  int job = 0;
  std::string user;
  std::string title;
  int copies = 1;
  std::vector<host::Setting> options;  // By their names; of one that is given twice the last.
  std::string file;                    // Empty for standard input.
  bool isConverted = false;  // The filters before this one have made the document PostScript.
};

// Takes the options out of a text such as "PageSize=A4 noCollate Title='a b'".
using OptionParser = std::function<std::vector<host::Setting>(const std::string& text)>;

// Refused when the arguments cannot be understood.
host::Result<FilterArguments> readArguments(int argc, const char* const* argv,
                                            const OptionParser& parseOptions);

// The text without control characters and double quotes, so that it cannot
// end the command into which a printer language puts it.
std::string harmless(std::string_view text);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_ARGUMENTS_H_
