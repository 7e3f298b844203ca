// Completions of the word that is being typed.
#ifndef PROGRAMS_DRIVER_FEATURE_COMPLETION_CANDIDATES_H_
#define PROGRAMS_DRIVER_FEATURE_COMPLETION_CANDIDATES_H_

#include <string>
#include <vector>

#include "programs/driver_feature/arguments.h"

namespace driver_feature::cli {

struct Candidate {
  std::string text;     // The whole word, what is typed of it included.
  std::string meaning;  // One line for the user; may be empty.

  bool operator==(const Candidate&) const = default;
};

struct Completion {
  bool files = false;                 // A file name belongs here; the shell knows those.
  std::string filePrefix;             // The part of the word before the file name.
  std::vector<Candidate> candidates;  // All begin with what is typed.
};

// Completes the last of the words; see findPlace().
Completion complete(const ProgramRows& program, const std::vector<std::string>& words);

// True when the kind of every word of an argument is known here. A kind is
// what the help calls the word: FILE, NAME=VALUE and so on.
bool hasKnownKinds(const ArgumentRow& argument);

// The completion as the shells' functions read it. The first line is "words",
// or "files" with a tab and the prefix; then each candidate has a line: its
// text, a tab and its meaning. Candidates with control characters are left out.
std::string completionText(const Completion& completion);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMPLETION_CANDIDATES_H_
