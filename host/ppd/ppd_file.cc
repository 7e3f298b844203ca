#include "host/ppd/ppd_file.h"

#include <sys/stat.h>

#include <strings.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace driver_feature {

namespace {

// What keeps the file from being opened; 0 when it can be tried.
int obstacle(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return errno;
  return S_ISDIR(status.st_mode) ? EISDIR : 0;
}

bool isNumber(ppd_cptype_t type) {
  return type == PPD_CUSTOM_CURVE || type == PPD_CUSTOM_INT || type == PPD_CUSTOM_INVCURVE ||
         type == PPD_CUSTOM_POINTS || type == PPD_CUSTOM_REAL;
}

PpdProblem openProblem(const std::string& path, int systemError) {
  return {path + ": cannot be opened: " + std::strerror(systemError), "file cannot be opened"};
}

PpdProblem problemOf(const std::string& path, int systemError) {
  int line = 0;
  const ppd_status_t status = ppdLastError(&line);
  if (status == PPD_FILE_OPEN_ERROR) return openProblem(path, systemError);
  // Whatever is wrong with the first line; 0 when it is not even ended.
  if (status == PPD_MISSING_PPDADOBE4 || line <= 1) {
    return {path + ":1: this is no PPD file: it does not begin with *PPD-Adobe: \"4.",
            "no PPD file"};
  }
  const std::string reason = ppdErrorString(status);
  return {path + ":" + std::to_string(line) + ": libcups cannot read the PPD file: " + reason +
              "; correct the line (cupstestppd explains more)",
          reason};
}

}  // namespace

PpdPointer readPpd(const std::string& path, PpdProblem& problem) {
  if (const int systemError = obstacle(path); systemError != 0) {
    problem = openProblem(path, systemError);
    return nullptr;
  }
  errno = 0;
  PpdPointer ppd(ppdOpenFile(path.c_str()));
  if (!ppd) {
    problem = problemOf(path, errno);
    return nullptr;
  }
  ppdMarkDefaults(ppd.get());
  // Settles what stands for the page size.
  emittedText(*ppd, PPD_ORDER_ANY);
  return ppd;
}

std::vector<ppd_option_t*> optionsOf(ppd_file_t& ppd) {
  std::vector<ppd_option_t*> options;
  for (int i = 0; i < ppd.num_groups; ++i) {
    ppd_group_t& group = ppd.groups[i];
    for (int j = 0; j < group.num_options; ++j) options.push_back(&group.options[j]);
  }
  return options;
}

std::vector<ppd_choice_t*> choicesOf(ppd_option_t& option) {
  std::vector<ppd_choice_t*> choices;
  choices.reserve(static_cast<std::size_t>(option.num_choices));
  for (int i = 0; i < option.num_choices; ++i) choices.push_back(&option.choices[i]);
  return choices;
}

bool equalKeywords(const char* left, const char* right) {
  return strcasecmp(left, right) == 0;
}

CustomNumbersAway::CustomNumbersAway(ppd_file_t& ppd) {
  for (auto* custom = cupsArrayFirst(ppd.coptions); custom != nullptr;
       custom = cupsArrayNext(ppd.coptions)) {
    cups_array_t* parameters = static_cast<ppd_coption_t*>(custom)->params;
    for (auto* each = cupsArrayFirst(parameters); each != nullptr;
         each = cupsArrayNext(parameters)) {
      auto* parameter = static_cast<ppd_cparam_t*>(each);
      if (!isNumber(parameter->type)) continue;
      away_.emplace_back(parameter, parameter->current);
      parameter->current = {};
    }
  }
}

CustomNumbersAway::~CustomNumbersAway() {
  for (const auto& [parameter, value] : away_) parameter->current = value;
}

std::string emittedText(ppd_file_t& ppd, ppd_section_t section) {
  const CustomNumbersAway away(ppd);
  const std::unique_ptr<char, void (*)(void*)> text(ppdEmitString(&ppd, section, 0), std::free);
  return text ? text.get() : "";
}

}  // namespace driver_feature
