// The characters of XML texts in UTF-8, as far as plain documents need them.
#ifndef PLATFORM_COMMON_API_XML_CHARACTERS_H_
#define PLATFORM_COMMON_API_XML_CHARACTERS_H_

#include <array>
#include <cstddef>

namespace driver_feature {

// What a byte may be. Those of characters beyond ASCII have only the last
// class, and are looked at by lengthOfCharacter().
enum CharacterClass : unsigned char {
  kNameStart = 1,  // The first character of a name.
  kNamePart = 2,   // Any other.
  kBlank = 4,
  kValuePart =
      8,  // An attribute's value holds it as it is: no line end, tabulator, quote or markup.
  kContentPart = 16,  // So does the text between elements: no line end, markup or "]".
  kAscii = 32,        // All of ASCII that XML can hold.
  kNameByte = 64,     // Of any name, with a prefix or beyond ASCII.
};

constexpr std::array<unsigned char, 256> characterClasses() {
  std::array<unsigned char, 256> classes{};
  for (unsigned c = 0x20; c < 0x80; ++c) {
    classes[c] |= kAscii;
    if (c != '<' && c != '&' && c != '"' && c != '\'') classes[c] |= kValuePart;
    if (c != '<' && c != '&' && c != ']') classes[c] |= kContentPart;
  }
  for (unsigned c = 'a'; c <= 'z'; ++c) classes[c] |= kNameStart | kNamePart;
  for (unsigned c = 'A'; c <= 'Z'; ++c) classes[c] |= kNameStart | kNamePart;
  for (unsigned c = '0'; c <= '9'; ++c) classes[c] |= kNamePart;
  for (const char c : {'_', '-', '.'}) classes[static_cast<unsigned char>(c)] |= kNamePart;
  classes['_'] |= kNameStart;
  for (const char c : {' ', '\t', '\r', '\n'}) {
    classes[static_cast<unsigned char>(c)] |= kBlank | kAscii;
  }
  for (const char c : {'\t', '\r'}) classes[static_cast<unsigned char>(c)] |= kContentPart;
  for (unsigned c = 0; c < 256; ++c) {
    if (c >= 0x80 || c == ':' || (classes[c] & kNamePart) != 0) classes[c] |= kNameByte;
  }
  return classes;
}

inline constexpr auto kCharacterClasses = characterClasses();

inline bool isOfClass(char c, unsigned classes) {
  return (kCharacterClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

// The number of bytes of the character beyond ASCII at `text`; 0 if it is not
// proper UTF-8 or XML cannot hold it. Never looks past a terminating NUL.
std::size_t lengthOfCharacter(const char* text);

// The length of the reference at `text`, from "&" to ";", and its character;
// 0 unless it is one of a character that XML can hold, or of the five entities
// that need no declaration.
std::size_t readReference(const char* text, unsigned& character);

// Writes the character in UTF-8, up to four bytes. Returns their end.
char* writeCharacter(unsigned character, char* out);

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_XML_CHARACTERS_H_
