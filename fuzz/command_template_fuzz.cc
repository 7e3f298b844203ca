// Feeds arbitrary command templates and values to the formatter of commands.
// It must accept exactly the templates of its grammar, and write what the C
// library's own formatter writes for every template that C defines.
//
// The input is one byte for the kind of value, the template up to a NUL, and
// the value: a text, or the bytes of an int or a float.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/c_library.h"
#include "fuzz/template_reading.h"
#include "templates/command_template.h"

namespace driver_feature::fuzz {
namespace {

// Longer templates find nothing that shorter ones do not.
constexpr std::size_t kLongestInput = 1024;

[[noreturn]] void fail(const std::string& commandTemplate, const std::string& what) {
  std::fprintf(stderr, "template \"%s\": %s\n", commandTemplate.c_str(), what.c_str());
  std::abort();
}

bool has(const TemplateReading& reading, char flag) {
  return reading.flags.find(flag) != std::string::npos;
}

// False where C does not define the result, or where glibc has a known fault.
bool isDefined(const TemplateReading& reading) {
  switch (reading.letter) {
    case 's':
    case 'c':
      return reading.flags.find_first_not_of('-') == std::string::npos;
    case 'g':
    case 'G':
      // glibc loses a digit where rounding adds one to the exponent.
      return !has(reading, '#');
    default:
      return true;
  }
}

// Formats, and checks what is true of every value. False when there is nothing
// to compare with the C library.
template <class Value>
bool format(const std::string& commandTemplate, const Value& value, const TemplateReading& reading,
            std::string& output) {
  output = "untouched";
  const bool isTaken = formatCommand(commandTemplate, value, output);
  if (isTaken != reading.isTaken) {
    fail(commandTemplate, isTaken ? "taken, and should not be" : "refused, and should not be");
  }
  if (!isTaken && output != "untouched") fail(commandTemplate, "refused with an output");
  return isTaken && isDefined(reading);
}

template <class Value>
void compare(const std::string& commandTemplate, const std::string& output,
             const TemplateReading& reading, Value value) {
  const std::string expected = printed(reading.forPrintf, value);
  if (output == expected) return;
  fail(commandTemplate, "gives \"" + output + "\", expected \"" + expected + "\"");
}

void tryText(const std::string& commandTemplate, const std::string& value) {
  const TemplateReading reading = readTemplate(commandTemplate, kTextGrammar);
  std::string output;
  if (!format(commandTemplate, std::string_view(value), reading, output)) return;
  // The C library ends at a NUL.
  if (value.find('\0') != std::string::npos) return;
  compare(commandTemplate, output, reading, value.c_str());
}

void tryInteger(const std::string& commandTemplate, int value) {
  const TemplateReading reading = readTemplate(commandTemplate, kIntegerGrammar);
  std::string output;
  if (!format(commandTemplate, value, reading, output)) return;
  compare(commandTemplate, output, reading, value);
}

void tryFloat(const std::string& commandTemplate, double value) {
  const TemplateReading reading = readTemplate(commandTemplate, kFloatGrammar);
  std::string output;
  if (!format(commandTemplate, value, reading, output)) return;
  compare(commandTemplate, output, reading, value);
}

// The first bytes of a text as a number; what is missing is 0.
template <class Number>
Number numberFrom(const std::string& bytes) {
  char copy[sizeof(Number)] = {};
  std::memcpy(copy, bytes.data(), std::min(bytes.size(), sizeof(copy)));
  Number number{};
  std::memcpy(&number, copy, sizeof(number));
  return number;
}

void tryInput(unsigned char kind, const std::string& input) {
  const std::size_t end = input.find('\0');
  const std::string commandTemplate = input.substr(0, end);
  const std::string value = end == std::string::npos ? "" : input.substr(end + 1);
  switch (kind % 3) {
    case 0:
      return tryText(commandTemplate, value);
    case 1:
      return tryInteger(commandTemplate, numberFrom<int>(value));
    default:
      // Values are floats that were widened.
      return tryFloat(commandTemplate, static_cast<double>(numberFrom<float>(value)));
  }
}

}  // namespace
}  // namespace driver_feature::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2 || size > driver_feature::fuzz::kLongestInput) return 0;
  driver_feature::fuzz::tryInput(data[0],
                                 std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
  return 0;
}
