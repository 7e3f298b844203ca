// What the Tab key does to a line.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_TAB_KEY_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_TAB_KEY_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::cli {

class Shell;

struct TabStep {
  std::size_t begin = 0;  // From here to the cursor, the line becomes `written`.
  std::string written;
  std::vector<std::string> choices;  // How the word may go on, to be shown.
};

// Completes the word before the cursor, as far as it is clear how it goes on. An
// open quote stays the one in use; a word that is whole gets its end and a blank.
TabStep pressTab(const Shell& shell, std::string_view line);

// Lays out choices in columns for a terminal of that width, as lines. The order
// is down the columns.
std::string layOutChoices(const std::vector<std::string>& choices, std::size_t width);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_TAB_KEY_H_
