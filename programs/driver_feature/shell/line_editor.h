// Reads lines from a terminal, with editing, history and completion.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_LINE_EDITOR_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_LINE_EDITOR_H_

#include <memory>
#include <string>
#include <vector>

#include <histedit.h>

#include "programs/driver_feature/shell/shell.h"
#include "programs/driver_feature/shell/terminal_signals.h"

namespace driver_feature::cli {

// One at a time. It writes the prompt and the line to standard error, so that
// results can go elsewhere.
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
  void bindKeys();
  // What the keys and the editor call.
  static int onRead(EditLine* editor, wchar_t* character);
  static unsigned char onTab(EditLine* editor, int key);
  static unsigned char onEndOfInput(EditLine* editor, int key);

  int readCharacter(wchar_t& character);
  unsigned char complete();
  bool replaceBeforeCursor(const std::string& before, const std::string& after);
  void show(const std::vector<std::string>& choices);
  bool wantsAll(std::size_t count);
  void react(int signal);
  void remember(const std::string& line);
  void keep(const std::string& line);

  const Shell& shell_;
  std::string historyFile_;
  EditLine* editor_;
  HistoryW* history_;
  std::unique_ptr<TerminalSignals> signals_;  // While a line is being read.
  bool dropped_ = false;                      // The line, by Ctrl-C.
  std::string bytes_;                         // Of a character that is not whole yet.
  std::string unclear_;                       // The line in which Tab has not helped.
  std::string last_;                          // Of the history.
  std::vector<std::string> added_;            // Lines of this use in the history.
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_LINE_EDITOR_H_
