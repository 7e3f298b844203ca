// A host that writes down everything the library does to it, in order: log
// lines with level, category and text, calls of its routines, and output on
// the standard streams.
//
//   RecordingHost host;
//   feature.setFeatureProperty("Name"s, 3);
//   EXPECT_THAT(host.takeEvents(), ElementsAre(logLine(3, "...")));
//
// While it lives it is the platform's log handler and the library's state is
// its own: the master set is empty and no callback is registered, unless
// registerUpdateCallback() is called. Both ends of its life reset that state.
#ifndef TESTS_SUPPORT_RECORDING_HOST_H_
#define TESTS_SUPPORT_RECORDING_HOST_H_

#include <memory>
#include <string>
#include <vector>

#include "XMLDocument.h"

namespace driver_feature::testing {

// What a log line looks like among the events: "log 3 DriverFeature: TEXT".
std::string logLine(int level, const std::string& text);

// The event of each call of a host routine.
inline const std::string kUpdateCalled = "update callback";
inline const std::string kChangeCalled = "change routine";

class RecordingHost {
 public:
  RecordingHost();
  ~RecordingHost();
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  // Registers the update callback "RecordUpdate".
  void registerUpdateCallback();

  // The events since the last call, oldest first.
  std::vector<std::string> takeEvents();

  // The elements of a text that stays alive as long as the host. Ends the
  // test program when the text is not XML.
  void* parse(const std::string& xml);

  // For routines of tests: add an event to the host that lives now.
  static void record(const std::string& event);

 private:
  std::vector<std::string> events_;
  std::vector<std::unique_ptr<XMLDocument>> documents_;
};

}  // namespace driver_feature::testing

// Routines that a description may name; FetchSymbol finds them in the test
// program. Each records its event; "RecordUpdate" returns false.
extern "C" {
bool RecordUpdate();
void RecordChange();
}

#endif  // TESTS_SUPPORT_RECORDING_HOST_H_
