#include "raw_host.h"

#include <dlfcn.h>

#include <utility>

#include "../sanitizers.h"

namespace raw_slots {

namespace {

constexpr const char* kSubscript =
    "_ZN12AttributeMapixERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE";

std::vector<std::string> events;

// The library of the test that runs. Its names and those of the platform's
// libraries, which it needs, are found through it.
void* library = nullptr;

template <class Function>
Function* platform(const char* name) {
  return reinterpret_cast<Function*>(dlsym(library, name));
}

std::string utf8(const void* unicodeString) {
  return platform<const std::string&(const void*)>("_ZNK13UnicodeString4utf8B5cxx11Ev")(
      unicodeString);
}

std::string& entryOf(void* map, const std::string& name) {
  return platform<std::string&(void*, const std::string&)>(kSubscript)(map, name);
}

Element describeMedia() {
  return {"Feature",
          {{"FeatureType", "MultiSelect"},
           {"Name", "Media"},
           {"DefaultValue", "Letter"},
           {"AddCallbackRoutine", "RawSlotsChange"},
           {"PSCommand", "[%s]"}},
          {{"Option", {{"Name", "A4"}, {"PSCommand", "a4"}}, {}},
           {"Option", {{"Name", "Letter"}, {"PSCommand", "letter"}}, {}},
           {"Option", {{"Name", "Legal"}, {"PSCommand", "legal"}, {"Sensitivity", "false"}}, {}}}};
}

Element describeEntry(const char* type, const char* name, const char* value, const char* command) {
  return {"Feature",
          {{"FeatureType", type}, {"Name", name}, {"DefaultValue", value}, {"PJLCommand", command}},
          {}};
}

Element describe() {
  return {
      "Features",
      {},
      {{"BaseFeatureInfo",
        {{"DefaultCallbackHandler", "RawSlotsUpdate"}, {"LoadVORNCallbackHandler", "RawSlotsLoad"}},
        {}},
       describeMedia(),
       describeEntry("IntEntry", "Copies", "1", "{%d}"),
       describeEntry("TextEntry", "JobName", "Untitled", "(%s)"),
       describeEntry("FloatEntry", "Zoom", "1.5", "<%g>"),
       {"Feature", {{"FeatureType", "UIOnly"}, {"Name", "Separator"}}, {}},
       {"FeatureStaticGroup",
        {{"Name", "Quality"}},
        {describeEntry("IntEntry", "Resolution", "600", ""),
         describeEntry("TextEntry", "Toner", "Black", "")}},
       {"FeatureDynamicGroup",
        {{"Name", "Exceptions"}, {"SortFunctionName", "RawSlotsSort"}},
        {{"FeatureStaticGroup",
          {{"Name", "Exception"}},
          {describeEntry("IntEntry", "Page", "0", ""),
           describeEntry("TextEntry", "Tray", "Upper", "")}}}}}};
}

}  // namespace

RawHostTest::RawHostTest() : description_(describe()) {
  link(description_);
}

void RawHostTest::SetUp() {
  if (driver_feature::testing::kSanitized) {
    GTEST_SKIP() << "the checks at run time of this build refuse a parser that has a virtual "
                    "table and no class";
  }
  library = dlopen(DRIVER_FEATURE_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  auto** parser = static_cast<void**>(address("pParserInstance"));
  auto** handlerName = static_cast<const char**>(address("_KirvoNDTagHandlerFunction"));
  void* subscript = address(kSubscript);
  ASSERT_TRUE(parser != nullptr && handlerName != nullptr && subscript != nullptr);
  *parser = makeParser(subscript);
  ASSERT_EQ(function<int(void*)>(*handlerName)(&description_), 1);
  set_ = function<void*()>("GetMasterFeatureList")();
  ASSERT_NE(set_, nullptr);
  function<void()>("SetFeatureCreationCompleteFlag")();
  events.clear();
}

RawHostTest::~RawHostTest() {
  if (library != nullptr) dlclose(std::exchange(library, nullptr));
}

void* RawHostTest::address(const char* name) const {
  void* found = dlsym(library, name);
  EXPECT_NE(found, nullptr) << name;
  return found;
}

void* RawHostTest::find(const std::string& name) const {
  void* found = callSlot<void*, Text>(set_, 3, name);
  EXPECT_NE(found, nullptr) << name;
  return found;
}

void* RawHostTest::option(int position) const {
  void* found = callSlot<void*, int>(find("Media"), 14, position);
  EXPECT_NE(found, nullptr) << position;
  return found;
}

std::string RawHostTest::text(std::string target, const char* property) const {
  std::string value;
  EXPECT_EQ(function<int(std::string&, const char*, std::string&)>("GetFeatureTextValue")(
                target, property, value),
            1);
  return value;
}

int RawHostTest::integer(std::string target, const char* property) const {
  int value = 0;
  EXPECT_EQ(function<int(std::string&, const char*, int*)>("GetFeatureIntValue")(target, property,
                                                                                 &value),
            1);
  return value;
}

float RawHostTest::number(std::string target, const char* property) const {
  float value = 0;
  EXPECT_EQ(function<int(std::string&, const char*, float*)>("GetFeatureFloatValue")(
                target, property, &value),
            1);
  return value;
}

bool RawHostTest::flag(std::string target, const char* property) const {
  bool value = false;
  EXPECT_EQ(function<int(std::string&, const char*, bool*)>("GetFeatureBoolValue")(target, property,
                                                                                   &value),
            1);
  return value;
}

std::vector<std::string> RawHostTest::takeEvents() {
  return std::exchange(events, {});
}

RawMap::RawMap(Entries entries) {
  platform<void(void*)>("_ZN12AttributeMapC1Ev")(memory_);
  for (const auto& [name, value] : entries) entryOf(memory_, name) = value;
}

RawMap::~RawMap() {
  // An empty map owns no memory, so that it needs no destructor.
  platform<void(void*)>("_ZN12AttributeMap5clearEv")(memory_);
}

}  // namespace raw_slots

// The platform's log, with this program's functions in place of its own.
class UnicodeString;

void LogMessage(int level, const char* category, const char* text) {
  raw_slots::events.push_back(std::to_string(level) + ' ' + category + ": " + text);
}

void LogStringMessage(int level, const char* category, const UnicodeString& text) {
  LogMessage(level, category, raw_slots::utf8(&text).c_str());
}

// Routines that the description names. FetchSymbol() finds them in this
// program.
extern "C" {

bool RawSlotsUpdate() {
  raw_slots::events.emplace_back("update");
  return true;
}

void RawSlotsChange() {
  raw_slots::events.emplace_back("change");
}

int RawSlotsLoad(void* /*element*/, int /*mode*/) {
  return 0;
}

int RawSlotsSort(void* first, void* second) {
  raw_slots::events.emplace_back("sort");
  using raw_slots::entryOf;
  return entryOf(first, "Page") > entryOf(second, "Page") ? 1 : -1;
}

}  // extern "C"
