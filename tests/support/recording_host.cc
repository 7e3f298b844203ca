#include "support/recording_host.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "frame/state.h"
#include "model/notification.h"

#include "Log.h"

namespace driver_feature::testing {

namespace {

RecordingHost* current = nullptr;

// Makes the library's state that of one just loaded. The sets live on, as the
// library promises, and are kept here so that a check for leaks finds them.
void resetLibraryState() {
  static auto* const kSets = new std::vector<DriverFeatureSet*>;
  kSets->push_back(libraryState().masterSet);
  libraryState() = {};
  notification() = {};
}

void recordLogLine(int level, const char* category, const char* text, std::size_t length,
                   void* /*context*/) {
  RecordingHost::record("log " + std::to_string(level) + ' ' + category + ": " +
                        std::string(text, length));
}

}  // namespace

std::string logLine(int level, const std::string& text) {
  return "log " + std::to_string(level) + " DriverFeature: " + text;
}

RecordingHost::RecordingHost() {
  current = this;
  resetLibraryState();
  SetLogHandler(recordLogLine, nullptr);
}

RecordingHost::~RecordingHost() {
  SetLogHandler(nullptr, nullptr);
  resetLibraryState();
  current = nullptr;
}

void RecordingHost::registerUpdateCallback() {
  notification().updateCallback = RecordUpdate;
}

std::vector<std::string> RecordingHost::takeEvents() {
  return std::exchange(events_, {});
}

void* RecordingHost::parse(const std::string& xml) {
  XMLProblem problem;
  auto document = XMLDocument::parseText(xml, "test", problem);
  if (!document) {
    std::fprintf(stderr, "test:%d:%d: %s\n", problem.line, problem.column, problem.text.c_str());
    std::abort();
  }
  documents_.push_back(std::move(document));
  return documents_.back()->root();
}

void RecordingHost::record(const std::string& event) {
  if (current != nullptr) current->events_.push_back(event);
}

}  // namespace driver_feature::testing

bool RecordUpdate() {
  driver_feature::testing::RecordingHost::record(driver_feature::testing::kUpdateCalled);
  return false;
}

void RecordChange() {
  driver_feature::testing::RecordingHost::record(driver_feature::testing::kChangeCalled);
}
