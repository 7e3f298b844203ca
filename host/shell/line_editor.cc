#include "host/shell/line_editor.h"

#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <readline/history.h>
#include <readline/readline.h>

#include "host/shell/completion.h"
#include "host/shell/history.h"
#include "host/shell/words.h"

namespace driver_feature {

namespace {

constexpr const char* kPrompt = "driver-feature> ";
constexpr int kLongestHistory = 1000;

// What the editor's routines, which get no argument, work on.
const Shell* completed = nullptr;
volatile std::sig_atomic_t interrupted = 0;
bool lineEnded = false;
bool inputEnded = false;
std::string lineRead;

void onInterrupt(int /*signal*/) {
  interrupted = 1;
}

void onLine(char* line) {
  lineEnded = true;
  inputEnded = line == nullptr;
  lineRead = line != nullptr ? line : "";
  std::free(line);
  // Before the terminal gets another prompt.
  rl_callback_handler_remove();
}

// The editor frees the list and its texts.
char** asList(const std::vector<std::string>& words) {
  auto** list = static_cast<char**>(std::calloc(words.size() + 1, sizeof(char*)));
  for (std::size_t i = 0; list != nullptr && i < words.size(); ++i) {
    list[i] = ::strdup(words[i].c_str());
  }
  return list;
}

// What all have in common, which the editor puts into the line.
std::string commonBegin(const std::vector<std::string>& words) {
  std::string common = words.front();
  for (const std::string& word : words) {
    std::size_t length = 0;
    while (length < common.size() && length < word.size() && common[length] == word[length]) {
      ++length;
    }
    common.resize(length);
  }
  return common;
}

char** proposeWords(const char* /*word*/, int /*start*/, int end) {
  rl_attempted_completion_over = 1;
  const Proposals proposals =
      complete(*completed, std::string_view(rl_line_buffer, static_cast<std::size_t>(end)));
  if (proposals.files) rl_attempted_completion_over = 0;
  if (proposals.words.empty()) return nullptr;
  if (proposals.unfinished) rl_completion_suppress_append = 1;
  const bool inQuotes = rl_completion_quote_character != 0;
  std::vector<std::string> written;
  for (const std::string& word : proposals.words) {
    written.push_back(inQuotes ? escapeWord(word) : quoteWord(word));
  }
  // The first entry replaces the word; the others are shown.
  const std::string common = commonBegin(written);
  if (written.size() > 1) written.insert(written.begin(), common);
  return asList(written);
}

void prepareEditor() {
  rl_readline_name = "driver-feature";
  rl_outstream = stderr;
  rl_attempted_completion_function = &proposeWords;
  rl_basic_word_break_characters = " \t";
  rl_completer_word_break_characters = " \t";
  rl_completer_quote_characters = "\"'";
  rl_filename_quote_characters = " \t\"'\\#";
  // Signals that come while a line is waited for are the editor's, too.
  rl_persistent_signal_handlers = 1;
}

// Drops the line that is being written and shows the prompt on a new one.
void dropLine() {
  interrupted = 0;
  rl_callback_sigcleanup();
  rl_crlf();
  rl_callback_handler_remove();
  rl_callback_handler_install(kPrompt, &onLine);
}

void waitForLine() {
  pollfd input{STDIN_FILENO, POLLIN, 0};
  while (!lineEnded) {
    const int ready = ::poll(&input, 1, -1);
    if (ready > 0) rl_callback_read_char();
    rl_check_signals();
    if (interrupted != 0 && !lineEnded) dropLine();
  }
}

}  // namespace

LineEditor::LineEditor(const Shell& shell) : shell_(shell), historyFile_(historyFile()) {
  completed = &shell;
  struct sigaction action {};
  action.sa_handler = &onInterrupt;
  action.sa_flags = SA_RESTART;
  ::sigaction(SIGINT, &action, nullptr);
  prepareEditor();
  using_history();
  stifle_history(kLongestHistory);
  if (!historyFile_.empty()) read_history(historyFile_.c_str());
}

LineEditor::~LineEditor() {
  completed = nullptr;
  if (historyFile_.empty() || !makeHistoryFile(historyFile_)) return;
  // Another shell may have added lines of its own meanwhile.
  append_history(added_, historyFile_.c_str());
  history_truncate_file(historyFile_.c_str(), kLongestHistory);
}

bool LineEditor::read(std::string& line) {
  lineEnded = false;
  interrupted = 0;
  rl_callback_handler_install(kPrompt, &onLine);
  waitForLine();
  if (inputEnded) {
    // With bracketed paste, the editor has ended the line itself.
    if (::strcmp(rl_variable_value("enable-bracketed-paste"), "on") != 0) std::fputc('\n', stderr);
    return false;
  }
  line = lineRead;
  keep(line);
  return true;
}

void LineEditor::keep(const std::string& line) {
  if (!isKept(shell_.model(), line)) return;
  const HIST_ENTRY* last =
      history_length > 0 ? history_get(history_base + history_length - 1) : nullptr;
  if (last != nullptr && line == last->line) return;
  add_history(line.c_str());
  if (added_ < kLongestHistory) ++added_;
}

}  // namespace driver_feature
