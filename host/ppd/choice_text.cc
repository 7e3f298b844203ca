#include "host/ppd/choice_text.h"

namespace driver_feature::ppd {

std::string sectionText(ppd_section_t section, const std::string& title, const std::string& code) {
  if (section == PPD_ORDER_JCL || section == PPD_ORDER_EXIT) return code;
  std::string text = "[{\n%%BeginFeature: " + title + "\n" + code;
  if (!code.empty() && code.back() != '\n') text += '\n';
  return text + "%%EndFeature\n} stopped cleartomark\n";
}

std::string_view textOf(const char* text) {
  return text != nullptr ? text : "";
}

bool isCustom(const ppd_choice_t& choice) {
  return textOf(choice.choice) == "Custom";
}

std::string codeOf(const ppd_choice_t& choice) {
  return std::string(textOf(choice.code));
}

std::string titleOf(const ppd_option_t& option, const ppd_choice_t& choice) {
  return std::string("*") + option.keyword + " " + choice.choice;
}

}  // namespace driver_feature::ppd
