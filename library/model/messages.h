// How the library writes to the platform's log.
//
// Texts are whole in the source, with "{}" where a name or number goes, so
// that a search for a log line finds the place that writes it:
//
//   logComposed(Level::kWarning, "CreateFeature() - No default value for feature \"{}\", using 0.",
//               name);
//
// Inserted texts are copied as they are, braces and NUL characters included.
#ifndef MODEL_MESSAGES_H_
#define MODEL_MESSAGES_H_

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <type_traits>

namespace driver_feature {

inline constexpr const char* kLogCategory = "DriverFeature";

enum class Level : int {
  kError = 1,        // A loader failure.
  kMisuse = 2,       // Structural misuse, an absent optional setting, a lost value.
  kWarning = 3,      // Work goes on.
  kInformation = 4,  // Skips and failed look-ups by attribute value.
};

// A message text with one "{}" per inserted text, counted at compile time.
template <std::size_t kInserts>
class MessageText {
 public:
  consteval MessageText(const char* text) : text_(text) {
    std::size_t found = 0;
    for (std::size_t at = text_.find("{}"); at != text_.npos; at = text_.find("{}", at + 2)) {
      ++found;
    }
    if (found != kInserts) throw "the message takes another number of texts";
  }
  constexpr std::string_view get() const { return text_; }

 private:
  std::string_view text_;
};

// Logs a fixed text and leaves the platform's message buffer alone.
void logFixed(Level level, const char* text);

// Composes the text in the platform's message buffer and logs the buffer.
void logComposedText(Level level, std::string_view text,
                     std::initializer_list<std::string_view> inserts);

template <class... Inserts>
void logComposed(Level level, std::type_identity_t<MessageText<sizeof...(Inserts)>> text,
                 const Inserts&... inserts) {
  logComposedText(level, text.get(), {std::string_view(inserts)...});
}

}  // namespace driver_feature

#endif  // MODEL_MESSAGES_H_
