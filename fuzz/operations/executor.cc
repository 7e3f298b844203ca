#include "fuzz/operations/executor.h"

#include <algorithm>

#include "fuzz/operations/names.h"

namespace driver_feature::operations {

namespace {

using PropertyKind = testing::Kind;

constexpr std::size_t kMostFeatures = 12;
constexpr std::size_t kMostOptions = 24;
constexpr std::size_t kMostStaticGroups = 5;
constexpr std::size_t kMostDynamicGroups = 3;

struct PropertyToRead {
  std::string name;
  PropertyKind kind = PropertyKind::kNone;
};

// Every property, with the overload that reads it. Made before any model.
const std::vector<PropertyToRead> kPropertiesToRead = [] {
  std::vector<PropertyToRead> properties;
  for (const char* name : kPropertyNames) properties.push_back({name});
  std::size_t position = 0;
  for (const auto& facts : testing::kPropertyFacts) properties[position++].kind = facts.kind;
  return properties;
}();

const std::vector<std::string> kOptionTexts =
    testing::namesOf(testing::kOptionPropertyFacts, PropertyKind::kText);
const std::vector<std::string> kOptionFlags =
    testing::namesOf(testing::kOptionPropertyFacts, PropertyKind::kBool);

template <class Pointer, class Looked>
std::string positionIn(const std::vector<Pointer>& objects, const Looked* object,
                       const std::string& kind) {
  for (std::size_t i = 0; i < objects.size(); ++i) {
    if (static_cast<const Looked*>(objects[i]) == object) return kind + ' ' + std::to_string(i);
  }
  return {};
}

}  // namespace

template <class Model>
Executor<Model>::Executor(const Program& program) : Side(program), model_(host()) {
  buildStart(program);
}

template <class Model>
void Executor<Model>::buildStart(const Program& program) {
  const auto addFeature = [this](const std::string& name, int type) {
    features_.push_back(model_.newFeature(name));
    model_.setInt(*features_.back(), "FeatureType", type);
    model_.fileFeature(name, features_.back());
    return features_.back();
  };
  addOptions(*addFeature("Media", 1), {"A4", "Letter", "Legal"});
  addFeature("Copies", 2);
  addFeature("Title", 3);
  addFeature("Scale", 4);
  addOptions(*addFeature("Tray", 1), {"Tray2", "A4"});
  addFeature("Unit", 2);
  buildGroups();
  giveCommands();
  for (std::size_t i = 0; program.changeRoutines && i < kChangeRoutineNames.size(); ++i) {
    model_.setText(*features_[2 * i], "AddCallbackRoutine", kChangeRoutineNames[i]);
  }
  if (program.sortRoutine < kSortRoutineNames.size()) {
    const std::string routine = kSortRoutineNames[program.sortRoutine];
    model_.setText(*dynamicGroups_[0], "SortFunctionName", routine);
  }
  if (program.creationComplete) model_.completeCreation();
  model_.registerUpdate(true);
  model_.registerLoad(true);
}

template <class Model>
void Executor<Model>::buildGroups() {
  staticGroups_ = {model_.newStaticGroup("Booklet"), model_.newStaticGroup("Job")};
  for (const std::size_t member : {0U, 3U}) model_.addMember(*staticGroups_[0], features_[member]);
  for (const std::size_t member : {1U, 2U, 0U}) {
    model_.addMember(*staticGroups_[1], features_[member]);
  }
  for (StaticGroup* group : staticGroups_) model_.fileStaticGroup(group);
  dynamicGroups_.push_back(model_.newDynamicGroup("Jobs"));
  model_.setTemplate(*dynamicGroups_[0], staticGroups_[1]);
  model_.fileDynamicGroup(dynamicGroups_[0]);
}

// One of each kind that has something to write: with a command of its own,
// with a routine, and with neither.
template <class Model>
void Executor<Model>::giveCommands() {
  const auto give = [this](Object& object, const std::string& format) {
    model_.setText(object, "PSCommand", format);
    model_.setText(object, "PJLCommand", format);
  };
  give(*features_[0], "[%s]");
  give(*features_[1], "%d;");
  give(*features_[2], "(%s)");
  give(*features_[3], "%.2f ");
  give(*features_[5], "%x,");
  give(*staticGroups_[0], "%s");
  give(*staticGroups_[1], "<%s>");
  model_.setText(*features_[4], "AddPSCallbackRoutine", kTextRoutineName);
  model_.setText(*features_[4], "AddPJLCallbackRoutine", kTextRoutineName);
  for (Option* each : options_) {
    model_.setOptionText(*each, "PSCommand", "ps");
    model_.setOptionText(*each, "PJLCommand", "pjl");
  }
}

template <class Model>
void Executor<Model>::addOptions(Feature& feature, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    options_.push_back(model_.newOption(name));
    model_.addOption(feature, options_.back());
  }
}

template <class Model>
void Executor<Model>::execute(const Operation& operation) {
  if (operation.kind == Kind::kReadAll) return readAll();
  if (makeObject(operation) || useProperty(operation) || useOptionList(operation) ||
      useFeature(operation) || useFeatureControl(operation) || useOption(operation) ||
      useStaticGroup(operation) || useRecords(operation) || useGroupControl(operation) ||
      useSet(operation) || useFunction(operation) || useFrame(operation)) {
    return;
  }
  note("not an operation");
}

template <class Model>
bool Executor<Model>::makeObject(const Operation& operation) {
  const std::string& name = operation.text;
  switch (operation.kind) {
    case Kind::kNewFeature:
      if (features_.size() < kMostFeatures) features_.push_back(model_.newFeature(name));
      return true;
    case Kind::kCopyFeature:
      if (features_.size() < kMostFeatures) {
        features_.push_back(model_.copyFeature(*feature(operation.object)));
      }
      return true;
    case Kind::kNewOption:
      if (options_.size() < kMostOptions) options_.push_back(model_.newOption(name));
      return true;
    case Kind::kNewStaticGroup:
      if (staticGroups_.size() < kMostStaticGroups) {
        staticGroups_.push_back(model_.newStaticGroup(name));
      }
      return true;
    case Kind::kNewDynamicGroup:
      if (dynamicGroups_.size() < kMostDynamicGroups) {
        dynamicGroups_.push_back(model_.newDynamicGroup(name));
      }
      return true;
    default:
      return false;
  }
}

template <class Model>
typename Model::Object* Executor<Model>::object(unsigned number) {
  const std::size_t groups = staticGroups_.size() + dynamicGroups_.size();
  std::size_t place = number % (features_.size() + groups);
  if (place < features_.size()) return features_[place];
  place -= features_.size();
  if (place < staticGroups_.size()) return staticGroups_[place];
  return dynamicGroups_[place - staticGroups_.size()];
}

template <class Model>
std::string Executor<Model>::label(const Object* object) const {
  if (object == nullptr) return "null";
  std::string text = positionIn(features_, object, "feature");
  if (text.empty()) text = positionIn(staticGroups_, object, "static group");
  if (text.empty()) text = positionIn(dynamicGroups_, object, "dynamic group");
  return text.empty() ? "unknown object" : text;
}

template <class Model>
std::string Executor<Model>::labelOption(const typename Model::AnyOption* option) const {
  if (option == nullptr) return "null";
  const std::string text = positionIn(options_, option, "option");
  // Copies of features have options of their own.
  return text.empty() ? "copied option" : text;
}

template <class Model>
void Executor<Model>::readObject(Object& object) {
  note("object " + label(&object) + ' ' + shown(model_.type(object)));
  for (const PropertyToRead& property : kPropertiesToRead) {
    switch (property.kind) {
      case PropertyKind::kNone:
      case PropertyKind::kText:
        readText(object, property.name);
        break;
      case PropertyKind::kInt:
        readInt(object, property.name);
        break;
      case PropertyKind::kFloat:
        readFloat(object, property.name);
        break;
      case PropertyKind::kBool:
        readBool(object, property.name);
        break;
    }
  }
}

template <class Model>
void Executor<Model>::readOption(Option& option) {
  note("option " + labelOption(&option) + ' ' + shown(model_.isConstraintSetEmpty(option)));
  for (const std::string& name : kOptionTexts) {
    std::string text;
    model_.getOptionText(option, name, text);
    note(quoted(text));
  }
  for (const std::string& name : kOptionFlags) {
    bool flag = false;
    model_.getOptionBool(option, name, flag);
    note(shown(flag));
  }
}

template <class Model>
void Executor<Model>::readAll() {
  // Reading notifies nobody, so that nothing is added meanwhile.
  for (Feature* each : features_) {
    readObject(*each);
    noteNumbers(model_.constraints(*each));
    for (int i = 0; i < model_.numberOfOptions(*each); ++i) {
      typename Model::AnyOption* held = model_.optionByIndex(*each, i);
      std::string name;
      model_.getOptionText(*held, "Name", name);
      note(labelOption(held) + ' ' + quoted(name));
    }
  }
  for (Option* each : options_) readOption(*each);
  for (StaticGroup* each : staticGroups_) {
    readObject(*each);
    for (int i = 0; i < model_.memberCount(*each); ++i) {
      note(label(model_.memberByIndex(*each, static_cast<unsigned>(i))));
    }
  }
  for (DynamicGroup* each : dynamicGroups_) {
    readObject(*each);
    noteNumbers(model_.constraints(*each));
    note(label(model_.shapeOf(*each)) + ' ' + shown(model_.recordCount(*each)));
  }
  for (int i = 0; i < model_.featureCount(); ++i) note(label(model_.featureByIndex(i)));
}

template class Executor<LibraryModel>;
template class Executor<ReferenceModel>;

}  // namespace driver_feature::operations
