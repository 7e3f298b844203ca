#include "host/completion/place.h"

#include <CLI/CLI.hpp>

namespace driver_feature {

namespace {

using Options = std::vector<const CLI::Option*>;

class Walk {
 public:
  explicit Walk(const CLI::App& program) : program_(program) {}

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
    if (++place_.item < wordsBehind(*place_.argument)) return;
    place_.argument = nullptr;
    place_.item = 0;
  }

  void readCommand(const std::string& word) {
    for (const CLI::App* command : commandsOf(program_)) {
      if (command->get_name() == word) place_.command = command;
    }
  }

  void readPositional(const std::string& word) {
    const CLI::Option* argument = positional();
    if (argument != nullptr && argument->get_name(true) == "DESC") place_.description = word;
    ++positionals_;
  }

  const CLI::Option* positional() const {
    const Options all = place_.command->get_options(
        [](const CLI::Option* option) { return option->get_positional(); });
    if (all.empty()) return nullptr;
    if (positionals_ < all.size()) return all[positionals_];
    return all.back()->get_items_expected_max() > 1 ? all.back() : nullptr;
  }

  const CLI::Option* named(const std::string& spelling) const {
    for (const CLI::Option* option : optionsAt(program_, place_.command)) {
      for (const std::string& own : spellingsOf(*option)) {
        if (own == spelling) return option;
      }
    }
    return nullptr;
  }

  void readOption(const std::string& word) {
    const CLI::Option* option = named(word);
    if (option != nullptr && wordsBehind(*option) > 0) place_.argument = option;
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
    const CLI::Option* option = word.size() > 2 ? named(spelling) : nullptr;
    if (option == nullptr || wordsBehind(*option) == 0) return;
    place_.argument = option;
    place_.prefix = word.substr(0, isLong ? equals + 1 : 2);
    place_.word = word.substr(place_.prefix.size());
  }

  const CLI::App& program_;
  Place place_;
  std::size_t positionals_ = 0;  // Read so far.
};

}  // namespace

std::vector<const CLI::App*> commandsOf(const CLI::App& program) {
  return program.get_subcommands([](const CLI::App*) { return true; });
}

Options optionsAt(const CLI::App& program, const CLI::App* command) {
  const auto isNamed = [](const CLI::Option* option) { return option->nonpositional(); };
  Options options;
  if (command != nullptr) options = command->get_options(isNamed);
  for (const CLI::Option* option : program.get_options(isNamed)) {
    const bool isHelpAgain = command != nullptr && option == program.get_help_ptr();
    if (!isHelpAgain) options.push_back(option);
  }
  return options;
}

std::vector<std::string> spellingsOf(const CLI::Option& option) {
  std::vector<std::string> spellings;
  for (const std::string& name : option.get_snames()) spellings.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) spellings.push_back("--" + name);
  return spellings;
}

int wordsBehind(const CLI::Option& option) {
  return option.get_items_expected_max() == 0 ? 0 : option.get_type_size_max();
}

Place findPlace(const CLI::App& program, const std::vector<std::string>& words) {
  Walk walk(program);
  for (std::size_t i = 0; i + 1 < words.size(); ++i) walk.read(words[i]);
  return walk.end(words.empty() ? "" : words.back());
}

}  // namespace driver_feature
