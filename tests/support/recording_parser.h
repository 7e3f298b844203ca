// A parser in place of the platform's: it hands every call on and adds
// it to the events of the recording host, so that parser calls, log lines and
// calls of host routines are in one order.
//
//   "childCount(Feature Tray)"        an element is shown as tag and "Name"
//   "attributes(Feature Tray, 0)"     with the size of the map handed in
//
// While it lives it is pParserInstance; the end of its life puts the earlier
// parser back.
#ifndef TESTS_SUPPORT_RECORDING_PARSER_H_
#define TESTS_SUPPORT_RECORDING_PARSER_H_

#include <optional>
#include <string>

#include "support/recording_host.h"

#include "AttributeMap.h"
#include "XMLParser.h"

namespace driver_feature::testing {

class RecordingParser final : public XMLParser {
 public:
  RecordingParser() : real_(pParserInstance) { pParserInstance = this; }
  ~RecordingParser() { pParserInstance = real_; }
  RecordingParser(const RecordingParser&) = delete;
  RecordingParser& operator=(const RecordingParser&) = delete;

  // What childCount() returns in place of the truth.
  std::optional<int> claimedCount;

  void tagName(void* element, std::string& tag) override {
    note("tagName", element);
    real_->tagName(element, tag);
  }
  void reserved1() override { RecordingHost::record("reserved1"); }
  void* firstChild(void* element) override {
    note("firstChild", element);
    return real_->firstChild(element);
  }
  void* nextSibling(void* element) override {
    note("nextSibling", element);
    return real_->nextSibling(element);
  }
  void reserved4() override { RecordingHost::record("reserved4"); }
  int childCount(void* element) override {
    note("childCount", element);
    return claimedCount ? *claimedCount : real_->childCount(element);
  }
  void attributes(void* element, AttributeMap& map) override {
    RecordingHost::record("attributes(" + show(element) + ", " + std::to_string(map.size()) + ")");
    real_->attributes(element, map);
  }

 private:
  std::string show(void* element) const {
    std::string text;
    real_->tagName(element, text);
    AttributeMap map;
    real_->attributes(element, map);
    std::string name;
    if (map.loadMapVariable("Name", name, nullptr)) text += ' ' + name;
    return text;
  }

  void note(const std::string& call, void* element) const {
    RecordingHost::record(call + '(' + show(element) + ')');
  }

  XMLParser* real_;
};

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_RECORDING_PARSER_H_
