#include "host/ppd/queue/minimal_ppd.h"

#include <string_view>

#include "host/ppd/queue/made_options.h"

namespace driver_feature::ppd {

namespace {

// What stays of a text where a PPD wants a name for users.
std::string plainText(const std::string& text) {
  constexpr std::string_view kAllowed = " .-+/0123456789";
  std::string plain;
  for (const char c : text) {
    const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    plain += isLetter || kAllowed.find(c) != std::string_view::npos ? c : ' ';
  }
  if (plain.find_first_not_of(' ') == std::string::npos) return "Printer";
  return plain.substr(0, 30);
}

}  // namespace

MinimalPpd minimalPpd(const host::Model& model, const host::Additions& additions,
                      const std::string& name, const std::vector<std::string>& queueLines) {
  MinimalPpd ppd;
  MadeOptionWriter writer(model, additions, ppd.losses);
  writer.addAll();
  const std::string constraints = constraintLines(additions.rules, writer.options(), ppd.losses);
  const std::string plain = plainText(name);
  std::string head = "*PPD-Adobe: \"4.3\"\n";
  for (const std::string& line : queueLines) head += line + "\n";
  head += "*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n" + writer.texts().languageLines() +
          "*PCFileName: \"QUEUE.PPD\"\n*Manufacturer: \"Generic\"\n"
          "*Product: \"(" +
          plain +
          ")\"\n*PSVersion: \"(3010.000) 0\"\n"
          "*ModelName: \"" +
          plain + "\"\n*ShortNickName: \"" + plain +
          "\"\n"
          "*NickName: \"" +
          plain +
          " with driver-feature\"\n"
          "*LanguageLevel: \"3\"\n*ColorDevice: True\n*DefaultColorSpace: RGB\n"
          "*FileSystem: False\n*Throughput: \"1\"\n*LandscapeOrientation: Plus90\n"
          "*TTRasterizer: Type42\n*DefaultFont: Courier\n"
          "*Font Courier: Standard \"(1.0)\" Standard ROM\n";
  ppd.text = head + writer.text() + constraints + writer.texts().translationLines();
  return ppd;
}

}  // namespace driver_feature::ppd
