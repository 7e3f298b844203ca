// Feeds arbitrary JSON to the reader of records. A refused file adds no
// record; an accepted one adds exactly its own, and they survive being saved.

#include <cstdint>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "fuzz/c_library.h"
#include "fuzz/settings_model.h"
#include "host/session/group_view.h"
#include "host/settings/records.h"
#include "host/settings/settings_file.h"
#include "host/settings/settings_plan.h"
#include "host/settings/settings_text.h"

namespace driver_feature::fuzz {
namespace {

constexpr std::size_t kLongestInput = 16384;

using Json = nlohmann::ordered_json;

// A record returns its values as texts: a float has six decimals there.
float throughRecord(float number) {
  return toFloat(printed("%f", static_cast<double>(number)));
}

// The records of "Jobs" are "Title" and "Shift", in the order of the file.
void checkJobs(const std::vector<host::Record>& records, const Json& json) {
  for (std::size_t i = 0; i < records.size(); ++i) {
    const Json& title = json[i]["Title"];
    const std::string text = title.is_string() ? title.get<std::string>() : title.dump();
    require(records[i][0] == text, "a text is the same in the record and in the file");
    const Json& shift = json[i]["Shift"];
    const float number = toFloat(shift.is_string() ? shift.get<std::string>() : shift.dump());
    require(toFloat(records[i][1]) == throughRecord(number),
            "a number is the same in the record and in the file");
  }
}

// The records of "Pages" are "Page" and "Media", in the order of the pages.
void checkPages(const std::vector<host::Record>& records) {
  for (std::size_t i = 1; i < records.size(); ++i) {
    require(std::stoi(records[i - 1][0]) <= std::stoi(records[i][0]), "pages are in their order");
  }
}

void checkSaved(const std::string& saved) {
  const SettingsModel model;
  const auto refusals = applyLines(model.set(), model.model(), host::parseSettings(saved));
  require(refusals.empty(), "what is saved can be loaded: " + saved);
  require(composeSettings(model.set(), model.model()) == saved, "what is saved comes back");
}

// What is saved after the records were added; empty when they are refused.
std::string add(const std::string& input, const std::string& group) {
  const SettingsModel model;
  const MemoryFile file(input);
  const std::string before = model.state();
  const host::Result<> added = addRecords(model.set(), model.model(), {group, file.path()});
  if (!added) {
    const std::string& reason = added.error().text;
    require(!reason.empty(), "a refusal has a reason");
    require(
        !reason.ends_with("the feature library refuses it; run again with --verbose to see why"),
        "what is checked is taken");
    require(model.state() == before, "a refused file adds no record");
    return "";
  }
  const Json json = Json::parse(input);
  const auto records = findDynamicGroup(model.set(), model.model().index, group)->records();
  require(records.size() == json.size(), "every record is added");
  if (group == "Jobs") {
    checkJobs(records, json);
  } else {
    checkPages(records);
  }
  return composeSettings(model.set(), model.model());
}

}  // namespace
}  // namespace driver_feature::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > driver_feature::fuzz::kLongestInput) return 0;
  const std::string input(reinterpret_cast<const char*>(data), size);
  for (const char* group : {"Jobs", "Pages"}) {
    const std::string saved = driver_feature::fuzz::add(input, group);
    if (!saved.empty()) driver_feature::fuzz::checkSaved(saved);
  }
  return 0;
}
