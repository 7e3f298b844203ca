#include "host/settings/secret_outputs.h"

#include <algorithm>
#include <map>
#include <set>

#include "host/settings/setting.h"
#include "host/settings/settings_text.h"

namespace driver_feature::host {

namespace {

std::string inHexadecimal(const std::string& value, const char* digits) {
  std::string text;
  for (const char character : value) {
    const auto byte = static_cast<unsigned char>(character);
    text += digits[byte >> 4U];
    text += digits[byte & 15U];
  }
  return text;
}

std::string asPostScript(const std::string& value) {
  std::string text;
  for (const char character : value) {
    if (character == '(' || character == ')' || character == '\\') text += '\\';
    text += character;
  }
  return text;
}

std::string asXml(const std::string& value) {
  std::string text;
  for (const char character : value) {
    switch (character) {
      case '&':
        text += "&amp;";
        break;
      case '<':
        text += "&lt;";
        break;
      case '>':
        text += "&gt;";
        break;
      case '"':
        text += "&quot;";
        break;
      default:
        text += character;
    }
  }
  return text;
}

std::size_t slotOf(char first) {
  return static_cast<unsigned char>(first);
}

}  // namespace

SecretOutputs::SecretOutputs(const std::vector<std::string>& names,
                             const std::vector<std::string_view>& settings) {
  std::map<std::string, std::vector<std::string>> values;  // In the order in which they are seen.
  const std::set<std::string> secret(names.begin(), names.end());
  const auto note = [&](const SettingsLine& line) {
    const auto& [name, value] = line.setting;
    if (!secret.contains(name) || value.empty()) return;
    std::vector<std::string>& known = values[name];
    if (std::ranges::find(known, value) == known.end()) known.push_back(value);
  };
  for (const std::string_view text : settings) {
    const SettingsText parsed = parseSettings(text);
    for (const SettingsLine& line : parsed.features) note(line);
    for (const SettingsRecord& record : parsed.records) {
      for (const SettingsLine& line : record.members) note(line);
    }
  }
  for (const auto& [name, known] : values) {
    for (std::size_t i = 0; i < known.size(); ++i) {
      const std::string number = " (" + std::to_string(i + 1) + ")";
      addForms(known[i], kMask + (known.size() > 1 ? number : ""));
    }
  }
  for (std::vector<Form>& forms : forms_) {
    std::ranges::stable_sort(forms, std::ranges::greater(),
                             [](const Form& form) { return form.spelled.size(); });
  }
}

void SecretOutputs::addForms(const std::string& value, const std::string& mask) {
  isEmpty_ = false;
  for (const std::string& spelled :
       {value, asPostScript(value), asXml(value), inHexadecimal(value, "0123456789ABCDEF"),
        inHexadecimal(value, "0123456789abcdef")}) {
    forms_[slotOf(spelled.front())].push_back({spelled, mask});
  }
}

const SecretOutputs::Form* SecretOutputs::formAt(std::string_view text) const {
  for (const Form& form : forms_[slotOf(text.front())]) {
    if (text.starts_with(form.spelled)) return &form;
  }
  return nullptr;
}

std::vector<SecretOutputs::Place> SecretOutputs::placesIn(std::string_view text) const {
  std::vector<Place> places;
  if (isEmpty_) return places;
  for (std::size_t at = 0; at < text.size();) {
    const Form* form = formAt(text.substr(at));
    if (form != nullptr) places.push_back({at, form->spelled.size(), form->mask});
    at += form != nullptr ? form->spelled.size() : 1;
  }
  return places;
}

std::string SecretOutputs::masked(std::string_view text) const {
  std::string result;
  std::size_t from = 0;
  for (const auto& [offset, size, mask] : placesIn(text)) {
    result += text.substr(from, offset - from);
    result += mask;
    from = offset + size;
  }
  return result.append(text.substr(from));
}

}  // namespace driver_feature::host
