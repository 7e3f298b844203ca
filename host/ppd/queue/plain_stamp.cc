#include "host/ppd/queue/plain_stamp.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "host/ppd/choice_text.h"
#include "host/ppd/plain/plain_queue_ppd.h"
#include "host/ppd/queue/libcups_queue_ppd.h"
#include "host/ppd/queue/nameless_file.h"

namespace driver_feature::ppd {

namespace {

// What only libcups carries out.
constexpr const char* kAttributesForLibcups[] = {"PageStackOrder", "cupsEvenDuplex",
                                                 "cupsMaxCopies", "cupsPJLDisplay"};
constexpr const char* kOptionsForLibcups[] = {"AP_D_InputSlot", "MirrorPrint"};

bool needsLibcups(ppd_file_t& ppd) {
  const bool hasAttribute =
      std::any_of(std::begin(kAttributesForLibcups), std::end(kAttributesForLibcups),
                  [&ppd](const char* name) { return ppdFindAttr(&ppd, name, nullptr) != nullptr; });
  const bool hasOption =
      std::any_of(std::begin(kOptionsForLibcups), std::end(kOptionsForLibcups),
                  [&ppd](const char* name) { return ppdFindOption(&ppd, name) != nullptr; });
  return hasAttribute || hasOption || ppd.patches != nullptr;
}

// Whether libcups writes something for the option that the filter must know.
bool isWrittenByLibcups(ppd_option_t& option) {
  if (option.section == PPD_ORDER_EXIT) return true;
  if (option.section != PPD_ORDER_JCL) return false;
  const std::vector<ppd_choice_t*> choices = choicesOf(option);
  return std::any_of(choices.begin(), choices.end(), [](const ppd_choice_t* choice) {
    return textOf(choice->code).find("%!") != std::string_view::npos;
  });
}

bool isSame(ppd_option_t& option, const PlainOption& plain) {
  if (plain.keyword != option.keyword || plain.defaultName != option.defchoice) return false;
  if (option.ui == PPD_UI_PICKMANY || isWrittenByLibcups(option)) return false;
  std::vector<ppd_choice_t*> choices = choicesOf(option);
  // PlainQueuePpd cannot mark the custom choice.
  std::erase_if(choices, [](const ppd_choice_t* choice) { return isCustom(*choice); });
  return std::equal(choices.begin(), choices.end(), plain.choices.begin(), plain.choices.end(),
                    [](const ppd_choice_t* choice, const PlainChoice& other) {
                      return other.name == choice->choice &&
                             other.isBare == textOf(choice->code).empty();
                    });
}

bool haveSameOptions(ppd_file_t& ppd, const PlainText& plain) {
  const std::vector<ppd_option_t*> options = optionsOf(ppd);
  return std::equal(
      options.begin(), options.end(), plain.options.begin(), plain.options.end(),
      [](ppd_option_t* option, const PlainOption& other) { return isSame(*option, other); });
}

bool haveSameTexts(const LibcupsQueuePpd& ppd, const PlainQueuePpd& plain) {
  constexpr const char* kSettings[] = {"Description", "Library", "Routines", "RefusedValue",
                                       "Rules",       "Choice",  "EndOfFile"};
  const bool haveSameSettings =
      std::all_of(std::begin(kSettings), std::end(kSettings), [&](const char* setting) {
        const std::string name = std::string("DriverFeature") + setting;
        return ppd.attributes(name) == plain.attributes(name);
      });
  return haveSameSettings && ppd.jclBegin() == plain.jclBegin() &&
         ppd.jclToPostScript() == plain.jclToPostScript() && ppd.jclEnd() == plain.jclEnd() &&
         ppd.jobBegin(7, "jane", "a/title") == plain.jobBegin(7, "jane", "a/title") &&
         ppd.jobEnd() == plain.jobEnd() && !ppd.hasHeaderLike();
}

bool markSame(LibcupsQueuePpd& ppd, PlainQueuePpd& plain,
              const std::vector<host::Setting>& options) {
  ppd.mark(options);
  plain.mark(options);
  const auto isSame = [](const host::Setting& one, const host::Setting& other) {
    return one.name == other.name && one.value == other.value;
  };
  const std::vector<host::Setting> marked = ppd.marked();
  const std::vector<host::Setting> others = plain.marked();
  return std::equal(marked.begin(), marked.end(), others.begin(), others.end(), isSame);
}

// The defaults, and each choice of what the page size depends on.
bool alwaysMarkSame(LibcupsQueuePpd& ppd, PlainQueuePpd& plain) {
  if (!markSame(ppd, plain, {})) return false;
  for (const char* keyword : {"InputSlot", "ManualFeed", "PageRegion"}) {
    for (const std::string& choice : plain.choicesOf(keyword)) {
      if (!markSame(ppd, plain, {{keyword, choice}})) return false;
    }
  }
  return true;
}

// Whether libcups knows each page size.
bool hasSizes(ppd_file_t& ppd, const PlainQueuePpd& plain) {
  const std::vector<std::string> sizes = plain.choicesOf("PageSize");
  return std::all_of(sizes.begin(), sizes.end(), [&ppd](const std::string& name) {
    const ppd_size_t* size = ppdPageSize(&ppd, name.c_str());
    return size != nullptr && name == size->name;
  });
}

}  // namespace

std::string plainStampLine(const std::string& text) {
  const std::unique_ptr<PlainQueuePpd> plain = PlainQueuePpd::of("", text);
  const int file = plain ? fileWith(text) : -1;
  if (file == -1) return "";
  PpdPointer read(ppdOpenFd(file));
  if (!read || needsLibcups(*read)) return "";
  LibcupsQueuePpd ppd("", std::move(read));
  if (!haveSameOptions(ppd.file(), plain->text()) || !hasSizes(ppd.file(), *plain) ||
      !alwaysMarkSame(ppd, *plain) || !haveSameTexts(ppd, *plain)) {
    return "";
  }
  return "*" + std::string(kStampKeyword) + ": \"" + plain->text().stamp + "\"";
}

}  // namespace driver_feature::ppd
