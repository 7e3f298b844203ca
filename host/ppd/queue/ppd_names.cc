#include "host/ppd/queue/ppd_names.h"

#include "host/base/text.h"

#include <algorithm>
#include <string_view>

namespace driver_feature::ppd {

namespace {

constexpr std::size_t kLongestName = 40;  // Of a keyword or choice in a PPD.

// What a PPD puts in front of the name of an option in other keywords.
constexpr std::string_view kDefault = "Default";
constexpr std::string_view kCustom = "Custom";
constexpr std::string_view kParamCustom = "ParamCustom";

// The lines of a queue, in small letters.
constexpr std::string_view kOwn = "driverfeature";

// Keywords that libcups reads for itself, though an option has them, or that it
// looks for in any spelling.
constexpr std::string_view kKeywords =
    " 1284deviceid accuratescreenssupport closegroup closeui colordevice contoneonly "
    "cupscolorprofile cupscommands cupsfilter cupsfilter2 cupsflipduplex cupsiccprofile "
    "cupslanguages cupsmanualcopies cupsmodelnumber cupsprefilter cupsuiconstraints "
    "cupsuiresolver defaultcolorspace emulators end filesystem fileversion font formatversion "
    "hwmargins imageablearea include jclbegin jclcloseui jclend jclopenui jcltopsinterpreter "
    "jobpatchfile landscapeorientation languageencoding languagelevel languageversion "
    "manufacturer modelname nickname nonuiconstraints nonuiorderdependency opengroup openui "
    "orderdependency paperdimension pcfilename ppd-adobe product protocols psversion "
    "requirespageregion shortnickname throughput ttrasterizer uiconstraints variablepapersize ";

bool isName(const std::string& name, std::size_t longest) {
  return !name.empty() && name.size() <= longest &&
         std::all_of(name.begin(), name.end(), [](char c) {
           return c > ' ' && c < 0x7f && c != '/' && c != ':' && c != '"' && c != '*';
         });
}

}  // namespace

bool isChoiceName(const std::string& name) {
  // libcups takes what begins so for a value of the user's own.
  const bool isValue = name.starts_with('{') || host::toLower(name).starts_with("custom.");
  return isName(name, kLongestName) && !isValue;
}

bool isOptionName(const std::string& name, bool isList) {
  const std::size_t longest = kLongestName - (isList ? kDefault : kParamCustom).size();
  // A dot would make it the parameter or the translation of another one.
  const bool hasDot = name.find('.') != std::string::npos;
  return isName(name, longest) && !hasDot && !name.starts_with(kCustom) &&
         !name.starts_with(kDefault) && !name.starts_with(kParamCustom) &&
         !host::toLower(name).starts_with(kOwn) &&
         kKeywords.find(" " + host::toLower(name) + " ") == std::string_view::npos;
}

}  // namespace driver_feature::ppd
