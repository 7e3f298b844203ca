// Carries programs out on a model. The same code drives the library and the
// reference model; their classes hold what differs.
#ifndef FUZZ_OPERATIONS_EXECUTOR_H_
#define FUZZ_OPERATIONS_EXECUTOR_H_

#include <set>
#include <string>
#include <vector>

#include "fuzz/operations/library_model.h"
#include "fuzz/operations/reference_model.h"
#include "fuzz/operations/side.h"

namespace driver_feature::operations {

// Ends after a bounded number of objects: further ones are not made.
template <class Model>
class Executor : public Side {
 public:
  using Object = typename Model::Object;
  using Feature = typename Model::Feature;
  using Option = typename Model::Option;
  using StaticGroup = typename Model::StaticGroup;
  using DynamicGroup = typename Model::DynamicGroup;

  // Begins with a small model: a feature of each kind with a value, a static
  // group and a dynamic group with its template.
  explicit Executor(const Program& program);

  void execute(const Operation& operation) override;

 private:
  // Each carries out the kinds it knows, and is false for others.
  bool makeObject(const Operation& operation);
  bool useProperty(const Operation& operation);
  bool useOptionList(const Operation& operation);
  bool useFeature(const Operation& operation);
  bool useFeatureControl(const Operation& operation);
  bool useOption(const Operation& operation);
  bool useStaticGroup(const Operation& operation);
  bool useRecords(const Operation& operation);
  bool useGroupControl(const Operation& operation);
  bool useSet(const Operation& operation);
  bool useFunction(const Operation& operation);
  bool useFrame(const Operation& operation);
  void serialize(int pdlType, bool includeInstOpt);

  void buildStart(const Program& program);
  void buildGroups();
  void giveCommands();
  void addOptions(Feature& feature, std::initializer_list<const char*> names);
  void copyFeature(Feature& source);
  void readAll();
  void readObject(Object& object);
  void readOption(Option& option);
  void readText(Object& object, const std::string& name);
  void readInt(Object& object, const std::string& name);
  void readFloat(Object& object, const std::string& name);
  void readBool(Object& object, const std::string& name);
  void noteNumbers(const std::set<long>& numbers);
  Record recordFor(DynamicGroup& group, const Operation& operation);

  Object* object(unsigned number);
  Feature* feature(unsigned number) { return features_[number % features_.size()]; }
  Option* option(unsigned number) { return options_[number % options_.size()]; }
  StaticGroup* staticGroup(unsigned number) { return staticGroups_[number % staticGroups_.size()]; }
  DynamicGroup* dynamicGroup(unsigned number) {
    return dynamicGroups_[number % dynamicGroups_.size()];
  }
  std::string label(const Object* object) const;
  std::string labelOption(const typename Model::AnyOption* option) const;

  Model model_;
  std::vector<Feature*> features_;
  std::vector<Option*> options_;
  std::vector<StaticGroup*> staticGroups_;
  std::vector<DynamicGroup*> dynamicGroups_;
};

}  // namespace driver_feature::operations

#endif  // FUZZ_OPERATIONS_EXECUTOR_H_
