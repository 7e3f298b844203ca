// What devices and the scheduler's backends say while they print.
#ifndef PROGRAMS_PRINTER_DEVICE_STATE_H_
#define PROGRAMS_PRINTER_DEVICE_STATE_H_

#include <string>
#include <vector>

namespace driver_feature::printer {

// Toner and the like.
struct Supply {
  std::string name = "Supply";
  std::string colour = "unknown";
  std::string type = "toner";
  int level = -2;  // Percent; -2 is "unknown".

  bool operator==(const Supply&) const = default;
};

// One value of printer-supply.
std::string supplyText(const Supply& supply, int index);

// Takes the text of a STATE line: "+media-empty,cover-open" adds, "-media-empty"
// removes, and without a sign these are all.
void takeState(std::vector<std::string>& reasons, const std::string& text);

// Takes the text of an ATTR line, such as "marker-levels=50,20 marker-names=...". Others
// are ignored.
void takeSupplies(std::vector<Supply>& supplies, const std::string& text);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_DEVICE_STATE_H_
