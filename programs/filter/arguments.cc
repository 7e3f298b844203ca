#include "programs/filter/arguments.h"

#include <charconv>
#include <cstddef>

namespace driver_feature::filter {

namespace {

bool readCount(std::string_view text, int lowest, int& number) {
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && read.ptr == text.data() + text.size() && number >= lowest;
}

}  // namespace

host::Result<FilterArguments> readArguments(int argc, const char* const* argv,
                                            const OptionParser& parseOptions) {
  if (argc < 6 || argc > 7) {
    return host::refused(
        "wrong usage; give JOB USER TITLE COPIES OPTIONS [FILE], as a print scheduler does");
  }
  FilterArguments arguments;
  if (!readCount(argv[1], 0, arguments.job)) {
    return host::refused("the job \"" + std::string(argv[1]) +
                         "\" is not a number; give the number of the job");
  }
  arguments.user = argv[2];
  arguments.title = argv[3];
  if (!readCount(argv[4], 1, arguments.copies)) {
    return host::refused("the copies \"" + std::string(argv[4]) +
                         "\" are not a number from 1 up; give 1 or more");
  }
  arguments.options = parseOptions(argv[5]);
  if (argc == 7) arguments.file = argv[6];
  return arguments;
}

std::string harmless(std::string_view text) {
  std::string result;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7f) {
      result += ' ';
    } else {
      result += c == '"' ? '\'' : c;
    }
  }
  return result;
}

}  // namespace driver_feature::filter
