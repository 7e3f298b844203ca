#include "programs/driver_feature/shell/line_editor.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <new>

#include "programs/driver_feature/shell/history.h"
#include "programs/driver_feature/shell/libedit.h"
#include "programs/driver_feature/shell/tab_key.h"
#include "programs/driver_feature/shell/wide_text.h"

namespace driver_feature::cli {

namespace {

constexpr int kLongestHistory = 1000;
constexpr std::size_t kManyChoices = 100;
constexpr std::size_t kUsualWidth = 80;

wchar_t* prompt(EditLine* /*editor*/) {
  static wchar_t text[] = L"driver-feature> ";
  return text;
}

// A signal while a command runs does not end the shell.
void ignoreInterrupt(int /*signal*/) {}

LineEditor* ownerOf(EditLine* editor) {
  void* owner = nullptr;
  libedit().get(editor, EL_CLIENTDATA, &owner);
  return static_cast<LineEditor*>(owner);
}

std::size_t terminalColumns() {
  winsize size{};
  if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kUsualWidth;
  return size.ws_col;
}

// The keys that a terminal shows for a signal.
const char* keysOf(int signal) {
  switch (signal) {
    case SIGINT:
      return "^C";
    case SIGQUIT:
      return "^\\";
    case SIGTSTP:
      return "^Z";
    default:
      return "";
  }
}

std::string lineToCursor(EditLine* editor) {
  const LineInfoW* line = libedit().line(editor);
  return toBytes({line->buffer, static_cast<std::size_t>(line->cursor - line->buffer)});
}

}  // namespace

LineEditor::LineEditor(const Shell& shell) : shell_(shell), historyFile_(historyFile()) {
  struct sigaction action {};
  action.sa_handler = &ignoreInterrupt;
  action.sa_flags = SA_RESTART;
  ::sigaction(SIGINT, &action, nullptr);
  // The encoding of the terminal.
  std::setlocale(LC_CTYPE, "");
  editor_ = libedit().init("driver-feature", stdin, stderr, stderr);
  if (editor_ == nullptr) throw std::bad_alloc();
  history_ = libedit().beginHistory();
  HistEventW event;
  libedit().history(history_, &event, H_SETSIZE, kLongestHistory);
  libedit().set(editor_, EL_CLIENTDATA, this);
  libedit().set(editor_, EL_PROMPT, &prompt);
  libedit().set(editor_, EL_GETCFN, &LineEditor::onRead);
  libedit().set(editor_, EL_HIST, libedit().history, history_);
  bindKeys();
  if (historyFile_.empty()) return;
  for (const std::string& line : readHistory(historyFile_, kLongestHistory)) remember(line);
}

LineEditor::~LineEditor() {
  libedit().end(editor_);
  libedit().endHistory(history_);
  if (historyFile_.empty() || !makeHistoryFile(historyFile_)) return;
  // Another shell may have added lines of its own meanwhile.
  appendHistory(historyFile_, added_, kLongestHistory);
}

// Keys as most shells have them. A user's own settings come later, except for the
// two keys that this program cannot do without.
void LineEditor::bindKeys() {
  libedit().set(editor_, EL_EDITOR, L"emacs");
  const auto bind = [this](const wchar_t* key, const wchar_t* function) {
    libedit().set(editor_, EL_BIND, key, function, nullptr);
  };
  bind(L"^R", L"em-inc-search-prev");
  bind(L"^U", L"vi-kill-line-prev");
  bind(L"^W", L"ed-delete-prev-word");
  bind(L"\\e[1;5D", L"ed-prev-word");
  bind(L"\\e[1;5C", L"em-next-word");
  libedit().readSettings(editor_, nullptr);
  libedit().set(editor_, EL_ADDFN, L"propose", L"Complete the word", &LineEditor::onTab);
  libedit().set(editor_, EL_ADDFN, L"end-or-delete", L"Delete, or end", &LineEditor::onEndOfInput);
  bind(L"^I", L"propose");
  bind(L"^D", L"end-or-delete");
}

bool LineEditor::read(std::string& line) {
  const wchar_t* text = nullptr;
  do {
    dropped_ = false;
    unclear_.clear();
    signals_ = std::make_unique<TerminalSignals>();
    // Before the prompt: what is typed as soon as it is there must not be shown
    // by the terminal, too.
    libedit().set(editor_, EL_PREP_TERM, 1);
    int length = 0;
    text = libedit().readLine(editor_, &length);
    libedit().set(editor_, EL_PREP_TERM, 0);
    signals_.reset();
  } while (dropped_);
  if (text == nullptr) {
    std::fputc('\n', stderr);
    return false;
  }
  line = toBytes(text);
  if (line.ends_with('\n')) line.pop_back();
  keep(line);
  return true;
}

int LineEditor::onRead(EditLine* editor, wchar_t* character) {
  return ownerOf(editor)->readCharacter(*character);
}

// As the editor wants it: 1 for a character, 0 at the end, -1 to end the line.
int LineEditor::readCharacter(wchar_t& character) {
  while (!dropped_) {
    if (!bytes_.empty()) {
      if (const auto whole = takeCharacter(bytes_)) {
        character = *whole;
        return 1;
      }
    }
    if (const int signal = signals_->waitForInput(STDIN_FILENO)) {
      react(signal);
      continue;
    }
    char byte = 0;
    const ssize_t count = ::read(STDIN_FILENO, &byte, 1);
    if (count == 1) {
      bytes_ += byte;
    } else if (count == 0 || errno != EINTR) {
      return 0;
    }
  }
  return -1;
}

void LineEditor::react(int signal) {
  std::fputs(keysOf(signal), stderr);
  if (signal == SIGINT) {
    std::fputc('\n', stderr);
    dropped_ = true;
    return;
  }
  if (signal == SIGWINCH) {
    libedit().resize(editor_);
    std::fputc('\r', stderr);
  } else {
    libedit().set(editor_, EL_PREP_TERM, 0);
    signals_->passOn(signal);
    libedit().set(editor_, EL_PREP_TERM, 1);
  }
  libedit().set(editor_, EL_REFRESH);
}

unsigned char LineEditor::onEndOfInput(EditLine* editor, int /*key*/) {
  const LineInfoW* line = libedit().line(editor);
  if (line->cursor < line->lastchar) {
    libedit().moveCursor(editor, 1);
    libedit().deleteBefore(editor, 1);
    return CC_REFRESH;
  }
  return line->buffer == line->lastchar ? CC_EOF : CC_ERROR;
}

unsigned char LineEditor::onTab(EditLine* editor, int /*key*/) {
  return ownerOf(editor)->complete();
}

// A second Tab where the first one has not helped shows the choices.
unsigned char LineEditor::complete() {
  const std::string line = lineToCursor(editor_);
  const TabStep step = pressTab(shell_, line);
  const std::string written = line.substr(step.begin);
  if (step.written != written) {
    const bool drawn = replaceBeforeCursor(written, step.written);
    if (!step.choices.empty()) return drawn ? CC_ERROR : CC_REFRESH_BEEP;
    return drawn ? CC_NORM : CC_REFRESH;
  }
  if (!step.choices.empty() && line == unclear_) {
    show(step.choices);
    return CC_NORM;
  }
  unclear_ = line;
  return CC_ERROR;
}

// False when the line must be drawn again. What only goes on at its end is typed:
// no terminal needs more than its characters for that.
bool LineEditor::replaceBeforeCursor(const std::string& before, const std::string& after) {
  const std::wstring old = toWide(before);
  const std::wstring text = toWide(after);
  std::size_t same = 0;
  while (same < old.size() && same < text.size() && old[same] == text[same]) ++same;
  const LineInfoW* line = libedit().line(editor_);
  if (same == old.size() && line->cursor == line->lastchar) {
    libedit().type(editor_, text.c_str() + same);
    return true;
  }
  libedit().deleteBefore(editor_, static_cast<int>(old.size() - same));
  libedit().insertText(editor_, text.c_str() + same);
  return false;
}

void LineEditor::show(const std::vector<std::string>& choices) {
  std::fputc('\n', stderr);
  if (choices.size() <= kManyChoices || wantsAll(choices.size())) {
    std::fputs(layOutChoices(choices, terminalColumns()).c_str(), stderr);
  }
  libedit().set(editor_, EL_REFRESH);
}

bool LineEditor::wantsAll(std::size_t count) {
  std::fprintf(stderr, "Display all %zu possibilities? (y or n)", count);
  wchar_t key = 0;
  const bool wants = readCharacter(key) == 1 && (key == L'y' || key == L'Y' || key == L' ');
  std::fputc('\n', stderr);
  return wants;
}

void LineEditor::remember(const std::string& line) {
  HistEventW event;
  libedit().history(history_, &event, H_ENTER, toWide(line).c_str());
  last_ = line;
}

void LineEditor::keep(const std::string& line) {
  if (!isKept(shell_.model(), line) || line == last_) return;
  remember(line);
  added_.push_back(line);
}

}  // namespace driver_feature::cli
