#include "host/ppd/queue/read_back.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "host/ppd/plain/ppd_statements.h"
#include "host/ppd/choice_text.h"
#include "host/ppd/ppd_file.h"
#include "host/ppd/queue/nameless_file.h"

namespace driver_feature::ppd {

namespace {

// A line such as `*Keyword Option: "value"` in its parts.
struct QueueLine {
  std::string keyword;
  std::string option;
  std::string value;
};

QueueLine partsOf(const std::string& line) {
  const std::string_view keyword = statementKeyword(line);
  const std::size_t colon = line.find(':');
  QueueLine parts{std::string(keyword), "", line.substr(std::min(colon + 2, line.size()))};
  const std::size_t option = keyword.size() + 2;
  if (option < colon) parts.option = line.substr(option, colon - option);
  if (parts.value.starts_with('"')) parts.value = parts.value.substr(1, parts.value.size() - 2);
  return parts;
}

bool isFilter(const QueueLine& line) {
  return line.keyword == "cupsFilter";
}

bool holds(ppd_file_t& ppd, const QueueLine& line) {
  for (const ppd_attr_t* attribute = ppdFindAttr(&ppd, line.keyword.c_str(), nullptr);
       attribute != nullptr; attribute = ppdFindNextAttr(&ppd, line.keyword.c_str(), nullptr)) {
    if (attribute->name == line.keyword && attribute->spec == line.option &&
        textOf(attribute->value) == line.value) {
      return true;
    }
  }
  return false;
}

bool isSame(const ppd_option_t& one, const ppd_option_t& other) {
  if (std::strcmp(one.keyword, other.keyword) != 0 || one.num_choices != other.num_choices ||
      std::strcmp(one.defchoice, other.defchoice) != 0 || one.section != other.section) {
    return false;
  }
  return std::equal(one.choices, one.choices + one.num_choices, other.choices,
                    [](const ppd_choice_t& first, const ppd_choice_t& second) {
                      return std::strcmp(first.choice, second.choice) == 0 &&
                             textOf(first.code) == textOf(second.code);
                    });
}

// Whether the options, page sizes and the job-control language are the same.
bool isSame(const ppd_file_t& one, const ppd_file_t& other) {
  const auto isSameGroup = [](const ppd_group_t& first, const ppd_group_t& second) {
    return first.num_options == second.num_options &&
           std::equal(first.options, first.options + first.num_options, second.options,
                      [](const ppd_option_t& left, const ppd_option_t& right) {
                        return isSame(left, right);
                      });
  };
  return one.num_groups == other.num_groups && one.num_sizes == other.num_sizes &&
         std::equal(one.groups, one.groups + one.num_groups, other.groups, isSameGroup) &&
         textOf(one.jcl_begin) == textOf(other.jcl_begin) &&
         textOf(one.jcl_ps) == textOf(other.jcl_ps) && textOf(one.jcl_end) == textOf(other.jcl_end);
}

}  // namespace

std::optional<UnusablePpd> readBack(const std::string& text, const std::vector<std::string>& lines,
                                    const ppd_file_t* printer) {
  const int file = fileWith(text);
  if (file == -1) return UnusablePpd{std::string("no temporary file: ") + std::strerror(errno)};
  const PpdPointer ppd(ppdOpenFd(file));
  if (!ppd) {
    UnusablePpd unusable;
    unusable.reason = ppdErrorString(ppdLastError(&unusable.line));
    return unusable;
  }
  int filters = 0;
  for (const std::string& line : lines) {
    const QueueLine parts = partsOf(line);
    if (isFilter(parts)) ++filters;
    if (!holds(*ppd, parts)) return UnusablePpd{"it does not find the line " + line};
  }
  if (ppd->num_filters != filters) return UnusablePpd{"it finds filters that are not the queue's"};
  if (printer != nullptr && !isSame(*ppd, *printer)) {
    return UnusablePpd{"it finds other options than in the printer's PPD"};
  }
  return std::nullopt;
}

}  // namespace driver_feature::ppd
