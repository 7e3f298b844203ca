#include "host/completion/candidates.h"

#include <algorithm>
#include <map>
#include <sstream>

#include <CLI/CLI.hpp>

#include "host/completion/description_names.h"
#include "host/completion/place.h"
#include "host/emit.h"

namespace driver_feature {

namespace {

class Composer {
 public:
  explicit Composer(const Place& place) : place_(place) {}

  // Adds a candidate for the argument's own text, when that may become it.
  void add(const std::string& text, const std::string& meaning = "") {
    if (!text.starts_with(place_.word)) return;
    completion_.candidates.push_back({place_.prefix + text, meaning});
  }

  void addFiles(const std::string& inner = "") {
    completion_.files = true;
    completion_.filePrefix = place_.prefix + inner;
  }

  const Place& place() const { return place_; }
  Completion take() { return std::move(completion_); }

 private:
  const Place& place_;
  Completion completion_;
};

void addNothing(Composer&) {}

void addFileNames(Composer& composer) {
  composer.addFiles();
}

void addForms(Composer& composer) {
  const std::string& word = composer.place().word;
  const std::size_t equals = word.find('=');
  if (equals != std::string::npos) return composer.addFiles(word.substr(0, equals + 1));
  const std::size_t comma = word.rfind(',');
  const std::string before = comma == std::string::npos ? "" : word.substr(0, comma + 1);
  for (const std::string& form : formNames()) composer.add(before + form);
}

bool holdsValue(const NamedFeature& feature) {
  return feature.type == "MultiSelect" || feature.type == "IntEntry" ||
         feature.type == "TextEntry" || feature.type == "FloatEntry";
}

void addSettings(Composer& composer) {
  const std::string& word = composer.place().word;
  const bool valueBegun = word.find('=') != std::string::npos;
  for (const NamedFeature& feature : readNames(composer.place().description).features) {
    const std::string start = feature.name + "=";
    if (!valueBegun && holdsValue(feature)) composer.add(start, feature.type);
    if (!valueBegun || !word.starts_with(start)) continue;
    for (const std::string& option : feature.options) composer.add(start + option);
  }
}

void addNames(Composer& composer) {
  const DescriptionNames names = readNames(composer.place().description);
  for (const NamedFeature& feature : names.features) composer.add(feature.name, feature.type);
  for (const std::string& group : names.staticGroups) composer.add(group, "static group");
  for (const std::string& group : names.dynamicGroups) composer.add(group, "dynamic group");
}

void addDynamicGroups(Composer& composer) {
  const DescriptionNames names = readNames(composer.place().description);
  for (const std::string& group : names.dynamicGroups) composer.add(group, "dynamic group");
}

using AddKind = void (*)(Composer&);

// What may stand for each kind of word.
const std::map<std::string, AddKind>& kinds() {
  static const std::map<std::string, AddKind> kKinds = {
      {"FILE", &addFileNames},    {"PATH", &addFileNames},      {"LIB.so", &addFileNames},
      {"FORM[=FILE]", &addForms}, {"NAME=VALUE", &addSettings}, {"GROUP", &addDynamicGroups},
      {"TEXT", &addNothing},      {"CODE", &addNothing},        {"DIR", &addFileNames}};
  return kKinds;
}

// The kinds of the words of an argument: "GROUP FILE" has two.
std::vector<std::string> kindsOf(const CLI::Option& argument) {
  std::vector<std::string> kinds;
  std::istringstream words(argument.get_type_name());
  for (std::string word; words >> word;) {
    if (word.ends_with("...")) word.erase(word.size() - 3);
    kinds.push_back(word);
  }
  return kinds;
}

void addArgument(Composer& composer) {
  const CLI::Option& argument = *composer.place().argument;
  if (argument.get_positional() && argument.get_name(true) == "NAME") return addNames(composer);
  const std::vector<std::string> words = kindsOf(argument);
  const auto item = static_cast<std::size_t>(composer.place().item);
  if (words.empty()) return;
  const auto kind = kinds().find(words[std::min(item, words.size() - 1)]);
  if (kind != kinds().end()) kind->second(composer);
}

void addOptions(const CLI::App& program, Composer& composer) {
  for (const CLI::Option* option : optionsAt(program, composer.place().command)) {
    for (const std::string& spelling : spellingsOf(*option)) {
      composer.add(spelling, option->get_description());
    }
  }
}

bool isPlain(const std::string& text) {
  return std::none_of(text.begin(), text.end(), [](char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7f;
  });
}

}  // namespace

Completion complete(const CLI::App& program, const std::vector<std::string>& words) {
  const Place place = findPlace(program, words);
  Composer composer(place);
  if (place.argument != nullptr) {
    addArgument(composer);
  } else if (!place.optionsEnded && place.word.starts_with('-')) {
    addOptions(program, composer);
  } else if (place.command == nullptr) {
    for (const CLI::App* command : commandsOf(program)) {
      composer.add(command->get_name(), command->get_description());
    }
  }
  return composer.take();
}

bool hasKnownKinds(const CLI::Option& argument) {
  if (wordsBehind(argument) == 0) return true;
  const std::vector<std::string> words = kindsOf(argument);
  return words.size() == static_cast<std::size_t>(wordsBehind(argument)) &&
         std::all_of(words.begin(), words.end(),
                     [](const std::string& word) { return kinds().contains(word); });
}

std::string completionText(const Completion& completion) {
  std::string text = completion.files ? "files\t" + completion.filePrefix + "\n" : "words\n";
  for (const Candidate& candidate : completion.candidates) {
    if (!isPlain(candidate.text)) continue;
    text += candidate.text + "\t" + candidate.meaning + "\n";
  }
  return text;
}

}  // namespace driver_feature
