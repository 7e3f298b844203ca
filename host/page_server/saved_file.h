// Files that a page writes beside its description.
#ifndef HOST_PAGE_SERVER_SAVED_FILE_H_
#define HOST_PAGE_SERVER_SAVED_FILE_H_

#include <string>

#include "host/base/result.h"

namespace driver_feature::page_server {

enum class SavedKind { kSettings, kPreset };

// The file that gets the settings, NAME.settings, or the preset,
// DESCRIPTION.presets/NAME.settings. Refused when the name is not one of a file in
// that folder, or when a link there may lead out of it.
host::Result<std::string> savedFile(const std::string& description, SavedKind kind,
                                    const std::string& name);

enum class SaveEnd { kWritten, kSame, kOther };

// Writes the text unless the file has it already (kSame), or has another one
// (kOther) that is not to be replaced. Problem: kNotWritten.
host::Result<SaveEnd> saveText(const std::string& file, const std::string& text, bool replaces);

// The description or a file beside it that the page shows as `name`. Refused for
// every other name.
host::Result<std::string> sourceFile(const std::string& description, const std::string& name);

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_SAVED_FILE_H_
