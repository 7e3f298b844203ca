#include "programs/filter/plain_job.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "host/ppd/plain/keywords.h"
#include "programs/filter/libcups_options.h"
#include "programs/filter/page_options.h"

namespace driver_feature::filter {

namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool isPlain(const host::Setting& option, const ppd::PlainQueuePpd& ppd) {
  if (concernsLibcups(option.name) || !ppd.knows(option)) return false;
  const PageOptionKind kind = pageOption(option).kind;
  return kind == PageOptionKind::kNone || kind == PageOptionKind::kIdle;
}

// Whether libcups would put the text into job-control language as it is.
bool isPlainName(std::string_view text) {
  return text.find("smbprn.") == std::string_view::npos &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

// The names of the job matter where its beginning has them.
bool hasPlainNames(const PlainJob& job) {
  return job.ppd->jclBegin().empty() ||
         (isPlainName(job.arguments.user) && isPlainName(job.arguments.title));
}

const char* variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace

std::optional<std::vector<host::Setting>> plainOptions(const std::string& text) {
  if (text.find_first_of("'\"\\{}") != std::string::npos) return std::nullopt;
  std::vector<host::Setting> options;
  std::string_view rest = text;
  for (;;) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (rest.empty()) return options;
    const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
    rest.remove_prefix(word.size());
    const std::size_t equals = word.find('=');
    if (equals == 0 || equals == std::string_view::npos) return std::nullopt;
    host::Setting option{std::string(word.substr(0, equals)), std::string(word.substr(equals + 1))};
    const auto place = std::lower_bound(
        options.begin(), options.end(), option,
        [](const auto& a, const auto& b) { return ppd::compareKeywords(a.name, b.name) < 0; });
    const bool isAgain = place != options.end() && ppd::equalKeywords(place->name, option.name);
    if (isAgain) {
      place->value = std::move(option.value);
    } else {
      options.insert(place, std::move(option));
    }
  }
}

std::optional<PlainJob> plainJobOf(int argc, const char* const* argv) {
  if (argc < 6 || *variable("PPD") == '\0' || isClassified()) return std::nullopt;
  std::optional<std::vector<host::Setting>> options = plainOptions(argv[5]);
  if (!options) return std::nullopt;
  auto arguments =
      readArguments(argc, argv, [&options](const std::string&) { return std::move(*options); });
  if (!arguments || arguments->copies != 1) return std::nullopt;
  PlainJob job{std::move(*arguments), ppd::PlainQueuePpd::open(variable("PPD"))};
  if (!job.ppd || !hasPlainNames(job)) return std::nullopt;
  const auto& asked = job.arguments.options;
  const bool isPlainJob = std::all_of(
      asked.begin(), asked.end(), [&job](const auto& option) { return isPlain(option, *job.ppd); });
  if (!isPlainJob) return std::nullopt;
  return job;
}

}  // namespace driver_feature::filter
