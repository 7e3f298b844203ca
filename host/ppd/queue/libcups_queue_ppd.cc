#include "host/ppd/queue/libcups_queue_ppd.h"

#include <cups/ppd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "host/description/description_index.h"
#include "host/ppd/choice_text.h"
#include "host/ppd/queue/page_ppd.h"

namespace driver_feature::ppd {

namespace {

constexpr const char* kNotSet = "not set";

bool isText(const ppd_cparam_t& parameter) {
  return parameter.type == PPD_CUSTOM_STRING || parameter.type == PPD_CUSTOM_PASSWORD ||
         parameter.type == PPD_CUSTOM_PASSCODE;
}

// Nothing for a parameter whose value nobody knows.
std::optional<std::string> valueOf(const ppd_cparam_t& parameter) {
  if (isText(parameter)) return std::string(textOf(parameter.current.custom_string));
  switch (parameter.type) {
    case PPD_CUSTOM_INT:
      return std::to_string(parameter.current.custom_int);
    case PPD_CUSTOM_POINTS:
      return host::numberText(parameter.current.custom_points);
    case PPD_CUSTOM_CURVE:
    case PPD_CUSTOM_INVCURVE:
    case PPD_CUSTOM_REAL:
      return host::numberText(parameter.current.custom_real);
    default:
      return std::nullopt;
  }
}

// What `write` writes to a file.
template <class Write>
std::string written(const Write& write) {
  char* text = nullptr;
  std::size_t size = 0;
  std::FILE* file = ::open_memstream(&text, &size);
  if (file == nullptr) throw std::bad_alloc();
  write(file);
  std::fclose(file);
  std::string result(text, size);
  std::free(text);
  return result;
}

}  // namespace

LibcupsQueuePpd::LibcupsQueuePpd(const std::string& path, PpdPointer ppd)
    : path_(path),
      ppd_(std::move(ppd)),
      foreignNames_(LibcupsQueuePpd::attributes("DriverFeatureChoice")) {}

host::Result<std::unique_ptr<LibcupsQueuePpd>> LibcupsQueuePpd::open(const std::string& path) {
  host::Result<PpdPointer> ppd = readPpd(path);
  if (!ppd) return failureOf(ppd);
  return std::make_unique<LibcupsQueuePpd>(path, std::move(*ppd));
}

std::vector<std::string> LibcupsQueuePpd::attributes(const std::string& name) const {
  std::vector<std::string> values;
  for (const ppd_attr_t* attribute = ppdFindAttr(ppd_.get(), name.c_str(), nullptr);
       attribute != nullptr; attribute = ppdFindNextAttr(ppd_.get(), name.c_str(), nullptr)) {
    values.emplace_back(textOf(attribute->value));
  }
  return values;
}

std::optional<std::string> LibcupsQueuePpd::keywordOf(const std::string& option) const {
  const ppd_option_t* found = ppdFindOption(ppd_.get(), option.c_str());
  if (found == nullptr) return std::nullopt;
  return found->keyword;
}

bool LibcupsQueuePpd::hasChoice(const std::string& option, const std::string& value) const {
  ppd_option_t* found = ppdFindOption(ppd_.get(), option.c_str());
  return found != nullptr &&
         ppdFindChoice(found, foreignNames_.choiceNamed(option, value).c_str()) != nullptr;
}

bool LibcupsQueuePpd::understands(const host::Setting& option) {
  ppdMarkDefaults(ppd_.get());
  std::vector<ppd_choice_t*> choices;
  for (ppd_option_t* one : optionsOf(*ppd_)) {
    for (ppd_choice_t* choice : ppd::choicesOf(*one)) choices.push_back(choice);
  }
  for (ppd_choice_t* choice : choices) choice->marked = 0;
  cups_option_t* list = nullptr;
  const int count = cupsAddOption(option.name.c_str(), option.value.c_str(), 0, &list);
  cupsMarkOptions(ppd_.get(), count, list);
  cupsFreeOptions(count, list);
  return std::any_of(choices.begin(), choices.end(),
                     [](const ppd_choice_t* choice) { return choice->marked != 0; });
}

std::vector<std::string> LibcupsQueuePpd::choicesOf(const std::string& option) const {
  std::vector<std::string> names;
  ppd_option_t* found = ppdFindOption(ppd_.get(), option.c_str());
  if (found == nullptr) return names;
  for (const ppd_choice_t* choice : ppd::choicesOf(*found)) {
    names.emplace_back(choice->choice);
  }
  return names;
}

void LibcupsQueuePpd::mark(const std::vector<host::Setting>& options) {
  cups_option_t* list = nullptr;
  int count = 0;
  for (const host::Setting& option : options) {
    const std::string choice = foreignNames_.choiceNamed(option.name, option.value);
    count = cupsAddOption(option.name.c_str(), choice.c_str(), count, &list);
  }
  ppdMarkDefaults(ppd_.get());
  cupsMarkOptions(ppd_.get(), count, list);
  cupsFreeOptions(count, list);
  // Decides which of PageSize and PageRegion is used.
  emittedText(*ppd_, PPD_ORDER_ANY);
}

std::vector<host::Setting> LibcupsQueuePpd::marked() const {
  std::vector<host::Setting> settings;
  for (ppd_option_t* option : optionsOf(*ppd_)) addMarked(*option, settings);
  return settings;
}

void LibcupsQueuePpd::addMarked(ppd_option_t& option, std::vector<host::Setting>& settings) const {
  const std::string keyword = option.keyword;
  if (option.ui == PPD_UI_PICKMANY) {
    for (const ppd_choice_t* choice : ppd::choicesOf(option)) {
      settings.push_back({keyword + "." + choice->choice, choice->marked != 0 ? "True" : "False"});
    }
    return;
  }
  const ppd_choice_t* choice = ppdFindMarkedChoice(ppd_.get(), option.keyword);
  // The parameters first, so that the choice finds them in their place.
  if (choice != nullptr && isCustom(*choice)) addParameters(keyword, settings);
  settings.push_back(
      {keyword, choice != nullptr ? foreignNames_.nameOf(keyword, choice->choice) : kNotSet});
}

void LibcupsQueuePpd::addParameters(const std::string& keyword,
                                    std::vector<host::Setting>& settings) const {
  const ppd_coption_t* custom = ppdFindCustomOption(ppd_.get(), keyword.c_str());
  if (custom == nullptr) return;
  for (auto* each = static_cast<ppd_cparam_t*>(cupsArrayFirst(custom->params)); each != nullptr;
       each = static_cast<ppd_cparam_t*>(cupsArrayNext(custom->params))) {
    const std::optional<std::string> value = valueOf(*each);
    if (!value) continue;
    std::string name = keyword;
    name.append(".").append(each->name);
    settings.push_back({name, *value});
  }
}

bool LibcupsQueuePpd::isMarked(const std::string& option, const std::string& choice) const {
  return ppdIsMarked(ppd_.get(), option.c_str(), choice.c_str()) != 0;
}

// With 0 for the numbers of custom choices.
std::string LibcupsQueuePpd::wholeJobBegin(int job, const std::string& user,
                                           const std::string& title) const {
  const CustomNumbersAway away(*ppd_);
  return written(
      [&](std::FILE* file) { ppdEmitJCL(ppd_.get(), file, job, user.c_str(), title.c_str()); });
}

std::string LibcupsQueuePpd::jobBegin(int job, const std::string& user,
                                      const std::string& title) const {
  const std::string whole = wholeJobBegin(job, user, title);
  const std::string rest = emittedText(*ppd_, PPD_ORDER_JCL) + jclToPostScript();
  if (!whole.ends_with(rest)) return "";
  return whole.substr(0, whole.size() - rest.size());
}

bool LibcupsQueuePpd::hasHeaderLike() const {
  return wholeJobBegin(0, "", "").find("%!") != std::string::npos;
}

std::string LibcupsQueuePpd::jobEnd() const {
  // Without the queue's own filter libcups would end the job itself.
  if (ppd_->jcl_end == nullptr && !attributes("DriverFeatureEndOfFile").empty()) return "\x04";
  return written([&](std::FILE* file) { ppdEmitJCLEnd(ppd_.get(), file); });
}

std::string LibcupsQueuePpd::jobPatch() const {
  if (ppd_->patches == nullptr) return "";
  return "%%BeginFeature: *JobPatchFile 1\n" + std::string(ppd_->patches) + "\n%%EndFeature\n";
}

std::string LibcupsQueuePpd::exitServer() const {
  return emittedText(*ppd_, PPD_ORDER_EXIT);
}

std::string LibcupsQueuePpd::jclBegin() const {
  return std::string(textOf(ppd_->jcl_begin));
}

std::string LibcupsQueuePpd::jclToPostScript() const {
  return std::string(textOf(ppd_->jcl_ps));
}

std::string LibcupsQueuePpd::jclEnd() const {
  return std::string(textOf(ppd_->jcl_end));
}

bool LibcupsQueuePpd::fillsLastSheet() const {
  return ppd::fillsLastSheet(*ppd_);
}

bool LibcupsQueuePpd::stacksReversed() const {
  return ppd::stacksReversed(*ppd_);
}

int LibcupsQueuePpd::mostCopies() const {
  return ppd::mostCopies(*ppd_);
}

std::string LibcupsQueuePpd::pagePpd() const {
  return ppd::pagePpd(ppd_.get());
}

}  // namespace driver_feature::ppd
