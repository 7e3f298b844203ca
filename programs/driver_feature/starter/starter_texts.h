// The texts of the files that a driver begins with. "@NAME@" is the driver's name.
#ifndef PROGRAMS_DRIVER_FEATURE_STARTER_STARTER_TEXTS_H_
#define PROGRAMS_DRIVER_FEATURE_STARTER_STARTER_TEXTS_H_

#include <span>
#include <string_view>

namespace driver_feature::cli {

struct StarterText {
  std::string_view path;
  std::string_view text;
};

extern const std::string_view kStarterDescription;

// All files, the description among them.
std::span<const StarterText> starterTexts();

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_STARTER_STARTER_TEXTS_H_
