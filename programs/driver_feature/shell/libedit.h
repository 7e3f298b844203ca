// The functions of libedit that the shell uses. Only a shell at a terminal needs
// them, so that no program is linked with libedit.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_LIBEDIT_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_LIBEDIT_H_

#include <histedit.h>

namespace driver_feature::cli {

struct Libedit {
  decltype(&::el_init) init;
  decltype(&::el_end) end;
  decltype(&::el_wget) get;
  decltype(&::el_wset) set;
  decltype(&::el_wgets) readLine;
  decltype(&::el_wline) line;
  decltype(&::el_wpush) type;
  decltype(&::el_winsertstr) insertText;
  decltype(&::el_deletestr) deleteBefore;
  decltype(&::el_cursor) moveCursor;
  decltype(&::el_resize) resize;
  decltype(&::el_source) readSettings;
  decltype(&::history_w) history;
  decltype(&::history_winit) beginHistory;
  decltype(&::history_wend) endHistory;
};

// Loads the library at the first call. Throws std::runtime_error when it cannot
// be loaded.
const Libedit& libedit();

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_LIBEDIT_H_
