#include "fuzz/operations/library_model.h"

#include <iostream>
#include <sstream>
#include <utility>

#include "frame/exports.h"
#include "frame/master_set.h"
#include "frame/state.h"
#include "model/notification.h"

#include "AttributeMap.h"
#include "Log.h"

namespace driver_feature::operations {

namespace {

Host* current = nullptr;
bool muted = false;

void takeLogLine(int level, const char* category, const char* text, std::size_t length,
                 void* /*context*/) {
  if (!muted) current->log(level, category, std::string(text, length));
}

AttributeMap toMap(const Record& record) {
  AttributeMap map;
  for (const auto& [name, value] : record) map[name] = value;
  return map;
}

Record toRecord(const AttributeMap& map) {
  Record record;
  for (long i = 0; i < map.size(); ++i) {
    std::string name;
    std::string value;
    map.fetchAttributeValueByIndex(i, name, value);
    record[name] = value;
  }
  return record;
}

int sortBy(SortRule rule, AttributeMap& first, AttributeMap& second) {
  Record firstRecord = toRecord(first);
  Record secondRecord = toRecord(second);
  const int result = current->sort(rule, firstRecord, secondRecord);
  first = toMap(firstRecord);
  second = toMap(secondRecord);
  return result;
}

// Takes what is written to the standard output while it lives.
class OutputCapture {
 public:
  OutputCapture() : before_(std::cout.rdbuf(text_.rdbuf())) {}
  ~OutputCapture() { std::cout.rdbuf(before_); }
  OutputCapture(const OutputCapture&) = delete;
  OutputCapture& operator=(const OutputCapture&) = delete;

  std::string text() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::streambuf* before_;
};

}  // namespace

// The host's routines, found by these names.
extern "C" {
__attribute__((visibility("default"))) void OperationsWriteText(DriverFeatureSet* set,
                                                                std::string& text);
__attribute__((visibility("default"))) void OperationsChange0();
__attribute__((visibility("default"))) void OperationsChange1();
__attribute__((visibility("default"))) int OperationsSortByValue(AttributeMap& first,
                                                                 AttributeMap& second);
__attribute__((visibility("default"))) int OperationsSortNever(AttributeMap& first,
                                                               AttributeMap& second);
__attribute__((visibility("default"))) int OperationsSortAlways(AttributeMap& first,
                                                                AttributeMap& second);
__attribute__((visibility("default"))) int OperationsSortRandom(AttributeMap& first,
                                                                AttributeMap& second);
__attribute__((visibility("default"))) int OperationsSortMeddling(AttributeMap& first,
                                                                  AttributeMap& second);

void OperationsWriteText(DriverFeatureSet* /*set*/, std::string& text) {
  current->write(text);
}

void OperationsChange0() {
  current->change(0);
}

void OperationsChange1() {
  current->change(1);
}

int OperationsSortByValue(AttributeMap& first, AttributeMap& second) {
  return sortBy(SortRule::kByValue, first, second);
}

int OperationsSortNever(AttributeMap& first, AttributeMap& second) {
  return sortBy(SortRule::kNeverSwap, first, second);
}

int OperationsSortAlways(AttributeMap& first, AttributeMap& second) {
  return sortBy(SortRule::kAlwaysSwap, first, second);
}

int OperationsSortRandom(AttributeMap& first, AttributeMap& second) {
  return sortBy(SortRule::kRandom, first, second);
}

int OperationsSortMeddling(AttributeMap& first, AttributeMap& second) {
  return sortBy(SortRule::kMeddling, first, second);
}
}

LibraryModel::LibraryModel(Host host) : host_(std::move(host)) {
  current = &host_;
  libraryState() = {};
  notification() = {};
  GetMasterFeatureList();
  SetLogHandler(takeLogLine, nullptr);
}

LibraryModel::~LibraryModel() {
  SetLogHandler(nullptr, nullptr);
  // Made with new, of a class whose destructor is not virtual.
  DriverFeatureSet& set = masterSet();
  set.DriverFeatureSet::~DriverFeatureSet();
  ::operator delete(&set);
  libraryState() = {};
  notification() = {};
  current = nullptr;
}

DriverFeatureOption* LibraryModel::newOption(const std::string& name) {
  return &options_.emplace_back(name);
}

DriverFeature* LibraryModel::newFeature(const std::string& name) {
  return &features_.emplace_back(name);
}

DriverFeature* LibraryModel::copyFeature(DriverFeature& source) {
  return &features_.emplace_back(&source);
}

DriverFeatureStaticGroup* LibraryModel::newStaticGroup(const std::string& name) {
  return &staticGroups_.emplace_back(name);
}

DriverFeatureDynamicGroup* LibraryModel::newDynamicGroup(const std::string& name) {
  return &dynamicGroups_.emplace_back(name);
}

bool LibraryModel::addRecord(DriverFeatureDynamicGroup& group, const Record& values) {
  AttributeMap map = toMap(values);
  return group.addStaticGroupToDynamicGroup(map);
}

bool LibraryModel::addRecord(DriverFeatureDynamicGroup& group, const Record& values, bool sort) {
  AttributeMap map = toMap(values);
  return group.addStaticGroupToDynamicGroupWithSort(map, sort);
}

bool LibraryModel::detectDuplicate(DriverFeatureDynamicGroup& group, const Record& values) {
  AttributeMap map = toMap(values);
  return group.detectDuplicateRecord(map);
}

void LibraryModel::serialize(int pdlType, bool includeInstOpt, std::string& output) {
  muted = pdlType == kTicket;
  masterSet().serialize(output, pdlType, includeInstOpt, "first", "second");
  muted = false;
  if (pdlType == kTicket) output = kTicketText;
}

void LibraryModel::dump() {
  muted = true;
  const OutputCapture capture;
  masterSet().dumpFeatureListValues();
  muted = false;
}

void LibraryModel::save(const Record& names) {
  AttributeMap map = toMap(names);
  SaveCurrentFeatureValues(map);
}

void LibraryModel::restore(const Record& names) {
  AttributeMap map = toMap(names);
  RestoreOriginalFeatureValues(map);
}

int LibraryModel::instOptHandler() {
  int result = 0;
  std::string output;
  {
    const OutputCapture capture;
    result = InstOptVORNTagHandler(nullptr);
    output = capture.text();
  }
  if (!output.empty()) host_.print(output);
  return result;
}

int LibraryModel::jobTicketHandler() {
  return JobTicketVORNTagHandler(nullptr);
}

void LibraryModel::completeCreation() {
  SetFeatureCreationCompleteFlag();
}

void LibraryModel::registerUpdate(bool registered) {
  bool (*const routine)() = [] {
    current->update();
    return false;
  };
  setDriverFeatureUpdateCallback(registered ? routine : nullptr);
}

void LibraryModel::registerLoad(bool registered) {
  int (*const routine)(void*, int) = [](void* /*element*/, int mode) {
    return current->load(mode);
  };
  libraryState().loadCallback = registered ? routine : nullptr;
}

}  // namespace driver_feature::operations
