// Which PPD files an import reads, and where their descriptions go.
#ifndef PROGRAMS_DRIVER_FEATURE_COMMANDS_IMPORT_PLAN_H_
#define PROGRAMS_DRIVER_FEATURE_COMMANDS_IMPORT_PLAN_H_

#include <string>
#include <vector>

namespace driver_feature::cli {

struct ImportJob {
  std::string file;    // The PPD file.
  std::string output;  // The description's file.
};

struct ImportPlan {
  std::vector<ImportJob> jobs;
  std::vector<std::string> problems;  // Of files and folders that are left out.
};

// The jobs for several files. Each description has the name of its file with
// ".xml" in the place of ".ppd" or ".ppd.gz", and goes to `folder`, or beside
// its file when that is empty. A file whose description would replace that of
// another one is left out.
ImportPlan planFiles(const std::vector<std::string>& files, const std::string& folder);

// The jobs for all PPD files below `source`, by their names and in the order of
// the names: *.ppd and *.ppd.gz in either case. Descriptions keep the folders
// of their files below `folder`.
ImportPlan planFolder(const std::string& source, const std::string& folder);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMMANDS_IMPORT_PLAN_H_
