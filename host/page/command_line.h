// The present settings for other programs: as a command line of `emit`, and as the
// query of a URL.
#ifndef HOST_PAGE_COMMAND_LINE_H_
#define HOST_PAGE_COMMAND_LINE_H_

#include <string>
#include <vector>

#include "host/page/catalog.h"
#include "host/session/session.h"
#include "host/settings/setting.h"

namespace driver_feature::page {

// One record of a dynamic group: its columns.
struct PageRecord {
  std::string group;
  std::vector<host::Setting> members;
};

struct PresentSettings {
  std::vector<host::Setting> settings;  // In the order in which to make them.
  std::vector<PageRecord> records;
};

// What comes before the settings.
struct CommandFrame {
  std::string description;
  std::string library;
  std::vector<std::string> routines;
};

// How `emit` receives settings: as options, and as a settings file that is loaded
// before them.
struct EmitSettings {
  std::vector<host::Setting> options;
  std::string file;  // Its text.
};

// Records, and what cannot be a word of a command line, go into the file.
EmitSettings emitSettingsOf(const PresentSettings& present);

// "driver-feature emit --to ps DESC -o NAME=VALUE": run by a POSIX shell, it gives the
// outputs of the settings. The text of the file, when there is one, comes after it.
std::string commandLine(const CommandFrame& frame, const PresentSettings& present);

// NAME=VALUE&NAME=VALUE, percent-encoded. A record is [GROUP]=VALUES, a JSON array.
std::string queryOf(const PresentSettings& present);

// The reverse, with texts as a page shows them. Parts that do not have this form
// are ignored. The members of the records have no names: they are the columns in
// their order.
PresentSettings readQuery(const std::string& query);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_COMMAND_LINE_H_
