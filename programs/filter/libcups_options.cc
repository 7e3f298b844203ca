#include "programs/filter/libcups_options.h"

#include <algorithm>
#include <array>

#include "host/ppd/plain/keywords.h"

namespace driver_feature::filter {

namespace {

constexpr std::array<std::string_view, 13> kOfUsers = {"finishings",
                                                       "finishing-template",
                                                       "media",
                                                       "media-col",
                                                       "mirror",
                                                       "multiple-document-handling",
                                                       "output-bin",
                                                       "output-mode",
                                                       "print-color-mode",
                                                       "print-quality",
                                                       "printer-resolution",
                                                       "resolution",
                                                       "sides"};

constexpr std::array<std::string_view, 4> kOfPrograms = {"AP_D_InputSlot", "APPrinterPreset",
                                                         "cupsPrintQuality", "emit-jcl"};

}  // namespace

bool isKnownToLibcups(std::string_view option) {
  return std::find(kOfUsers.begin(), kOfUsers.end(), option) != kOfUsers.end();
}

bool concernsLibcups(std::string_view option) {
  const auto isIt = [option](std::string_view each) { return ppd::equalKeywords(each, option); };
  return std::any_of(kOfUsers.begin(), kOfUsers.end(), isIt) ||
         std::any_of(kOfPrograms.begin(), kOfPrograms.end(), isIt);
}

}  // namespace driver_feature::filter
