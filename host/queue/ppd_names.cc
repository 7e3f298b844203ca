#include "host/queue/ppd_names.h"

#include <algorithm>
#include <string_view>

namespace driver_feature {

namespace {

constexpr std::size_t kLongestName = 40;  // Of a keyword or choice in a PPD.

// What a PPD puts in front of the name of an option in other keywords.
constexpr std::string_view kDefault = "Default";
constexpr std::string_view kCustom = "Custom";
constexpr std::string_view kParamCustom = "ParamCustom";

// Keywords that libcups reads for itself, though an option has them.
constexpr std::string_view kKeywords =
    " AccurateScreensSupport CloseGroup CloseUI ColorDevice ContoneOnly DefaultColorSpace "
    "Emulators End FileSystem FileVersion Font FormatVersion HWMargins ImageableArea Include "
    "JCLBegin JCLCloseUI JCLEnd JCLOpenUI JCLToPSInterpreter JobPatchFile LandscapeOrientation "
    "LanguageEncoding LanguageLevel LanguageVersion Manufacturer ModelName NickName "
    "NonUIConstraints NonUIOrderDependency OpenGroup OpenUI OrderDependency PCFileName PPD-Adobe "
    "PaperDimension Product Protocols ShortNickName TTRasterizer Throughput UIConstraints "
    "cupsColorProfile cupsFilter cupsFlipDuplex cupsManualCopies cupsModelNumber ";

bool isName(const std::string& name, std::size_t longest) {
  return !name.empty() && name.size() <= longest &&
         std::all_of(name.begin(), name.end(), [](char c) {
           return c > ' ' && c < 0x7f && c != '/' && c != ':' && c != '"' && c != '*' && c != '.';
         });
}

}  // namespace

bool isChoiceName(const std::string& name) {
  return isName(name, kLongestName);
}

bool isOptionName(const std::string& name, bool isList) {
  const std::size_t longest = kLongestName - (isList ? kDefault : kParamCustom).size();
  return isName(name, longest) && !name.starts_with(kCustom) && !name.starts_with(kDefault) &&
         !name.starts_with(kParamCustom) &&
         kKeywords.find(" " + name + " ") == std::string_view::npos;
}

std::string smallLetters(std::string text) {
  for (char& c : text) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  return text;
}

}  // namespace driver_feature
