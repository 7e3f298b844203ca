#include "bench/loaded_model.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>

#include "bench/operation.h"
#include "frame/exports.h"
#include "frame/state.h"
#include "model/driver_feature.h"
#include "model/driver_feature_option.h"

#include "AttributeMap.h"
#include "Log.h"
#include "XMLParser.h"

namespace driver_feature::bench {

Calls calls;

namespace {

[[noreturn]] void fail(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  std::exit(1);
}

// The log of a host that keeps no lines.
void dropLine(int /*level*/, const char* /*category*/, const char* /*text*/, std::size_t /*length*/,
              void* /*context*/) {}

// What delete would do: the classes have no virtual destructors, and the
// objects are known to be of these very classes.
template <class Object>
void destroy(Object* object) {
  object->Object::~Object();
  ::operator delete(object);
}

// The root of a generated document; in an imported one, the first element in it.
void* descriptionOf(const XMLDocument& document) {
  std::string tag;
  pParserInstance->tagName(document.root(), tag);
  return tag == "FeatureDescription" ? document.root()
                                     : pParserInstance->firstChild(document.root());
}

}  // namespace

std::unique_ptr<XMLDocument> readModel(const std::string& path) {
  XMLProblem problem;
  auto document = XMLDocument::parseFile(path, problem);
  if (!document) fail(path + ": " + problem.text);
  return document;
}

void keepNoLog() {
  SetLogHandler(dropLine, nullptr);
}

void startEmptySet() {
  libraryState().masterSet = nullptr;
  GetMasterFeatureList();
}

void build(const XMLDocument& document) {
  keepNoLog();
  if (FeatureXMLTagHandler(descriptionOf(document)) != 1) fail("a model cannot be built");
}

void deleteSet() {
  DriverFeatureSet* set = libraryState().masterSet;
  for (int i = 0; i < set->fetchNumberOfFeatures(); ++i) {
    DriverFeature* feature = set->fetchFeatureByIndex(i);
    const int options = feature->getFeatureType() == 1 ? feature->fetchNumberOfOptions() : 0;
    for (int j = 0; j < options; ++j) {
      auto* option = static_cast<DriverFeatureOption*>(feature->fetchOptionByIndex(j));
      option->DriverFeatureOption::~DriverFeatureOption();
    }
    // The loader makes all of them in one piece of memory.
    if (options > 0) ::operator delete(feature->fetchOptionByIndex(0));
    destroy(feature);
  }
  destroy(set);
  libraryState().masterSet = nullptr;
}

DriverFeatureSet& useModel(const std::string& kind, int size) {
  static std::map<std::string, DriverFeatureSet*> models;
  const std::string path = modelPath(kind, size);
  DriverFeatureSet*& set = models[path];
  if (set == nullptr) {
    startEmptySet();
    build(*readModel(path));
    SetFeatureCreationCompleteFlag();
    set = libraryState().masterSet;
  }
  libraryState().masterSet = set;
  return *set;
}

AttributeMap recordValues(int number) {
  AttributeMap values;
  values["RecordName"] = "the name of record " + std::to_string(number);
  values["RecordNumber"] = std::to_string(number);
  return values;
}

AttributeMap fiveMemberValues(int number) {
  AttributeMap values = recordValues(number);
  values["RecordChoice"] = choiceName(number % kChoices);
  values["RecordScale"] = "1.5";
  values["RecordText"] = "more text of record " + std::to_string(number);
  return values;
}

void makeTextsOld() {
  static DriverFeatureOption option(std::string("of no feature"));
  option.setOptionProperty(std::string("Name"), std::string("of no feature"));
}

}  // namespace driver_feature::bench

// The routines of the generated descriptions, found by name.

extern "C" bool benchUpdate() {
  ++driver_feature::bench::calls.updates;
  return true;
}

extern "C" int benchLoad(void* /*element*/, int /*mode*/) {
  return 0;
}

// And those that imported descriptions name.

extern "C" bool DriverFeatureHostUpdate() {
  return benchUpdate();
}

extern "C" int DriverFeatureHostLoad(void* /*element*/, int /*mode*/) {
  return 0;
}

extern "C" void benchChange() {
  ++driver_feature::bench::calls.changes;
}

// By number.
extern "C" int benchCompareRecords(AttributeMap& first, AttributeMap& second) {
  int left = 0;
  int right = 0;
  first.loadMapVariable("RecordNumber", left, nullptr);
  second.loadMapVariable("RecordNumber", right, nullptr);
  return left - right;
}
