// Reads lines from a terminal, with editing, history and completion.
#ifndef HOST_SHELL_LINE_EDITOR_H_
#define HOST_SHELL_LINE_EDITOR_H_

#include <string>

#include "host/shell/shell.h"

namespace driver_feature {

// One at a time. It writes the prompt and the line to standard error, so that
// answers can go elsewhere.
class LineEditor {
 public:
  // Reads the history. The shell must outlive the editor.
  explicit LineEditor(const Shell& shell);
  // Appends the lines of this use to the history; does nothing when that
  // cannot be written.
  ~LineEditor();
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  // Reads the next line. False at the end of the input (Ctrl-D on an empty
  // line). Ctrl-C drops the line and begins another.
  bool read(std::string& line);

 private:
  void keep(const std::string& line);

  const Shell& shell_;
  std::string historyFile_;
  int added_ = 0;  // Lines of this use in the history.
};

}  // namespace driver_feature

#endif  // HOST_SHELL_LINE_EDITOR_H_
