// The arguments with which a print scheduler runs a filter:
//
//   driver-feature-filter JOB USER TITLE COPIES OPTIONS [FILE]
#ifndef PROGRAMS_FILTER_ARGUMENTS_H_
#define PROGRAMS_FILTER_ARGUMENTS_H_

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
  std::vector<host::Setting> options;  // By their names; of one that stands twice the last.
  std::string file;                    // Empty for standard input.
  bool isConverted = false;  // The filters before this one have made the document PostScript.
};

// Refused when the arguments cannot be understood.
host::Result<FilterArguments> readArguments(int argc, const char* const* argv);

// The options of a text such as "PageSize=A4 noCollate Title='a b'".
std::vector<host::Setting> parseOptions(const std::string& text);

// The text without control characters and double quotes, so that it cannot
// end the command into which a printer language puts it.
std::string harmless(std::string_view text);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_ARGUMENTS_H_
