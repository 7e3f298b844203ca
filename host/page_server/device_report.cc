#include "host/page_server/device_report.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include <nlohmann/json.hpp>

#include "host/base/decimal.h"
#include "host/page_server/json_text.h"

namespace driver_feature::page_server {

namespace {

using Json = nlohmann::json;

constexpr std::string_view kMark = "DF ";
constexpr std::size_t kLongestValue = 1000;
constexpr std::array<std::string_view, 9> kFinishing = {
    "Bind", "Booklet", "Collate", "Fold", "Jog", "OutputType", "Punch", "Staple", "Trim"};

// "(Thick)" and "/Thick" without what PostScript writes around them.
std::string plain(const std::string& value) {
  if (value.size() >= 2 && value.starts_with('(') && value.ends_with(')')) {
    return value.substr(1, value.size() - 2);
  }
  return value.starts_with('/') ? value.substr(1) : value;
}

bool isNothing(const std::string& value) {
  return value == "null" || value == "false" || value == "0" || value == "(None)" ||
         value == "/None";
}

// "[595 842]"
Json sizeOf(const std::string& value) {
  const std::size_t width = value.find_first_of("-.0123456789");
  const std::size_t height = value.find_first_not_of(' ', value.find(' ', width));
  const auto numberAt = [&](std::size_t place) {
    return place < value.size() ? host::decimal(std::string_view(value).substr(place)) : 0;
  };
  return {numberAt(width), numberAt(height)};
}

void take(const std::string& name, const std::string& value, Json& device) {
  if (name == "Duplex") device["duplex"] = value == "true";
  if (name == "Tumble") device["tumble"] = value == "true";
  if (name == "MediaType" && !isNothing(value)) device["media"] = plain(value);
  if (name == "NumCopies") device["copies"] = std::max(1, std::atoi(value.c_str()));
  if (name == "MediaPosition" && !isNothing(value)) device["tray"] = plain(value);
  if (name == "ManualFeed" && value == "true") device["tray"] = "ManualFeed";
  const bool isFinishing =
      std::find(kFinishing.begin(), kFinishing.end(), name) != kFinishing.end();
  if (isFinishing && !isNothing(value)) {
    device["finishing"].push_back(value == "true" ? name : name + " " + plain(value));
  }
  device["entries"].push_back({name, value.substr(0, kLongestValue)});
}

// Whether the page is turned: by its size, and by the entry Orientation on top.
std::string orientationOf(const Json& device) {
  bool isWide = device["size"][0] > device["size"][1];
  for (const Json& entry : device["entries"]) {
    if (entry[0] == "Orientation" && (entry[1] == "1" || entry[1] == "3")) isWide = !isWide;
  }
  return isWide ? "landscape" : "portrait";
}

}  // namespace

DeviceReport readDeviceReport(const std::string& printed) {
  DeviceReport report;
  Json device = {{"size", {0, 0}},
                 {"orientation", "portrait"},
                 {"duplex", false},
                 {"tumble", false},
                 {"tray", ""},
                 {"media", ""},
                 {"copies", 1},
                 {"finishing", Json::array()},
                 {"entries", Json::array()}};
  std::string_view rest = printed;
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    const std::size_t tab = line.find('\t');
    if (!line.starts_with(kMark) || tab == std::string_view::npos) continue;
    const std::string name(line.substr(kMark.size(), tab - kMark.size()));
    const std::string value(line.substr(tab + 1));
    if (name == "Failed") {
      report.failure = value;
    } else if (name == "Size") {
      device["size"] = sizeOf(value);
      report.isWhole = true;
    } else {
      take(name, value, device);
    }
  }
  std::sort(device["entries"].begin(), device["entries"].end());
  std::sort(device["finishing"].begin(), device["finishing"].end());
  device["orientation"] = orientationOf(device);
  report.device = jsonText(device);
  return report;
}

}  // namespace driver_feature::page_server
