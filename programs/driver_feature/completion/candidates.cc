#include "programs/driver_feature/completion/candidates.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <map>
#include <set>

#include "host/description/additions.h"
#include "host/description/element.h"
#include "host/session/output_form.h"
#include "programs/driver_feature/completion/place.h"

namespace driver_feature::cli {

namespace {

class Composer {
 public:
  explicit Composer(const Place& place) : place_(place) {}

  // Adds a candidate for the argument's own text, when that may become it.
  // Returns whether it may.
  bool add(const std::string& text, const std::string& meaning = "") {
    if (!text.starts_with(place_.word)) return false;
    completion_.candidates.push_back({place_.prefix + text, meaning});
    return true;
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
  for (const std::string& form : host::formNames()) composer.add(before + form);
}

// Calls `work` with the description that the line names, unless it cannot be read.
// Reads it without the feature library: completing a line must not run routines of
// a description.
void withDescription(const Composer& composer,
                     const std::function<void(const host::Element&)>& work) {
  // Standard input is not there to be read yet.
  if (composer.place().description == host::kStandardInput) return;
  const host::Result<host::Document> document = host::Document::read(composer.place().description);
  if (document) work(*elementsOf(*document).description);
}

// Calls `visit` for the elements of that description with the role.
void forEachNamed(const Composer& composer, host::Role role,
                  const std::function<void(const host::Element&)>& visit) {
  withDescription(composer, [&](const host::Element& description) {
    forEachElement(description, [&](const host::Element& element) {
      if (element.role == role) visit(element);
    });
  });
}

void addNamed(Composer& composer, host::Role role, const char* meaning) {
  forEachNamed(composer, role,
               [&](const host::Element& element) { composer.add(element.name(), meaning); });
}

using Elements = std::vector<const host::Element*>;

// How an element is written on a command line.
struct Words {
  const host::Element* element;
  std::string name;
  std::string key = {};  // Empty without one.
};

// Those of the elements. A key that is the name of another one means that one, and
// of several with the same key, the first has it.
std::vector<Words> wordsFor(const Elements& elements) {
  std::vector<Words> words;
  std::set<std::string> taken = {""};
  for (const host::Element* element : elements) {
    words.push_back({element, element->name()});
    taken.insert(element->name());
  }
  for (Words& word : words) {
    const std::string key = word.element->text("CLOKey");
    if (taken.insert(key).second) word.key = key;
  }
  return words;
}

Elements optionsOf(const host::Element& feature) {
  Elements options;
  for (const auto& child : feature.children) {
    if (child->role == host::Role::kOption) options.push_back(child.get());
  }
  return options;
}

// Options by their names where the feature is named, and by their keys where it has
// been given by its key; by the other ones when what is typed begins only those.
void addValues(Composer& composer, const host::Element& feature, const std::string& start,
               bool byKey) {
  const std::vector<Words> options = wordsFor(optionsOf(feature));
  bool isAdded = false;
  for (const bool wantsKeys : {byKey, !byKey}) {
    if (isAdded) return;
    for (const Words& option : options) {
      const bool isKey = wantsKeys && !option.key.empty();
      isAdded = composer.add(start + (isKey ? option.key : option.name)) || isAdded;
    }
  }
}

void addSetting(Composer& composer, const Words& feature) {
  const std::string& word = composer.place().word;
  const auto& kind = feature.element->kind;
  if (!kind || !holdsValue(*kind)) return;
  for (const bool isKey : {false, true}) {
    if (isKey && feature.key.empty()) continue;
    const std::string start = (isKey ? feature.key : feature.name) + "=";
    if (word.find('=') == std::string::npos) {
      composer.add(start, wordOf(*kind));
    } else if (word.starts_with(start)) {
      addValues(composer, *feature.element, start, isKey);
    }
  }
}

void addSettings(Composer& composer) {
  withDescription(composer, [&](const host::Element& description) {
    Elements features;
    forEachElement(description, [&](const host::Element& element) {
      if (element.role == host::Role::kFeature) features.push_back(&element);
    });
    for (const Words& feature : wordsFor(features)) addSetting(composer, feature);
  });
}

// Of the description and of files beside it.
void addPresets(Composer& composer) {
  if (composer.place().description == host::kStandardInput) return;
  const host::Result<host::Document> document = host::Document::read(composer.place().description);
  if (!document) return;
  for (const host::Preset& preset : readAdditions(*document, host::kPresetsPart).presets) {
    composer.add(preset.name, preset.text);
  }
}

// The languages of the description's texts; their files are not read.
void addLanguages(Composer& composer) {
  if (composer.place().description == host::kStandardInput) return;
  const host::Result<host::Document> document = host::Document::read(composer.place().description);
  if (!document) return;
  for (const std::string& language : host::languagesOf(*document)) composer.add(language);
}

void addNames(Composer& composer) {
  forEachNamed(composer, host::Role::kFeature, [&](const host::Element& feature) {
    composer.add(feature.name(), feature.text("FeatureType"));
  });
  addNamed(composer, host::Role::kStaticGroup, "static group");
  addNamed(composer, host::Role::kDynamicGroup, "dynamic group");
}

void addDynamicGroups(Composer& composer) {
  addNamed(composer, host::Role::kDynamicGroup, "dynamic group");
}

void addAll(Composer& composer, std::initializer_list<const char*> words) {
  for (const char* word : words) composer.add(word);
}

void addFormats(Composer& composer) {
  addAll(composer, {"text", "json", "sarif", "github"});
}

void addTimes(Composer& composer) {
  addAll(composer, {"auto", "always", "never"});
}

using AddKind = void (*)(Composer&);

// What completes each kind of word.
const std::map<std::string, AddKind>& kinds() {
  static const std::map<std::string, AddKind> kKinds = {
      {"FILE", &addFileNames},    {"PATH", &addFileNames},      {"LIB.so", &addFileNames},
      {"FORM[=FILE]", &addForms}, {"NAME=VALUE", &addSettings}, {"GROUP", &addDynamicGroups},
      {"TEXT", &addNothing},      {"N", &addNothing},           {"CODE", &addNothing},
      {"DIR", &addFileNames},     {"FORMAT", &addFormats},      {"WHEN", &addTimes},
      {"CODE,...", &addNothing},  {"PRESET", &addPresets},      {"LANGUAGE", &addLanguages}};
  return kKinds;
}

// The only kind that needs the program's rows.
const std::vector<std::string> kCommandKind = {"COMMAND"};

void addCommands(const ProgramRows& program, Composer& composer) {
  for (const CommandRow* command : program.commands) composer.add(command->name, command->summary);
}

void addArgument(Composer& composer) {
  const ArgumentRow& argument = *composer.place().argument;
  if (argument.name == std::string("NAME")) return addNames(composer);
  const std::vector<std::string> words = kindsOf(argument);
  const auto item = static_cast<std::size_t>(composer.place().item);
  if (words.empty()) return;
  const auto kind = kinds().find(words[std::min(item, words.size() - 1)]);
  if (kind != kinds().end()) kind->second(composer);
}

void addOptions(const ProgramRows& program, Composer& composer) {
  for (const ArgumentRow* option : optionsAt(program, composer.place().command)) {
    for (const std::string& spelling : spellingsOf(*option)) {
      composer.add(spelling, option->meaning);
    }
  }
}

bool isPlain(const std::string& text) {
  return std::none_of(text.begin(), text.end(), [](char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7f;
  });
}

}  // namespace

Completion complete(const ProgramRows& program, const std::vector<std::string>& words) {
  const Place place = findPlace(program, words);
  Composer composer(place);
  const bool wantsOption = !place.optionsEnded && place.word.starts_with('-');
  const bool wantsCommand = place.argument != nullptr ? kindsOf(*place.argument) == kCommandKind
                                                      : place.command == nullptr && !wantsOption;
  if (wantsCommand) {
    addCommands(program, composer);
  } else if (place.argument != nullptr) {
    addArgument(composer);
  } else if (wantsOption) {
    addOptions(program, composer);
  }
  return composer.take();
}

bool hasKnownKinds(const ArgumentRow& argument) {
  if (kindsOf(argument) == kCommandKind) return true;
  return std::ranges::all_of(kindsOf(argument),
                             [](const std::string& kind) { return kinds().contains(kind); });
}

std::string completionText(const Completion& completion) {
  std::string text = completion.files ? "files\t" + completion.filePrefix + "\n" : "words\n";
  for (const Candidate& candidate : completion.candidates) {
    if (!isPlain(candidate.text)) continue;
    text += candidate.text + "\t" + candidate.meaning + "\n";
  }
  return text;
}

}  // namespace driver_feature::cli
