#include "host/ppd/custom/custom_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>

namespace driver_feature::ppd {

namespace {

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

bool isPrintable(char character) {
  return character >= ' ' && character <= '~';
}

// Takes the number off the front of `text`; -1 for one that is too large.
int takeNumber(std::string_view& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return error == std::errc() ? number : -1;
}

}  // namespace

std::string planText(const CustomPlan& plan) {
  std::string text = plan.feature + "=" + plan.option;
  for (const CustomValue& value : plan.values) {
    text += " " + std::to_string(value.order) + (value.isNumber ? "=#" : "=") + value.text;
  }
  return text;
}

std::optional<CustomPlan> readPlan(const std::string& text) {
  std::istringstream words(text);
  CustomPlan plan;
  std::string word;
  bool first = true;
  while (words >> word) {
    // A feature's name may hold the sign, its option "Custom" or "True" does not.
    const std::size_t equals = first ? word.rfind('=') : word.find('=');
    if (equals == std::string::npos) return std::nullopt;
    const std::string right = word.substr(equals + 1);
    std::string_view left = std::string_view(word).substr(0, equals);
    if (first) {
      plan.feature = left;
      plan.option = right;
    } else {
      const int order = takeNumber(left);
      if (!left.empty() || right.empty()) return std::nullopt;
      const bool isNumber = right.front() == '#';
      plan.values.push_back({order, isNumber ? right.substr(1) : right, isNumber});
    }
    first = false;
  }
  if (first) return std::nullopt;
  return plan;
}

std::string postScriptWithValues(std::string_view command, const std::vector<std::string>& values) {
  const std::size_t first = std::min(command.find('\n'), command.size());
  std::size_t place = command.find('\n', first + 1);
  place = place == std::string_view::npos ? command.size() : place + 1;
  std::string text(command.substr(0, place));
  for (const std::string& value : values) text += value + "\n";
  text += command.substr(place);
  return text;
}

std::string pjlWithValues(std::string_view command, const std::vector<NumberedValue>& values) {
  std::string text;
  while (!command.empty()) {
    const char character = command.front();
    command.remove_prefix(1);
    if (character != '\\') {
      text += character;
    } else if (!command.empty() && isDigit(command.front())) {
      const int order = takeNumber(command);
      const auto value = std::find_if(
          values.begin(), values.end(),
          [order](const NumberedValue& candidate) { return candidate.order == order; });
      if (value != values.end()) text += value->text;
    } else if (!command.empty()) {
      text += command.front();
      command.remove_prefix(1);
    }
  }
  return text;
}

std::string customNumber(double value) {
  std::array<char, 512> buffer;
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          std::chars_format::fixed, 12);
  if (error != std::errc()) return "0";
  std::string text(buffer.data(), end);
  if (text.find('.') == std::string::npos) return text;  // Not a finite number.
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string customString(std::string_view text) {
  std::string string = "(";
  for (const char character : text) {
    if (isPrintable(character) && character != '(' && character != ')' && character != '\\') {
      string += character;
      continue;
    }
    const unsigned byte = static_cast<unsigned char>(character);
    string += '\\';
    for (const unsigned shift : {6U, 3U, 0U}) {
      string += static_cast<char>('0' + ((byte >> shift) & 7U));
    }
  }
  return string + ")";
}

std::string customPjlText(std::string_view text) {
  std::string result(text);
  for (char& character : result) {
    if (character == '"') character = '\'';
    if (!isPrintable(character)) character = '?';
  }
  return result;
}

}  // namespace driver_feature::ppd
