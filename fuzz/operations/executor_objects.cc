// Operations on features and options, and those that every object has.
#include "fuzz/operations/executor.h"

namespace driver_feature::operations {

template <class Model>
bool Executor<Model>::useProperty(const Operation& operation) {
  Object& target = *object(operation.object);
  switch (operation.kind) {
    case Kind::kSetText:
      note("set " + shown(model_.setText(target, operation.name, operation.text)));
      return true;
    case Kind::kSetInt:
      note("set " + shown(model_.setInt(target, operation.name, operation.number)));
      return true;
    case Kind::kSetFloat:
      note("set " + shown(model_.setFloat(target, operation.name, operation.real)));
      return true;
    case Kind::kSetBool:
      note("set " + shown(model_.setBool(target, operation.name, operation.flag)));
      return true;
    case Kind::kGetText:
      readText(target, operation.name);
      return true;
    case Kind::kGetInt:
      readInt(target, operation.name);
      return true;
    case Kind::kGetBool:
      readBool(target, operation.name);
      return true;
    case Kind::kGetFloat:
      readFloat(target, operation.name);
      return true;
    case Kind::kGetType:
      note("type " + shown(model_.type(target)));
      return true;
    default:
      return false;
  }
}

template <class Model>
void Executor<Model>::readText(Object& object, const std::string& name) {
  std::string value = "untouched";
  const bool found = model_.getText(object, name, value);
  note(shown(found) + ' ' + quoted(value));
}

template <class Model>
void Executor<Model>::readInt(Object& object, const std::string& name) {
  int value = -99;
  const bool found = model_.getInt(object, name, value);
  note(shown(found) + ' ' + shown(value));
}

template <class Model>
void Executor<Model>::readFloat(Object& object, const std::string& name) {
  float value = -99;
  const bool found = model_.getFloat(object, name, value);
  note(shown(found) + ' ' + shown(value));
}

template <class Model>
void Executor<Model>::readBool(Object& object, const std::string& name) {
  for (const bool before : {false, true}) {
    bool value = before;
    const bool found = model_.getBool(object, name, value);
    note(shown(found) + ' ' + shown(value));
  }
}

template <class Model>
bool Executor<Model>::useOptionList(const Operation& operation) {
  Object& target = *object(operation.object);
  switch (operation.kind) {
    case Kind::kNumberOfOptions:
      note("options " + shown(model_.numberOfOptions(target)));
      return true;
    case Kind::kOptionIndexByName:
      note("position " + shown(model_.optionIndexByName(target, operation.text)));
      return true;
    case Kind::kCurrentOption:
      note(labelOption(model_.currentOption(target)));
      return true;
    case Kind::kOptionByAttribute:
      note(labelOption(model_.optionByAttribute(target, operation.name, operation.text)));
      return true;
    case Kind::kOptionByName:
      note(labelOption(model_.optionByName(target, operation.text)));
      return true;
    case Kind::kOptionByIndex:
      note(labelOption(model_.optionByIndex(target, operation.number)));
      return true;
    default:
      return false;
  }
}

template <class Model>
bool Executor<Model>::useFeature(const Operation& operation) {
  Feature& target = *feature(operation.object);
  switch (operation.kind) {
    case Kind::kOptionCount:
      note("options " + shown(model_.optionCount(target)));
      return true;
    case Kind::kApplyConstraint:
      note("applied " +
           shown(model_.applyConstraint(target, operation.text, operation.number, operation.flag)));
      return true;
    case Kind::kOptionIndexByAttribute:
      note("position " +
           shown(model_.optionIndexByAttribute(target, operation.name, operation.text)));
      return true;
    case Kind::kAddOption: {
      const bool none = operation.flag && operation.number % 2 == 0;
      note("added " + shown(model_.addOption(target, none ? nullptr : option(operation.other))));
      return true;
    }
    case Kind::kNextAvailable: {
      int position = operation.number;
      const bool found = model_.nextAvailable(target, position);
      note("next " + shown(found) + ' ' + shown(position));
      return true;
    }
    default:
      return false;
  }
}

template <class Model>
bool Executor<Model>::useFeatureControl(const Operation& operation) {
  Feature& target = *feature(operation.object);
  const std::string& name = operation.name;
  const bool suppress = operation.secondFlag;
  switch (operation.kind) {
    case Kind::kFeatureControlText:
      note("set " + shown(model_.setText(target, name, operation.text, suppress)));
      return true;
    case Kind::kFeatureControlInt:
      note("set " + shown(model_.setInt(target, name, operation.number, suppress)));
      return true;
    case Kind::kFeatureControlFloat:
      note("set " + shown(model_.setFloat(target, name, operation.real, suppress)));
      return true;
    case Kind::kFeatureControlBool:
      note("set " + shown(model_.setBool(target, name, operation.flag, suppress)));
      return true;
    case Kind::kFeatureConstraintEmpty:
      note("empty " + shown(model_.isConstraintSetEmpty(target)));
      return true;
    case Kind::kFeatureAddConstraint:
      note("added " + shown(model_.addConstraint(target, operation.number)));
      return true;
    case Kind::kFeatureRemoveConstraint:
      note("removed " + shown(model_.removeConstraint(target, operation.number)));
      return true;
    case Kind::kFeatureConstraints:
      noteNumbers(model_.constraints(target));
      return true;
    default:
      return false;
  }
}

template <class Model>
bool Executor<Model>::useOption(const Operation& operation) {
  Option& target = *option(operation.object);
  const std::string& name = operation.name;
  switch (operation.kind) {
    case Kind::kOptionGetText: {
      std::string value = "untouched";
      const bool found = model_.getOptionText(target, name, value);
      note(shown(found) + ' ' + quoted(value));
      return true;
    }
    case Kind::kOptionGetBool: {
      bool value = operation.flag;
      const bool found = model_.getOptionBool(target, name, value);
      note(shown(found) + ' ' + shown(value));
      return true;
    }
    case Kind::kOptionSetText:
      note("set " + shown(model_.setOptionText(target, name, operation.text)));
      return true;
    case Kind::kOptionSetBool:
      note("set " + shown(model_.setOptionBool(target, name, operation.flag)));
      return true;
    case Kind::kOptionConstraintEmpty:
      note("empty " + shown(model_.isConstraintSetEmpty(target)));
      return true;
    case Kind::kOptionAddConstraint:
      note("added " + shown(model_.addConstraint(target, operation.number)));
      return true;
    case Kind::kOptionRemoveConstraint:
      note("removed " + shown(model_.removeConstraint(target, operation.number)));
      return true;
    default:
      return false;
  }
}

template <class Model>
void Executor<Model>::noteNumbers(const std::set<long>& numbers) {
  std::string text = "numbers";
  for (const long number : numbers) text += ' ' + std::to_string(number);
  note(text);
}

#define DRIVER_FEATURE_INSTANTIATE(Model)                                \
  template bool Executor<Model>::useProperty(const Operation&);          \
  template bool Executor<Model>::useOptionList(const Operation&);        \
  template bool Executor<Model>::useFeature(const Operation&);           \
  template bool Executor<Model>::useFeatureControl(const Operation&);    \
  template bool Executor<Model>::useOption(const Operation&);            \
  template void Executor<Model>::readText(Object&, const std::string&);  \
  template void Executor<Model>::readInt(Object&, const std::string&);   \
  template void Executor<Model>::readFloat(Object&, const std::string&); \
  template void Executor<Model>::readBool(Object&, const std::string&);  \
  template void Executor<Model>::noteNumbers(const std::set<long>&);

DRIVER_FEATURE_INSTANTIATE(LibraryModel)
DRIVER_FEATURE_INSTANTIATE(ReferenceModel)

#undef DRIVER_FEATURE_INSTANTIATE

}  // namespace driver_feature::operations
