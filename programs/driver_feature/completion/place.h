// What the next word of a command line is. Taken from the rows of the command
// line, so that no command or option is named here.
#ifndef PROGRAMS_DRIVER_FEATURE_COMPLETION_PLACE_H_
#define PROGRAMS_DRIVER_FEATURE_COMPLETION_PLACE_H_

#include <string>
#include <vector>

#include "programs/driver_feature/arguments.h"

namespace driver_feature::cli {

struct Place {
  const CommandRow* command = nullptr;    // The command given so far; null before there is one.
  const ArgumentRow* argument = nullptr;  // Whose word it is; null for a command or an option.
  int item = 0;                           // Which of the argument's words, from 0.
  bool optionsEnded = false;              // "--" comes before it.
  std::string prefix;                     // The part of the word before the argument's own text,
                                          // such as "--output=" or "-o".
  std::string word;                       // The argument's own text, as far as it is typed.
  std::string description;                // The DESC on the line; empty when there is none yet.
};

// The words of the line without the program's name; the last one is the word
// to be completed and may be empty. No words count as one empty word.
Place findPlace(const ProgramRows& program, const std::vector<std::string>& words);

// The options that may be given at a place: those of the command, then the
// program's own.
std::vector<const ArgumentRow*> optionsAt(const ProgramRows& program, const CommandRow* command);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMPLETION_PLACE_H_
