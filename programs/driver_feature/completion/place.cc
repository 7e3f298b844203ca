#include "programs/driver_feature/completion/place.h"

namespace driver_feature::cli {

namespace {

using Rows = std::vector<const ArgumentRow*>;

// How many words follow an argument each time that it is given; 0 for a flag.
int wordsAfter(const ArgumentRow& row) {
  return static_cast<int>(kindsOf(row).size());
}

class Walk {
 public:
  explicit Walk(const ProgramRows& program) : program_(program) {}

  // Reads a word that is complete.
  void read(const std::string& word) {
    if (place_.argument != nullptr) {
      nextItem();
    } else if (!place_.optionsEnded && word == "--") {
      place_.optionsEnded = true;
    } else if (!place_.optionsEnded && word.size() > 1 && word.front() == '-') {
      readOption(word);
    } else if (place_.command == nullptr) {
      readCommand(word);
    } else {
      readPositional(word);
    }
  }

  // The place of the word that is being typed.
  Place end(const std::string& word) {
    place_.word = word;
    if (place_.argument != nullptr) return place_;
    const bool isOption = !place_.optionsEnded && !word.empty() && word.front() == '-';
    if (isOption) {
      splitOption(word);
    } else if (place_.command != nullptr) {
      place_.argument = positional();
    }
    return place_;
  }

 private:
  void nextItem() {
    if (++place_.item < wordsAfter(*place_.argument)) return;
    place_.argument = nullptr;
    place_.item = 0;
  }

  void readCommand(const std::string& word) {
    for (const CommandRow* command : program_.commands) {
      if (command->name == word) place_.command = command;
    }
  }

  void readPositional(const std::string& word) {
    const ArgumentRow* argument = positional();
    if (argument != nullptr && argument->name == std::string("DESC")) place_.description = word;
    ++positionals_;
  }

  const ArgumentRow* positional() const {
    Rows all = place_.command->arguments();
    std::erase_if(all, [](const ArgumentRow* row) { return row->isOption(); });
    if (all.empty()) return nullptr;
    if (positionals_ < all.size()) return all[positionals_];
    return all.back()->has(kRepeats) ? all.back() : nullptr;
  }

  const ArgumentRow* named(const std::string& spelling) const {
    for (const ArgumentRow* option : optionsAt(program_, place_.command)) {
      for (const std::string& own : spellingsOf(*option)) {
        if (own == spelling) return option;
      }
    }
    return nullptr;
  }

  void readOption(const std::string& word) {
    const ArgumentRow* option = named(word);
    if (option != nullptr && wordsAfter(*option) > 0) place_.argument = option;
    if (option != nullptr) return;
    splitOption(word);
    if (place_.argument != nullptr) nextItem();
    place_.prefix.clear();
  }

  // Takes "--option=TEXT" and "-oTEXT" apart.
  void splitOption(const std::string& word) {
    const bool isLong = word.starts_with("--");
    const std::size_t equals = word.find('=');
    if (isLong && equals == std::string::npos) return;
    const std::string spelling = word.substr(0, isLong ? equals : 2);
    const ArgumentRow* option = word.size() > 2 ? named(spelling) : nullptr;
    if (option == nullptr || wordsAfter(*option) == 0) return;
    place_.argument = option;
    place_.prefix = word.substr(0, isLong ? equals + 1 : 2);
    place_.word = word.substr(place_.prefix.size());
  }

  const ProgramRows& program_;
  Place place_;
  std::size_t positionals_ = 0;  // Read so far.
};

}  // namespace

Rows optionsAt(const ProgramRows& program, const CommandRow* command) {
  Rows options;
  if (command != nullptr) options = command->arguments();
  std::erase_if(options, [](const ArgumentRow* row) { return !row->isOption(); });
  for (const ArgumentRow& row : program.general) options.push_back(&row);
  return options;
}

Place findPlace(const ProgramRows& program, const std::vector<std::string>& words) {
  Walk walk(program);
  for (std::size_t i = 0; i + 1 < words.size(); ++i) walk.read(words[i]);
  return walk.end(words.empty() ? "" : words.back());
}

}  // namespace driver_feature::cli
