#include "equivalence/job_options.h"

#include <strings.h>

#include <algorithm>
#include <array>

namespace driver_feature::equivalence {

namespace {

// Options of pstops, which knows them in any letters.
bool isForPstops(const std::string& keyword) {
  constexpr std::array<const char*, 6> kNames = {"Brightness", "Collate", "Gamma",
                                                 "Landscape",  "Mirror",  "OutputOrder"};
  return std::any_of(kNames.begin(), kNames.end(), [&keyword](const char* name) {
    return ::strcasecmp(name, keyword.c_str()) == 0;
  });
}

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) {
    if (c == '\'' || c == '\\') result += '\\';
    result += c;
  }
  return result + "'";
}

std::string valueOf(const Mark& mark, const std::string& parameter) {
  for (const CustomValue& value : mark.values) {
    if (value.parameter == parameter) return value.value;
  }
  return "";
}

std::string customChoice(const Mark& mark) {
  if (mark.option == "PageSize") {
    return "Custom." + valueOf(mark, "Width") + "x" + valueOf(mark, "Height");
  }
  if (mark.values.size() == 1) return quoted("Custom." + mark.values.front().value);
  std::string text = "{";
  for (const CustomValue& value : mark.values) {
    text += (text.size() > 1 ? " " : "") + value.parameter + "=" + quoted(value.value);
  }
  return text + "}";
}

}  // namespace

std::string jobOptions(const Peer& peer, const Marks& marks) {
  std::string text;
  for (const Mark& mark : marks) {
    const ppd_option_t* option = ::ppdFindOption(&peer.file(), mark.option.c_str());
    if (option == nullptr || option->ui == PPD_UI_PICKMANY) continue;
    if (mark.option == "PageRegion" || isForPstops(mark.option)) continue;
    if (!text.empty()) text += " ";
    text += mark.option + "=" + (mark.values.empty() ? mark.choice : customChoice(mark));
  }
  return text;
}

}  // namespace driver_feature::equivalence
