// A folder of cases: settings, with the outputs that are expected of them.
//
//   driver.txt    which description and routines the cases are about
//   NAME.conf     the settings of the case NAME, in the form of settings files
//   NAME.ps, NAME.pjl, NAME.ticket
//                 the expected outputs
//   NAME.log      the expected messages: log lines, or why the settings are refused
//
// What is empty needs no file. Other files do not matter.
#ifndef PROGRAMS_DRIVER_FEATURE_CASES_CASE_FOLDER_H_
#define PROGRAMS_DRIVER_FEATURE_CASES_CASE_FOLDER_H_

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::cli {

// What a case writes, in this order.
inline constexpr std::array<const char*, 4> kCaseOutputs = {"ps", "pjl", "ticket", "log"};
inline constexpr std::size_t kCaseLog = 3;
using CaseOutputs = std::array<std::string, kCaseOutputs.size()>;

inline constexpr const char* kDriverFile = "driver.txt";

struct CaseFolder {
  std::string path;
  std::string description;            // As driver.txt has it.
  std::vector<std::string> routines;  // Paths of the libraries.
  std::vector<std::string> names;     // Of the cases, sorted.
  std::vector<std::string> strays;    // Files with outputs of cases that there are not.

  std::string pathOf(const std::string& file) const;
};

// Problems: a folder or a driver.txt that cannot be read or understood, and a
// folder without cases.
host::Result<CaseFolder> readCaseFolder(const std::string& path);

// The expected outputs of a case; nothing in place of one that has no file.
using ExpectedOutputs = std::array<std::optional<std::string>, kCaseOutputs.size()>;
host::Result<ExpectedOutputs> readExpected(const CaseFolder& folder, const std::string& name);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_CASES_CASE_FOLDER_H_
