// The text of a settings file.
//
//   # A comment is a line of its own.
//   Copies=2
//   Owner=\sJane\s
//   [StoredJobs]
//   Title=first
//
// NAME=VALUE sets a feature; blanks around both are dropped. Everything else
// up to the line end belongs to the value: quotes and "#" have no special
// meaning. "[GROUP]" begins a record of a dynamic group, whose members the
// following lines give; "[GROUP] none" says that the group has no records.
//
// In names and values \\ is a backslash, \s a blank, \t a tab, \n a line end,
// \r a carriage return, and \xNN the byte with that hexadecimal number.
#ifndef HOST_SETTINGS_SETTINGS_TEXT_H_
#define HOST_SETTINGS_SETTINGS_TEXT_H_

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::host {

// A setting and its line, counted from 1.
struct SettingsLine {
  int line = 0;
  Setting setting;
};

// One record, or the line that says that its group has none.
struct SettingsRecord {
  int line = 0;
  std::string group;
  bool isNone = false;
  std::vector<SettingsLine> members;
};

// A line that is refused, counted from 1; 0 for the text as a whole.
inline Problem problemAt(int line, std::string text) {
  return {Problem::Kind::kRefused, std::move(text), "", "", "", {line, 0}};
}

struct SettingsText {
  std::vector<SettingsLine> features;
  std::vector<SettingsRecord> records;
  Problems refusals;  // Lines that could not be read.
};

// Reads the text of a settings file, valid or not.
SettingsText parseSettings(std::string_view text);

// "NAME=VALUE", "[GROUP]" and "[GROUP] none", each with a line end, so that
// reading gives the same bytes back. A byte that is not valid UTF-8 is escaped.
std::string settingLine(const Setting& setting);
std::string recordLine(const std::string& group);
std::string noRecordsLine(const std::string& group);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_SETTINGS_TEXT_H_
