#include "host/ppd/ppd_file.h"

#include <cups/file.h>
#include <sys/stat.h>

#include <strings.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <limits>

#include "host/base/input_file.h"

namespace driver_feature::ppd {

namespace {

// The errno value for a file that cannot be opened; 0 if no reason is known.
int obstacle(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return errno;
  return S_ISDIR(status.st_mode) ? EISDIR : 0;
}

bool isNumber(ppd_cptype_t type) {
  return type == PPD_CUSTOM_CURVE || type == PPD_CUSTOM_INT || type == PPD_CUSTOM_INVCURVE ||
         type == PPD_CUSTOM_POINTS || type == PPD_CUSTOM_REAL;
}

host::Failure unusable(host::Problem::Kind kind, std::string text, std::string cause) {
  return host::Failure(host::Problem{kind, std::move(text), "", std::move(cause)});
}

host::Failure notOpened(const std::string& path, int systemError) {
  return unusable(host::Problem::Kind::kUnreadable,
                  path + ": cannot be opened: " + std::strerror(systemError),
                  "file cannot be opened");
}

// Whether the file is compressed with gzip and its text does not have the
// length that its last four bytes give. libcups reads such a file as if it were
// complete.
bool isCutOff(const std::string& path) {
  std::error_code ignored;  // libcups then says why the file cannot be opened.
  // A pipe could not be read again.
  if (!std::filesystem::is_regular_file(path, ignored)) return false;
  const host::Result<std::string> file = host::readFile(path);
  if (!file || !file->starts_with("\x1F\x8B") || file->size() < 4) return false;
  std::uint32_t length = 0;
  for (std::size_t i = 1; i <= 4; ++i) {
    length = (length << 8U) | static_cast<unsigned char>((*file)[file->size() - i]);
  }
  return static_cast<std::uint32_t>(ppdBytes(path).size()) != length;
}

// Makes libcups mark the option that sets the page size, as it does before it
// writes. It then writes nothing, because no order dependency is at least NaN:
// to sort all options would take time with the square of their number.
void settlePageSize(ppd_file_t& ppd) {
  std::free(ppdEmitString(&ppd, PPD_ORDER_ANY, std::numeric_limits<float>::quiet_NaN()));
}

host::Failure failureOfLibcups(const std::string& path, int systemError) {
  int line = 0;
  const ppd_status_t status = ppdLastError(&line);
  if (status == PPD_FILE_OPEN_ERROR) return notOpened(path, systemError);
  // Any problem with the first line; 0 when the line has no end.
  if (status == PPD_MISSING_PPDADOBE4 || line <= 1) {
    return unusable(host::Problem::Kind::kMalformed,
                    path + ":1: this is not a PPD file: it does not begin with *PPD-Adobe: \"4.",
                    "not a PPD file");
  }
  const std::string reason = ppdErrorString(status);
  return unusable(host::Problem::Kind::kMalformed,
                  path + ":" + std::to_string(line) + ": libcups cannot read the PPD file: " +
                      reason + "; correct the line (cupstestppd explains more)",
                  reason);
}

}  // namespace

host::Result<PpdPointer> readPpd(const std::string& path) {
  if (const int systemError = obstacle(path); systemError != 0) return notOpened(path, systemError);
  if (isCutOff(path)) {
    return unusable(
        host::Problem::Kind::kMalformed,
        path + ": the compressed file is cut off or damaged; copy it again (gunzip -t tests it)",
        "compressed file is cut off or damaged");
  }
  errno = 0;
  PpdPointer ppd(ppdOpenFile(path.c_str()));
  if (!ppd) return failureOfLibcups(path, errno);
  ppdMarkDefaults(ppd.get());
  settlePageSize(*ppd);
  return ppd;
}

std::string ppdBytes(const std::string& path) {
  const std::unique_ptr<cups_file_t, int (*)(cups_file_t*)> file(cupsFileOpen(path.c_str(), "r"),
                                                                 &cupsFileClose);
  std::string bytes;
  std::array<char, 65536> buffer;
  while (file) {
    const ssize_t count = cupsFileRead(file.get(), buffer.data(), buffer.size());
    if (count <= 0) break;
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return bytes;
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
  for (int i = 0; i < ppd.num_sizes; ++i) {
    ppd_size_t& size = ppd.sizes[i];
    if (!equalKeywords(size.name, "Custom")) continue;
    sizes_.emplace_back(&size, size);
    size.width = 0;
    size.length = 0;
  }
}

CustomNumbersAway::~CustomNumbersAway() {
  for (const auto& [parameter, value] : away_) parameter->current = value;
  for (const auto& [size, values] : sizes_) {
    size->width = values.width;
    size->length = values.length;
  }
}

std::string emittedText(ppd_file_t& ppd, ppd_section_t section) {
  const CustomNumbersAway away(ppd);
  const std::unique_ptr<char, void (*)(void*)> text(ppdEmitString(&ppd, section, 0), std::free);
  return text ? text.get() : "";
}

}  // namespace driver_feature::ppd
