// This program defines routines of the platform itself. The library must
// reach these, because it takes every one of them through its dynamic symbol.

#include <dlfcn.h>

#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plugin/loaded_library.h"

#include "AttributeList.h"
#include "Log.h"
#include "Symbols.h"
#include "Text.h"
#include "VORNWriter.h"
#include "XMLParser.h"

namespace {

std::vector<std::string>* events = nullptr;

void addEvent(const std::string& event) {
  if (events != nullptr) events->push_back(event);
}

// The platform's own routine, which one of this program replaces.
template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool updateCallback() {
  addEvent("update");
  return true;
}

int loadCallback(void* /*element*/, int mode) {
  addEvent("load " + std::to_string(mode));
  return 0;
}

}  // namespace

void LogMessage(int level, const char* category, const char* text) {
  addEvent("LogMessage " + std::to_string(level) + ' ' + category + ": " + text);
}

void LogStringMessage(int level, const char* category, const UnicodeString& text) {
  const bool isBuffer = &text == &LogMessageBuffer;
  addEvent("LogStringMessage " + std::to_string(level) + ' ' + category +
           (isBuffer ? " (buffer): " : ": ") + text.utf8());
}

extern "C" {

void* FetchSymbol(const char* name) {
  addEvent(std::string("FetchSymbol ") + name);
  if (std::string(name) == "no C++ name: update") return reinterpret_cast<void*>(updateCallback);
  if (std::string(name) == "no C++ name: load") return reinterpret_cast<void*>(loadCallback);
  return nullptr;
}

int ParseAttributeList_LowLevel(const char* const* names, int highestIndex, const char* name) {
  addEvent("ParseAttributeList_LowLevel " + std::to_string(highestIndex) + ' ' + name);
  return next<int(const char* const*, int, const char*)>("ParseAttributeList_LowLevel")(
      names, highestIndex, name);
}

char* itoa(int value, char* text, int radix) {
  addEvent("itoa " + std::to_string(value) + " in " + std::to_string(radix));
  return next<char*(int, char*, int)>("itoa")(value, text, radix);
}

int isolat1ToUTF8(unsigned char* out, int* outlen, const unsigned char* in, int* inlen) {
  addEvent("isolat1ToUTF8 " +
           std::string(reinterpret_cast<const char*>(in), static_cast<std::size_t>(*inlen)));
  return next<int(unsigned char*, int*, const unsigned char*, int*)>("isolat1ToUTF8")(out, outlen,
                                                                                      in, inlen);
}

}  // extern "C"

VORNWriter::VORNWriter() = default;

void VORNWriter::initializeJobTicketDOM(const char* argument1, const char* argument2) {
  addEvent(std::string("initializeJobTicketDOM ") + argument1 + ' ' + argument2);
}

_xmlNode* VORNWriter::createCommandNode(std::string& name, std::string& syntax, std::string& value,
                                        bool jobTicketAttribute) {
  addEvent("createCommandNode " + name + ' ' + syntax + ' ' + value +
           (jobTicketAttribute ? " JT" : " OA"));
  return nullptr;
}

void VORNWriter::serializeTicket(std::string& output) {
  output += "the ticket";
}

namespace driver_feature::testing {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;

class InterpositionTest : public LoadedLibraryTest {
 protected:
  void SetUp() override {
    LoadedLibraryTest::SetUp();
    events = &events_;
  }
  ~InterpositionTest() override { events = nullptr; }

  std::vector<std::string> events_;
};

TEST_F(InterpositionTest, Load_Routines_AreAskedForFromThisProgram) {
  EXPECT_EQ(library_.load("<Features><BaseFeatureInfo DefaultCallbackHandler="
                          "\"no C++ name: update\" LoadVORNCallbackHandler=\"no C++ name: load\"/>"
                          "</Features>"),
            1);
  EXPECT_THAT(events_, ElementsAre("isolat1ToUTF8 DriverFeature", "FetchSymbol no C++ name: update",
                                   "FetchSymbol no C++ name: load"));
  events_.clear();
  library_.function<int(void*)>("JobTicketVORNTagHandler")(nullptr);
  EXPECT_THAT(events_, ElementsAre("load 0", "update"));
}

TEST_F(InterpositionTest, Log_FixedText_IsWrittenToThisProgram) {
  library_.load(
      "<Features><BaseFeatureInfo DefaultCallbackHandler=\"no C++ name: update\"/>"
      "</Features>");
  EXPECT_THAT(events_,
              ElementsAre("isolat1ToUTF8 DriverFeature", "FetchSymbol no C++ name: update",
                          "LogMessage 2 DriverFeature: FeatureXMLTagHandler() - No Custom Load "
                          "VORN Callback Handler element"));
}

TEST_F(InterpositionTest, Log_ComposedText_IsThePlatformsBufferWrittenToThisProgram) {
  EXPECT_EQ(library_.set().FindFeatureInFeatureList("Missing"), nullptr);
  EXPECT_THAT(events_, ElementsAre("LogStringMessage 3 DriverFeature (buffer): "
                                   "FindFeatureInFeatureList() - Did not find feature "
                                   "\"Missing\"."));
}

TEST_F(InterpositionTest, Properties_NamesAndNumbers_AreLookedUpAndWrittenByThisProgram) {
  library_.load(
      "<Features><Feature FeatureType=\"IntEntry\" Name=\"A\" DefaultValue=\"-12\"/>"
      "</Features>");
  EXPECT_THAT(events_, ElementsAre("isolat1ToUTF8 DriverFeature",
                                   "ParseAttributeList_LowLevel 44 FeatureType",
                                   "ParseAttributeList_LowLevel 44 DefaultIntValue",
                                   "ParseAttributeList_LowLevel 44 CurrentIntValue"));
  events_.clear();
  std::string value;
  CoreFeature& feature = *library_.set().FindFeatureInFeatureList("A");
  EXPECT_TRUE(feature.getFeatureProperty(std::string("ValueString"), value));
  EXPECT_EQ(value, "-12");
  EXPECT_THAT(events_, ElementsAre("ParseAttributeList_LowLevel 44 ValueString", "itoa -12 in 10"));
}

TEST_F(InterpositionTest, Ticket_Writer_IsThatOfThisProgram) {
  library_.load(
      "<Features><Feature FeatureType=\"IntEntry\" Name=\"A\" DefaultValue=\"3\" "
      "TESKOAAttributeName=\"copies\" TESKAttributeSyntax=\"integer\"/></Features>");
  std::string output;
  library_.set().serialize(output, 2, false, "one", "two");
  EXPECT_THAT(events_, AllOf(Contains("initializeJobTicketDOM one two"),
                             Contains("createCommandNode copies integer 3 OA")));
  EXPECT_EQ(output, "the ticket");
}

// A parser of this program, put where the library looks for the platform's.
class EmptyParser final : public XMLParser {
 public:
  void tagName(void* /*element*/, std::string& /*tag*/) override { addEvent("tagName"); }
  void reserved1() override {}
  void* firstChild(void* element) override {
    addEvent(element == this ? "firstChild" : "firstChild of another element");
    return nullptr;
  }
  void* nextSibling(void* /*element*/) override { return nullptr; }
  void reserved4() override {}
  int childCount(void* /*element*/) override { return 0; }
  void attributes(void* /*element*/, AttributeMap& /*map*/) override { addEvent("attributes"); }
};

TEST_F(InterpositionTest, Parser_Replaced_IsTheOneThatIsAsked) {
  EmptyParser parser;
  XMLParser* earlier = std::exchange(pParserInstance, &parser);
  const int result = library_.function<int(void*)>("FeatureXMLTagHandler")(&parser);
  pParserInstance = earlier;
  EXPECT_EQ(result, 1);
  EXPECT_THAT(events_, ElementsAre("isolat1ToUTF8 DriverFeature", "firstChild"));
}

}  // namespace
}  // namespace driver_feature::testing
