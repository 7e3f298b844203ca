#include "host/settings/value_safety.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>
#include <vector>

#include "host/session/group_view.h"
#include "host/settings/value_place.h"

namespace driver_feature::host {

namespace {

struct Command {
  const char* property;
  CommandLanguage language;
};
constexpr Command kCommands[] = {{"PJLCommand", CommandLanguage::kPjl},
                                 {"PSCommand", CommandLanguage::kPostScript}};

// The templates that format the value. A group without one may have a routine
// that writes its members, and changes nothing here.
std::vector<std::string> templatesOf(const Model& model, const std::string& name,
                                     const FeatureView& feature, const std::string& property) {
  std::vector<std::string> templates = {feature.command(property)};
  if (model.set == nullptr) return templates;
  for (const std::string& group : model.index.groupsAround(name)) {
    const auto view = findStaticGroup(*model.set, group);
    if (!view) continue;
    const std::string text = view->command(property);
    if (!text.empty()) templates.insert(templates.begin(), text);
  }
  return templates;
}

// The bytes of the value that a user chooses, as the conversion writes them;
// none for numbers in digits.
std::string bytesOf(FeatureKind kind, char letter, const std::string& value) {
  if (kind == FeatureKind::kTextEntry) return value;
  int number = 0;
  std::string_view text = value;
  if (text.starts_with('+')) text.remove_prefix(1);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (letter != 'c' || result.ec != std::errc()) return "";
  return {static_cast<char>(number)};
}

std::string hexText(unsigned char byte) {
  constexpr std::string_view kHexDigits = "0123456789ABCDEF";
  return {'0', 'x', kHexDigits[byte >> 4U], kHexDigits[byte & 0xFU]};
}

Failure unsafe(const Model& model, const std::string& name, const Command& command,
               ValuePlace place, unsigned char byte) {
  return refused("the value of feature \"" + name + "\" holds byte " + hexText(byte) +
                 ", which is not safe " + wordsOf(place) + ", where " + command.property +
                 " puts it; leave the byte out" + model.allowance + " (" + model.file + ":" +
                 std::to_string(model.index.limitsOf(name).line) + ")");
}

}  // namespace

Result<> refuseUnsafeValue(const Model& model, const std::string& name, const std::string& value) {
  const auto found = model.features.find(name);
  if (model.allowsControlCharacters || found == model.features.end()) return {};
  const FeatureView& feature = found->second;
  const FeatureKind kind = feature.kind();
  if (kind != FeatureKind::kTextEntry && kind != FeatureKind::kIntEntry) return {};
  for (const Command& command : kCommands) {
    const auto written =
        findValue(command.language, templatesOf(model, name, feature, command.property));
    if (!written) continue;
    const auto byte = findUnsafeByte(written->place, bytesOf(kind, written->letter, value));
    if (byte) return unsafe(model, name, command, written->place, *byte);
  }
  return {};
}

Result<> refuseUnsafeProperty(const Model& model, const std::string& name,
                              const std::string& property, const std::string& value) {
  constexpr std::array<std::string_view, 9> kValues = {
      "CurrentIntValue",   "CurrentTextValue", "DefaultIntValue",
      "DefaultTextValue",  "ValueString",      "DeferredIntValue",
      "DeferredTextValue", "OriginalIntValue", "OriginalTextValue"};
  const bool isValue = std::find(kValues.begin(), kValues.end(), property) != kValues.end();
  return isValue ? refuseUnsafeValue(model, name, value) : Result<>();
}

}  // namespace driver_feature::host
