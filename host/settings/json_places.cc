#include "host/settings/json_places.h"

#include <cstddef>

#include <nlohmann/json.hpp>

namespace driver_feature::host {

namespace {

constexpr std::string_view kJsonBlanks = " \t\r\n";

class Walk {
 public:
  explicit Walk(std::string_view text) : text_(text) {}

  std::vector<JsonPlace> places() {
    while (at_ < text_.size()) step();
    return std::move(places_);
  }

 private:
  void step() {
    const char character = text_[at_];
    const bool isBlank = kJsonBlanks.find(character) != std::string_view::npos;
    // The first character of an element that is not a separator begins it.
    if (depth_ == 1 && expectsElement_ && !isBlank && character != ']') {
      places_.push_back({line_, {}});
      expectsElement_ = false;
    }
    if (character == '"') return takeText();
    if (character == '\n') ++line_;
    if (character == '[' || character == '{') ++depth_;
    if (character == ']' || character == '}') --depth_;
    const bool opens = character == '[' && depth_ == 1;
    if (opens || (character == ',' && depth_ == 1)) expectsElement_ = true;
    ++at_;
  }

  void takeText() {
    const std::size_t begin = at_;
    for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
      if (text_[at_] == '\\') ++at_;
    }
    if (at_ < text_.size()) ++at_;
    const std::size_t next = text_.find_first_not_of(kJsonBlanks, at_);
    const bool isName = next != std::string_view::npos && text_[next] == ':';
    if (depth_ != 2 || !isName) return;
    const auto name = nlohmann::json::parse(text_.substr(begin, at_ - begin), nullptr, false);
    if (name.is_string()) places_.back().members[name.get<std::string>()] = line_;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  int line_ = 1;
  int depth_ = 0;
  bool expectsElement_ = false;
  std::vector<JsonPlace> places_;
};

}  // namespace

std::vector<JsonPlace> jsonPlaces(std::string_view text) {
  return Walk(text).places();
}

}  // namespace driver_feature::host
