#include "fuzz/template_reading.h"

#include <cstddef>

namespace driver_feature::fuzz {

namespace {

constexpr unsigned kHighestField = 4096;

class Reader {
 public:
  Reader(const std::string& text, const Grammar& grammar) : text_(text), grammar_(grammar) {}

  TemplateReading read() {
    result_.isTaken = readAll();
    return result_;
  }

 private:
  bool readAll() {
    while (next_ < text_.size()) {
      const char character = take();
      if (character != '%') continue;
      if (peek() == '%') {
        take();
      } else if (result_.letter != 0 || !readConversion()) {
        return false;
      }
    }
    return true;
  }

  bool readConversion() {
    result_.flags = takeAny("-+ #0");
    if (!readField()) return false;
    if (peek() == '.') {
      take();
      if (!readField()) return false;
    }
    readLength();
    result_.letter = peek();
    if (result_.letter == 0 || grammar_.letters.find(result_.letter) == std::string_view::npos) {
      return false;
    }
    take();
    return result_.length.empty() || (result_.letter != 'c' && isKnownLength());
  }

  bool isKnownLength() const {
    return grammar_.lengths.find(" " + result_.length + " ") != std::string_view::npos;
  }

  bool readField() {
    unsigned number = 0;
    for (const char digit : takeAny("0123456789")) {
      number = number * 10 + static_cast<unsigned>(digit - '0');
      if (number > kHighestField) return false;
    }
    return true;
  }

  // Only the letters that narrow an integer are for printf.
  void readLength() {
    const std::size_t before = result_.forPrintf.size();
    result_.length = takeAny("hljztL");
    if (result_.length != "h" && result_.length != "hh") result_.forPrintf.resize(before);
  }

  char peek() const { return next_ < text_.size() ? text_[next_] : '\0'; }

  char take() {
    result_.forPrintf += text_[next_];
    return text_[next_++];
  }

  std::string takeAny(std::string_view set) {
    std::string taken;
    while (peek() != 0 && set.find(peek()) != std::string_view::npos) taken += take();
    return taken;
  }

  const std::string& text_;
  const Grammar& grammar_;
  std::size_t next_ = 0;
  TemplateReading result_;
};

}  // namespace

TemplateReading readTemplate(const std::string& text, const Grammar& grammar) {
  return Reader(text, grammar).read();
}

}  // namespace driver_feature::fuzz
