// The files beside a description, NAME.xml: NAME.rules.xml, NAME.LANGUAGE.po for each
// language, and the settings files NAME.presets/PRESET.settings.
#ifndef HOST_DESCRIPTION_BESIDE_FILES_H_
#define HOST_DESCRIPTION_BESIDE_FILES_H_

#include <string>
#include <vector>

#include "host/base/file_watch.h"
#include "host/base/result.h"

namespace driver_feature::host {

// The path of a file beside a description: "office.rules.xml" of "office.xml" and
// ".rules.xml".
std::string besideName(const std::string& description, const std::string& ending);

std::string rulesFileOf(const std::string& description);

// A file, and what its name says about it: the language or the preset.
struct NamedFile {
  std::string path;
  std::string name;
};

// Those that there are, in the order of their names.
std::vector<NamedFile> poFilesOf(const std::string& description);
std::vector<NamedFile> presetFilesOf(const std::string& description);

// Watches the files beside a description, also those to come. Problem: its folder
// cannot be watched.
Result<> watchBeside(const std::string& description, FileWatch& watch);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_BESIDE_FILES_H_
