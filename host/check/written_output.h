// What the library writes to PostScript or PJL for the defaults of a
// description, piece by piece, and where each piece is described.
#ifndef HOST_CHECK_WRITTEN_OUTPUT_H_
#define HOST_CHECK_WRITTEN_OUTPUT_H_

#include <cstddef>
#include <string>
#include <vector>

#include "host/description/element.h"

namespace driver_feature::check {

struct OutputLanguage {
  const char* words;
  const char* command;
  const char* routine;
  bool memberRunsOwnRoutine;
};

inline constexpr OutputLanguage kPostScriptOutput = {"PostScript", "PSCommand",
                                                     "AddPSCallbackRoutine", true};
inline constexpr OutputLanguage kPjlOutput = {"PJL", "PJLCommand", "AddPJLCallbackRoutine", false};

struct Piece {
  // The feature or group whose command it is a part of. Nothing is between a
  // piece of one and the next piece of another.
  const host::Element* unit = nullptr;
  const host::Element* owner = nullptr;        // The same, or the option.
  const host::Attribute* attribute = nullptr;  // Null when a routine writes the piece.
  std::size_t offset = 0;                      // Of the text, in the attribute's value.
  bool isValue = false;                        // All of the text is put in at the offset.
  bool isHead = false;  // Of a group: it comes before the members, and may begin their text.
  std::string text;     // Empty for that of a routine.

  host::Position place(std::size_t index) const;
};

using Pieces = std::vector<Piece>;

// The pieces of a list, which are others when another option is selected.
struct WrittenList {
  const host::Element* feature = nullptr;
  const host::Element* selected = nullptr;
  std::size_t begin = 0;
  std::size_t end = 0;
};

struct WrittenOutput {
  Pieces pieces;
  std::vector<WrittenList> lists;
};

WrittenOutput writeOutput(const host::Element& description, const OutputLanguage& language);

// What a list writes when `option` is selected.
Pieces writeOption(const host::Element& feature, const host::Element& option,
                   const OutputLanguage& language);

// "PSCommand of feature "A"".
std::string describePiece(const Piece& piece);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_WRITTEN_OUTPUT_H_
