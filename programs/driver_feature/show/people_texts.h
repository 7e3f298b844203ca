// What people see in place of names, in one language.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_PEOPLE_TEXTS_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_PEOPLE_TEXTS_H_

#include <string>

#include "host/description/texts.h"
#include "host/session/session.h"

namespace driver_feature::cli {

class PeopleTexts {
 public:
  // Reads the texts of the session's description.
  PeopleTexts(const host::Session& session, const std::string& language);

  // The text of that language or of one that stands in for it; else the name.
  std::string ofFeature(const std::string& name) const;
  // The same; the "DisplayText" that a routine has set comes before the name.
  std::string ofOption(const std::string& feature, const std::string& option) const;

  // The preset's own text if no language has one; then its name.
  std::string ofPreset(const host::Preset& preset) const;
  std::string ofPanel(const host::Panel& panel) const;  // The same.

 private:
  const host::Session& session_;
  host::TextLookUp texts_;
};

// The presets as a table, and as a JSON document with a line end.
std::string presetsText(const host::Session& session, const PeopleTexts& texts, std::size_t width);
std::string presetsJson(const host::Session& session, const PeopleTexts& texts);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_PEOPLE_TEXTS_H_
