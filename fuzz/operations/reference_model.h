// The reference model: a second feature model, written from the described
// behaviour and as plainly as possible. Every property is in a map under its
// name, every rule is an if.
#ifndef FUZZ_OPERATIONS_REFERENCE_MODEL_H_
#define FUZZ_OPERATIONS_REFERENCE_MODEL_H_

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "fuzz/operations/side.h"
#include "tests/support/property_facts.h"

namespace driver_feature::operations {

struct RefOption {
  std::map<std::string, std::string> texts;
  std::map<std::string, bool> flags;
  std::set<long> constraints;
};

enum class RefClass : unsigned char { kFeature, kStaticGroup, kDynamicGroup };

// A feature, a static group or a dynamic group. The maps hold the properties
// that it has.
struct RefObject {
  RefClass kind = RefClass::kFeature;
  int type = 1;
  int valueType = 1;
  std::map<std::string, std::string> texts;
  std::map<std::string, int> ints;
  std::map<std::string, float> floats;
  std::map<std::string, bool> flags;
  std::set<long> constraints;  // The selected records of a dynamic group.
  std::vector<RefOption*> options;
  int changeRoutine = -1;
  std::vector<RefObject*> members;
  RefObject* shape = nullptr;  // The template of a dynamic group.
  std::vector<RefObject*> records;
  int sortRoutine = -1;

  const std::string& name() const { return texts.at("Name"); }
};

// Whether an object lets a property be read that it lets be set, and whether it has
// to have another value type before it is set.
bool canBeRead(const RefObject& object, const std::string& name);
bool isOfAnotherType(const RefObject& object, const std::string& name);

// How log lines name a property of an object, and the line about one that the
// object does not have.
std::string forFeature(const RefObject& feature, const std::string& name);
std::string unrecognized(const std::string& operation, const RefObject& feature,
                         const std::string& name);

// Owns all of its objects, as long as it lives.
class ReferenceModel {
 public:
  using Object = RefObject;
  using Feature = RefObject;
  using StaticGroup = RefObject;
  using DynamicGroup = RefObject;
  using Option = RefOption;
  using AnyOption = RefOption;

  explicit ReferenceModel(Host host) : host_(std::move(host)) {}

  RefOption* newOption(const std::string& name);
  RefObject* newFeature(const std::string& name);
  RefObject* copyFeature(RefObject& source);
  RefObject* newStaticGroup(const std::string& name);
  RefObject* newDynamicGroup(const std::string& name);

  // Slots 0 to 7, or the setters with constraint control.
  bool setText(RefObject& object, const std::string& name, const std::string& value,
               bool suppress = false);
  bool setInt(RefObject& object, const std::string& name, int value, bool suppress = false);
  bool setFloat(RefObject& object, const std::string& name, float value, bool suppress = false);
  bool setBool(RefObject& object, const std::string& name, bool value, bool suppress = false);
  bool getText(RefObject& object, const std::string& name, std::string& value);
  bool getInt(RefObject& object, const std::string& name, int& value);
  bool getFloat(RefObject& object, const std::string& name, float& value);
  bool getBool(RefObject& object, const std::string& name, bool& value);

  bool getOptionText(RefOption& option, const std::string& name, std::string& value);
  bool getOptionBool(RefOption& option, const std::string& name, bool& value);
  bool setOptionText(RefOption& option, const std::string& name, const std::string& value);
  bool setOptionBool(RefOption& option, const std::string& name, bool value);

  // The option list. For groups the defaults of things without options.
  int numberOfOptions(RefObject& object);
  int optionCount(RefObject& feature);
  int optionIndexByName(RefObject& object, const std::string& name);
  int optionIndexByAttribute(RefObject& feature, const std::string& name, const std::string& value);
  RefOption* currentOption(RefObject& object);
  RefOption* optionByAttribute(RefObject& object, const std::string& name,
                               const std::string& value);
  RefOption* optionByName(RefObject& object, const std::string& name);
  RefOption* optionByIndex(RefObject& object, int index);
  bool addOption(RefObject& feature, RefOption* option);
  bool nextAvailable(RefObject& feature, int& position);
  bool applyConstraint(RefObject& feature, const std::string& optionName, long id, bool hide);

  template <class Held>
  bool isConstraintSetEmpty(Held& object) {
    return object.constraints.empty();
  }
  template <class Held>
  bool addConstraint(Held& object, long id) {
    return id >= 0 && object.constraints.insert(id).second;
  }
  template <class Held>
  bool removeConstraint(Held& object, long id) {
    return object.constraints.erase(id) == 1;
  }
  const std::set<long>& constraints(RefObject& object) { return object.constraints; }

  bool addMember(RefObject& group, RefObject* member);
  RefObject* memberByName(RefObject& group, const std::string& name);

  bool setTemplate(RefObject& group, RefObject* shape);
  bool addRecord(RefObject& group, const Record& values, bool sort = true);
  RefObject* loadRecord(RefObject& group, unsigned index);
  bool removeRecord(RefObject& group, unsigned index);
  bool removeAllRecords(RefObject& group);
  bool detectDuplicate(RefObject& group, const Record& values);
  bool sortList(RefObject& group);

  int memberCount(RefObject& group) const { return static_cast<int>(group.members.size()); }
  RefObject* memberByIndex(RefObject& group, unsigned index);
  RefObject* shapeOf(RefObject& group) const { return group.shape; }
  int recordCount(RefObject& group) const { return static_cast<int>(group.records.size()); }
  int type(RefObject& object) const { return object.type; }

  int fileFeature(const std::string& name, RefObject* feature);
  int fileStaticGroup(RefObject* group);
  int fileDynamicGroup(RefObject* group);
  int featureCount() const { return static_cast<int>(features_.size()); }
  RefObject* featureByIndex(int index);
  RefObject* staticGroupByIndex(int index);
  RefObject* find(const std::string& name);
  RefObject* findByAttribute(const std::string& attribute, const std::string& value);
  void restoreDefaults();

  void* createOption(const std::string&, const std::string&, int) { return nullptr; }
  // PJL or PostScript.
  void serialize(int pdlType, bool includeInstOpt, std::string& output);
  // Only reads, and what it writes is not compared.
  void dump() {}

  // The exported functions; those on one property have their target attached
  // first, null when there is none.
  RefObject* attach(const std::string& target);
  int functionGet(const std::string& target, const std::string& name, int& value);
  int functionGet(const std::string& target, const std::string& name, float& value);
  int functionGet(const std::string& target, const std::string& name, bool& value);
  int functionGet(const std::string& target, const std::string& name, std::string& value);
  int functionSet(const std::string& target, const std::string& name, int value);
  int functionSet(const std::string& target, const std::string& name, float value);
  int functionSet(const std::string& target, const std::string& name, bool value);
  int functionSet(const std::string& target, const std::string& name, const std::string& value);
  void save(const Record& names);
  void restore(const Record& names);
  int instOptHandler();
  int jobTicketHandler();
  void completeCreation() { creationComplete_ = true; }
  void registerUpdate(bool registered) { updateRegistered_ = registered; }
  void registerLoad(bool registered) { loadRegistered_ = registered; }

 private:
  RefObject* newObject(RefClass kind, const std::string& name);
  void log(int level, const std::string& text) { host_.log(level, "DriverFeature", text); }
  void callUpdate();
  void notifyUpdate(bool suppress);
  void notifyChange(RefObject& feature, bool suppress);

  bool setFeatureText(RefObject& feature, const std::string& name, const std::string& value,
                      bool suppress);
  bool setValueString(RefObject& feature, const std::string& value, bool suppress);
  bool setCurrentText(RefObject& feature, const std::string& value, bool suppress);
  bool setCurrentInt(RefObject& feature, int value, bool suppress);
  bool setCurrentFloat(RefObject& feature, float value, bool suppress);
  bool setFeatureInt(RefObject& feature, const std::string& name, int value, bool suppress);
  bool setFeatureBool(RefObject& feature, const std::string& name, bool value, bool suppress);
  bool getFeatureText(RefObject& feature, const std::string& name, std::string& value);
  bool getValueString(RefObject& feature, std::string& value);

  // True, after a line, when the feature is not of type 1.
  bool refusesOptions(RefObject& object, const std::string& text);
  bool available(RefObject& feature, int position);
  bool matches(RefObject& record, const Record& values);
  bool readRecord(RefObject& group, long index, Record& values);

  // Output; the language is "PS" or "PJL".
  bool callTextRoutine(const std::string& name, std::string& text);
  std::string valueText(RefObject& object, const std::string& commandTemplate,
                        const std::string& language);
  void writeMember(RefObject& group, RefObject& member, int index, const std::string& language,
                   std::string& piece);
  std::string groupText(RefObject& group, const std::string& language, bool topLevel,
                        std::vector<RefObject*> around);
  void writeFeature(RefObject& feature, int index, const std::string& language,
                    std::string& output);

  void transfer(const Record& names, const std::string& from, const std::string& to,
                const std::string& operation);

  Host host_;
  bool creationComplete_ = false;
  bool ticketLoading_ = false;
  bool updateRegistered_ = false;
  bool loadRegistered_ = false;
  std::vector<std::unique_ptr<RefOption>> ownedOptions_;
  std::vector<std::unique_ptr<RefObject>> ownedObjects_;
  std::map<std::string, RefObject*> features_;
  std::vector<RefObject*> staticGroups_;
  std::vector<RefObject*> dynamicGroups_;
};

}  // namespace driver_feature::operations

#endif  // FUZZ_OPERATIONS_REFERENCE_MODEL_H_
