#include "programs/printer/device_state.h"

#include <cups/cups.h>

#include <algorithm>
#include <charconv>

#include "host/base/text.h"

namespace driver_feature::printer {

namespace {

constexpr std::size_t kMostReasons = 20;
constexpr std::size_t kMostSupplies = 50;

bool isReason(const std::string& word) {
  return !word.empty() && word.size() < 256 && word != "none" &&
         word.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-.") == std::string::npos;
}

// The words between commas; quotes hold a word together.
std::vector<std::string> listOf(const std::string& text) {
  std::vector<std::string> words(1);
  char quote = 0;
  for (const char c : text) {
    if (quote != 0 ? c == quote : c == '"' || c == '\'') {
      quote = quote != 0 ? '\0' : c;
    } else if (c == ',' && quote == 0) {
      words.emplace_back();
    } else {
      words.back() += c;
    }
  }
  return words;
}

}  // namespace

std::string supplyText(const Supply& supply, int index) {
  const bool isWaste = supply.type.starts_with("waste");
  return "index=" + std::to_string(index) +
         ";class=" + (isWaste ? "receptacleThatIsFilled" : "supplyThatIsConsumed") +
         ";type=" + supply.type +
         ";unit=percent;maxcapacity=100;level=" + std::to_string(supply.level) +
         ";colorantname=" + supply.colour + ";";
}

void takeState(std::vector<std::string>& reasons, const std::string& text) {
  const bool isSigned = text.starts_with('+') || text.starts_with('-');
  if (!isSigned) reasons.clear();
  for (const std::string& part : listOf(text.substr(isSigned ? 1 : 0))) {
    const std::string word(host::trimmed(part, " \t"));
    std::erase(reasons, word);
    const bool isAdded = !text.starts_with('-') && isReason(word);
    if (isAdded && reasons.size() < kMostReasons) reasons.push_back(word);
  }
}

void takeSupplies(std::vector<Supply>& supplies, const std::string& text) {
  cups_option_t* options = nullptr;
  const int count = ::cupsParseOptions(text.c_str(), 0, &options);
  for (int i = 0; i < count; ++i) {
    const std::string name = options[i].name;
    if (!name.starts_with("marker-")) continue;
    const std::vector<std::string> values = listOf(options[i].value);
    const bool isMember = name == "marker-names" || name == "marker-colors" ||
                          name == "marker-types" || name == "marker-levels";
    if (!isMember || values.size() > kMostSupplies) continue;
    supplies.resize(std::max(supplies.size(), values.size()));
    for (std::size_t at = 0; at < values.size(); ++at) {
      // Parts of the text are kept apart by semicolons.
      std::string value = host::printable(values[at]);
      std::replace(value.begin(), value.end(), ';', ',');
      if (name == "marker-names") supplies[at].name = value;
      if (name == "marker-colors") supplies[at].colour = value;
      if (name == "marker-types") supplies[at].type = value;
      if (name != "marker-levels") continue;
      int level = 0;
      const auto read = std::from_chars(value.data(), value.data() + value.size(), level);
      supplies[at].level = read.ec == std::errc() && level >= 0 && level <= 100 ? level : -2;
    }
  }
  ::cupsFreeOptions(count, options);
}

}  // namespace driver_feature::printer
