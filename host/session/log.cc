#include "host/session/log.h"

#include <cstdlib>
#include <string>

#include "Log.h"

namespace driver_feature::host {

namespace {

// Nothing is wrong with a description that has no load routine.
constexpr std::string_view kNoLoadRoutine =
    "FeatureXMLTagHandler() - No Custom Load VORN Callback Handler element";

// The tag handler writes the reason for which it ends the process to standard
// error, too. Of its level 1 lines only the one about the load routine is not
// such a reason.
bool isWrittenByLibrary(int level, std::string_view text) {
  return level == 1 && text.starts_with("FeatureXMLTagHandler() - ") &&
         text != "FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer";
}

LogPrinter* installed = nullptr;

}  // namespace

const char* wordOfLevel(int level) {
  switch (level) {
    case 1:
      return "error";
    case 2:
      return "misuse";
    case 3:
      return "warning";
    default:
      return "info";
  }
}

LogPrinter::LogPrinter(LogDetail detail, LineSink report)
    : detail_(detail), report_(std::move(report)) {
  installed = this;
  takeOver();
}

LogPrinter::~LogPrinter() {
  releaseQuietly();
  installed = nullptr;
  takeOver();
}

void LogPrinter::hold() {
  if (detail_ == LogDetail::kAll) return;
  static const int kRegistered = std::atexit(&LogPrinter::releaseAtExit);
  static_cast<void>(kRegistered);
  holding_ = true;
}

void LogPrinter::release() {
  holding_ = false;
  reportHeld();
}

void LogPrinter::discard() {
  holding_ = false;
  held_.clear();
}

void LogPrinter::releaseAtExit() {
  // exit() leaves a printer alive that one of its callers owns.
  if (installed != nullptr) installed->releaseQuietly();
}

void LogPrinter::releaseQuietly() noexcept {
  try {
    release();
  } catch (...) {
    // If memory runs out the lines are lost; ending the process would lose
    // more.
  }
}

void LogPrinter::reportHeld() {
  for (const std::string& line : held_) report_(line);
  held_.clear();
}

void LogPrinter::takeOver() {
  SetLogHandler(installed != nullptr ? &LogPrinter::handle : nullptr, installed);
}

void LogPrinter::handle(int level, const char* /*category*/, const char* text, std::size_t length,
                        void* context) {
  static_cast<LogPrinter*>(context)->take(level, {text, length});
}

void LogPrinter::take(int level, std::string_view text) {
  if (watcher_) watcher_(level, text);
  // An error ends the load, and the lines before it may explain it.
  if (level <= 1) {
    reportHeld();
    lastError_ = text;
  }
  if (!isShown(level, text)) return;
  const std::string line = std::string(wordOfLevel(level)) + ": " + std::string(text);
  if (holding_ && level > 1) {
    held_.push_back(line);
  } else {
    report_(line);
  }
}

bool LogPrinter::isShown(int level, std::string_view text) const {
  if (isWrittenByLibrary(level, text)) return false;
  switch (detail_) {
    case LogDetail::kErrors:
      return level <= 1;
    case LogDetail::kUsual:
      return level <= 2 && text != kNoLoadRoutine;
    case LogDetail::kAll:
      return true;
  }
  return true;
}

LogSilence::LogSilence() {
  SetLogHandler([](int, const char*, const char*, std::size_t, void*) {}, nullptr);
}

LogSilence::~LogSilence() {
  LogPrinter::takeOver();
}

}  // namespace driver_feature::host
