#include "host/settings/value_place.h"

#include <algorithm>

#include "templates/conversion.h"

namespace driver_feature::host {

namespace {

// Takes the text in front of the conversion as it is written, "%%" as a per
// cent sign, and the conversion's letter. False without a conversion.
bool takeFront(std::string_view commandTemplate, std::string& front, char& letter) {
  while (!commandTemplate.empty()) {
    const std::size_t literal = std::min(commandTemplate.find('%'), commandTemplate.size());
    front.append(commandTemplate.substr(0, literal));
    commandTemplate.remove_prefix(literal);
    if (commandTemplate.empty()) return false;
    commandTemplate.remove_prefix(1);
    if (commandTemplate.starts_with('%')) {
      front.push_back('%');
      commandTemplate.remove_prefix(1);
      continue;
    }
    const auto conversion = takeConversion(commandTemplate);
    if (conversion) letter = conversion->letter;
    return conversion.has_value();
  }
  return false;
}

// PJL strings end with their line at the latest. They know no escapes.
ValuePlace placeInPjl(std::string_view front) {
  front.remove_prefix(front.rfind('\n') + 1);  // 0 without a line end.
  // What follows the universal exit begins a line, too.
  constexpr std::string_view kExit = "\x1B%-12345X";
  if (front.ends_with(kExit)) front = {};
  if (front.empty()) return ValuePlace::kPjlLineStart;
  const bool isOpen = std::count(front.begin(), front.end(), '"') % 2 != 0;
  return isOpen ? ValuePlace::kPjlString : ValuePlace::kPjlLine;
}

// Reads PostScript, character by character.
class PostScriptReader {
 public:
  void read(char character) {
    switch (place_) {
      case ValuePlace::kPostScriptString:
        readInString(character);
        break;
      case ValuePlace::kPostScriptComment:
        if (std::string_view("\r\n\f").find(character) != std::string_view::npos) end();
        break;
      case ValuePlace::kPostScriptHexString:
        readInHexString(character);
        break;
      case ValuePlace::kPostScriptBase85String:
        if (previous_ == '~' && character == '>') end();
        break;
      default:
        readOutside(character);
        break;
    }
    previous_ = character;
  }

  ValuePlace place() const { return place_; }

 private:
  void end() { place_ = ValuePlace::kPostScriptToken; }

  void readOutside(char character) {
    if (character == '%') place_ = ValuePlace::kPostScriptComment;
    if (character == '<') {
      place_ = ValuePlace::kPostScriptHexString;
      atStart_ = true;
    }
    if (character != '(') return;
    place_ = ValuePlace::kPostScriptString;
    depth_ = 1;
  }

  void readInString(char character) {
    if (isEscaped_) {
      isEscaped_ = false;
      return;
    }
    if (character == '\\') isEscaped_ = true;
    if (character == '(') ++depth_;
    if (character == ')' && --depth_ == 0) end();
  }

  // The character after the first bracket shows whether it is "<<" or "<~".
  void readInHexString(char character) {
    if (character == '>' || (atStart_ && character == '<')) end();
    if (atStart_ && character == '~') place_ = ValuePlace::kPostScriptBase85String;
    atStart_ = false;
  }

  ValuePlace place_ = ValuePlace::kPostScriptToken;
  bool atStart_ = false;
  bool isEscaped_ = false;
  int depth_ = 0;
  char previous_ = 0;
};

ValuePlace placeInPostScript(std::string_view front) {
  PostScriptReader reader;
  for (const char character : front) reader.read(character);
  return reader.place();
}

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

bool isHexDigit(char character) {
  return isDigit(character) || (character >= 'A' && character <= 'F') ||
         (character >= 'a' && character <= 'f');
}

// Bytes beyond ASCII begin binary tokens.
bool isRegular(char character) {
  return character > ' ' && character < 0x7F &&
         std::string_view("()<>[]{}/%").find(character) == std::string_view::npos;
}

bool isUnsafe(ValuePlace place, char character) {
  switch (place) {
    case ValuePlace::kPjlString:
      return isControlCharacter(character) || character == '"';
    case ValuePlace::kPostScriptToken:
      return !isRegular(character);
    case ValuePlace::kPostScriptString:
      return isControlCharacter(character) ||
             std::string_view("()\\").find(character) != std::string_view::npos;
    case ValuePlace::kPostScriptHexString:
      return !isHexDigit(character);
    case ValuePlace::kPostScriptBase85String:
      return !(character >= '!' && character <= 'u') && character != 'z';
    default:
      return isControlCharacter(character);
  }
}

}  // namespace

std::optional<TemplateValue> findValue(CommandLanguage language,
                                       const std::vector<std::string>& templates) {
  TemplateValue value;
  std::string front;
  for (const std::string& text : templates) {
    if (!takeFront(text, front, value.letter)) return std::nullopt;
  }
  value.place = language == CommandLanguage::kPjl ? placeInPjl(front) : placeInPostScript(front);
  return value;
}

const char* wordsOf(ValuePlace place) {
  switch (place) {
    case ValuePlace::kPjlLineStart:
      return "at the beginning of a PJL line";
    case ValuePlace::kPjlLine:
      return "in a PJL line";
    case ValuePlace::kPjlString:
      return "in a quoted PJL string";
    case ValuePlace::kPostScriptToken:
      return "in PostScript outside a string";
    case ValuePlace::kPostScriptString:
      return "in a PostScript string";
    case ValuePlace::kPostScriptHexString:
      return "in a hexadecimal PostScript string";
    case ValuePlace::kPostScriptBase85String:
      return "in a base-85 PostScript string";
    case ValuePlace::kPostScriptComment:
      break;
  }
  return "in a PostScript comment";
}

std::optional<unsigned char> findUnsafeByte(ValuePlace place, std::string_view value) {
  // The sign begins a command of PJL.
  if (place == ValuePlace::kPjlLineStart && value.starts_with('@')) return '@';
  for (const char character : value) {
    if (isUnsafe(place, character)) return static_cast<unsigned char>(character);
  }
  return std::nullopt;
}

bool isControlCharacter(char character) {
  return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

}  // namespace driver_feature::host
