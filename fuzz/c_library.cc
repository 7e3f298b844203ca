#include "fuzz/c_library.h"

#include <locale.h>

#include <cstdio>
#include <cstdlib>

namespace driver_feature::fuzz {

namespace {

class InCLocale {
 public:
  InCLocale() : before_(uselocale(locale())) {}
  ~InCLocale() { uselocale(before_); }
  InCLocale(const InCLocale&) = delete;
  InCLocale& operator=(const InCLocale&) = delete;

 private:
  static locale_t locale() {
    static const locale_t made = newlocale(LC_ALL_MASK, "C", nullptr);
    return made;
  }

  locale_t before_;
};

template <class Value>
std::string print(const std::string& commandTemplate, Value value) {
  const InCLocale inForce;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
  const int length = std::snprintf(nullptr, 0, commandTemplate.c_str(), value);
  if (length < 0) {
    std::fprintf(stderr, "the C library refuses template \"%s\"\n", commandTemplate.c_str());
    std::abort();
  }
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  std::snprintf(text.data(), text.size(), commandTemplate.c_str(), value);
#pragma GCC diagnostic pop
  text.pop_back();
  return text;
}

}  // namespace

std::string printed(const std::string& commandTemplate, int value) {
  return print(commandTemplate, value);
}

std::string printed(const std::string& commandTemplate, double value) {
  return print(commandTemplate, value);
}

std::string printed(const std::string& commandTemplate, const char* value) {
  return print(commandTemplate, value);
}

float toFloat(const std::string& text) {
  const InCLocale inForce;
  return static_cast<float>(std::strtod(text.c_str(), nullptr));
}

}  // namespace driver_feature::fuzz
