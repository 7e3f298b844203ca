// Operations on the set, and the exported functions.
#include "fuzz/operations/executor.h"

namespace driver_feature::operations {

template <class Model>
bool Executor<Model>::useSet(const Operation& operation) {
  const std::string& text = operation.text;
  const int number = operation.number;
  const bool none = operation.flag && number % 4 == 0;
  switch (operation.kind) {
    case Kind::kFileFeature:
      note("filed " + shown(model_.fileFeature(text, none ? nullptr : feature(operation.object))));
      return true;
    case Kind::kFileStaticGroup:
      note("filed " +
           shown(model_.fileStaticGroup(none ? nullptr : staticGroup(operation.object))));
      return true;
    case Kind::kFileDynamicGroup:
      note("filed " +
           shown(model_.fileDynamicGroup(none ? nullptr : dynamicGroup(operation.object))));
      return true;
    case Kind::kFeatureCount:
      note("features " + shown(model_.featureCount()));
      return true;
    case Kind::kFeatureByIndex:
      note(label(model_.featureByIndex(number)));
      return true;
    case Kind::kStaticGroupByIndex:
      note(label(model_.staticGroupByIndex(number)));
      return true;
    case Kind::kFind:
      note(label(model_.find(text)));
      return true;
    case Kind::kFindByAttribute:
      note(label(model_.findByAttribute(operation.name, text)));
      return true;
    case Kind::kCreateOption:
      note("created " + shown(model_.createOption("Media", text, number) != nullptr));
      return true;
    case Kind::kRestoreDefaults:
      model_.restoreDefaults();
      return true;
    default:
      return false;
  }
}

template <class Model>
bool Executor<Model>::useFunction(const Operation& operation) {
  const std::string& target = operation.target;
  const std::string& name = operation.name;
  std::string text = "untouched";
  int number = -99;
  float real = -99;
  bool flag = operation.flag;
  int result = 0;
  switch (operation.kind) {
    case Kind::kFunctionGetInt:
      result = model_.functionGet(target, name, number);
      break;
    case Kind::kFunctionGetFloat:
      result = model_.functionGet(target, name, real);
      break;
    case Kind::kFunctionGetBool:
      result = model_.functionGet(target, name, flag);
      break;
    case Kind::kFunctionGetText:
      result = model_.functionGet(target, name, text);
      break;
    case Kind::kFunctionSetInt:
      result = model_.functionSet(target, name, operation.number);
      break;
    case Kind::kFunctionSetFloat:
      result = model_.functionSet(target, name, operation.real);
      break;
    case Kind::kFunctionSetBool:
      result = model_.functionSet(target, name, flag);
      break;
    case Kind::kFunctionSetText:
      result = model_.functionSet(target, name, operation.text);
      break;
    default:
      return false;
  }
  note("function " + shown(result) + ' ' + shown(number) + ' ' + shown(real) + ' ' + shown(flag) +
       ' ' + quoted(text));
  return true;
}

template <class Model>
bool Executor<Model>::useFrame(const Operation& operation) {
  Record names;
  for (const auto& [name, value] : operation.entries) names[name] = value;
  switch (operation.kind) {
    case Kind::kSave:
      model_.save(names);
      return true;
    case Kind::kRestore:
      model_.restore(names);
      return true;
    case Kind::kInstOptHandler:
      note("handled " + shown(model_.instOptHandler()));
      return true;
    case Kind::kJobTicketHandler:
      note("handled " + shown(model_.jobTicketHandler()));
      return true;
    case Kind::kCreationComplete:
      model_.completeCreation();
      return true;
    case Kind::kRegisterUpdate:
      model_.registerUpdate(operation.flag);
      return true;
    case Kind::kRegisterLoad:
      model_.registerLoad(operation.flag);
      return true;
    case Kind::kSerialize:
      serialize(operation.number, operation.flag);
      return true;
    case Kind::kDump:
      model_.dump();
      return true;
    default:
      return false;
  }
}

template <class Model>
void Executor<Model>::serialize(int pdlType, bool includeInstOpt) {
  std::string output = "untouched";
  model_.serialize(pdlType, includeInstOpt, output);
  note("output " + quoted(output));
}

#define DRIVER_FEATURE_INSTANTIATE(Model)                       \
  template bool Executor<Model>::useSet(const Operation&);      \
  template bool Executor<Model>::useFunction(const Operation&); \
  template bool Executor<Model>::useFrame(const Operation&);

DRIVER_FEATURE_INSTANTIATE(LibraryModel)
DRIVER_FEATURE_INSTANTIATE(ReferenceModel)

#undef DRIVER_FEATURE_INSTANTIATE

}  // namespace driver_feature::operations
