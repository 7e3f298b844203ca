// Where on the command line the next word stands: what the program would read
// it as. Taken from the command line's own model, so that no command or option
// has to be named here.
#ifndef HOST_COMPLETION_PLACE_H_
#define HOST_COMPLETION_PLACE_H_

#include <string>
#include <vector>

namespace CLI {  // NOLINT(readability-identifier-naming): the name is the library's.
class App;
class Option;
}  // namespace CLI

namespace driver_feature {

struct Place {
  const CLI::App* command = nullptr;      // The command given so far; null before there is one.
  const CLI::Option* argument = nullptr;  // Whose word it is; null for a command or an option.
  int item = 0;                           // Which of the argument's words, from 0.
  bool optionsEnded = false;              // "--" stands before it.
  std::string prefix;                     // The part of the word before the argument's own text,
                                          // such as "--output=" or "-o".
  std::string word;                       // The argument's own text, as far as it is typed.
  std::string description;                // The DESC on the line; empty when there is none yet.
};

// The words of the line without the program's name; the last one is the word
// to be completed and may be empty. No words count as one empty word.
Place findPlace(const CLI::App& program, const std::vector<std::string>& words);

// The commands of the program.
std::vector<const CLI::App*> commandsOf(const CLI::App& program);

// The options that may be given at a place: those of the command, then the
// program's own.
std::vector<const CLI::Option*> optionsAt(const CLI::App& program, const CLI::App* command);

// How an option is written, its short forms first: "-o", "--option".
std::vector<std::string> spellingsOf(const CLI::Option& option);

// How many words stand behind an option each time it is given; 0 for a flag.
int wordsBehind(const CLI::Option& option);

}  // namespace driver_feature

#endif  // HOST_COMPLETION_PLACE_H_
