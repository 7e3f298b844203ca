// Which attributes of an element are asked for, and in which order: seen by an
// attribute map that writes down the calls, as a host's may.

#include <dlfcn.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/loader_test.h"

namespace {

bool isNoted = false;
std::vector<std::string> asked;

// The platform's own operation of that symbol.
template <class Value>
bool load(const char* symbol, const AttributeMap& map, const std::string& name, Value& value,
          const Value* fallback) {
  if (isNoted) asked.push_back(name);
  using Load = bool (*)(const AttributeMap*, const std::string&, Value&, const Value*);
  const auto platform = reinterpret_cast<Load>(dlsym(RTLD_NEXT, symbol));
  if (platform == nullptr) std::abort();
  return platform(&map, name, value, fallback);
}

}  // namespace

// These come before the platform's.

#define LOAD_OF_TEXT_NAME "_ZNK12AttributeMap15loadMapVariableERKNSt7__cxx1112basic_stringIcSt11"

bool AttributeMap::loadMapVariable(const std::string& name, std::string& value,
                                   const std::string* fallback) const {
  return load(LOAD_OF_TEXT_NAME "char_traitsIcESaIcEEERS5_PS6_", *this, name, value, fallback);
}
bool AttributeMap::loadMapVariable(const std::string& name, bool& value,
                                   const bool* fallback) const {
  return load(LOAD_OF_TEXT_NAME "char_traitsIcESaIcEEERbPKb", *this, name, value, fallback);
}
bool AttributeMap::loadMapVariable(const std::string& name, int& value, const int* fallback) const {
  return load(LOAD_OF_TEXT_NAME "char_traitsIcESaIcEEERiPKi", *this, name, value, fallback);
}
bool AttributeMap::loadMapVariable(const std::string& name, double& value,
                                   const double* fallback) const {
  return load(LOAD_OF_TEXT_NAME "char_traitsIcESaIcEEERdPKd", *this, name, value, fallback);
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;

class AttributeOrderTest : public LoaderTest {
 protected:
  AttributeOrderTest() { asked.clear(); }
  ~AttributeOrderTest() override { isNoted = false; }

  const std::vector<std::string>& askedOf(const std::string& element) {
    isNoted = true;
    EXPECT_NE(buildFeature(element), nullptr);
    isNoted = false;
    return asked;
  }
};

// The default is asked for in its own place, and all before it are asked for,
// because it is still to come.
TEST_F(AttributeOrderTest, NumberWithADefault_IsAskedForInTheOrderOfReading) {
  EXPECT_THAT(askedOf(R"(<Feature FeatureType="IntEntry" Name="A" DefaultValue="3"/>)"),
              ElementsAre("FeatureType", "Name", "Sensitivity", "Visibility", "Encrypted",
                          "PJLCommand", "PSCommand", "TESKOAAttributeName", "TESKJTAttributeName",
                          "TESKAttributeSyntax", "InstOptAttributeName", "NonVORNAttributeName",
                          "AddCallbackRoutine", "AddPJLCallbackRoutine", "AddPSCallbackRoutine",
                          "AddVORNCallbackRoutine", "SNMPOID", "SNMPOIDPrefix", "BiDiDataSection",
                          "CLOKey", "IntMaxValue", "IntMinValue", "DefaultValue"));
}

TEST_F(AttributeOrderTest, AllWereMet_TheRestIsNotAskedFor) {
  EXPECT_THAT(askedOf(R"(<Feature FeatureType="TextEntry" Name="A" PSCommand="%s"
                                  Visibility="true"/>)"),
              ElementsAre("FeatureType", "Name", "Sensitivity", "Visibility", "Encrypted",
                          "PJLCommand", "PSCommand"));
}

TEST_F(AttributeOrderTest, Fraction_DoesNotConvert_TheRestIsAskedFor) {
  EXPECT_THAT(askedOf(R"(<Feature FeatureType="FloatEntry" Name="A" CLOKey="a"
                                  FloatMaxValue="much"/>)"),
              ElementsAre("FeatureType", "Name", "Sensitivity", "Visibility", "Encrypted",
                          "PJLCommand", "PSCommand", "TESKOAAttributeName", "TESKJTAttributeName",
                          "TESKAttributeSyntax", "InstOptAttributeName", "NonVORNAttributeName",
                          "AddCallbackRoutine", "AddPJLCallbackRoutine", "AddPSCallbackRoutine",
                          "AddVORNCallbackRoutine", "SNMPOID", "SNMPOIDPrefix", "BiDiDataSection",
                          "CLOKey", "FloatMaxValue", "FloatMinValue", "DefaultValue"));
}

TEST_F(AttributeOrderTest, List_TheDefaultComesAfterTheOptions) {
  EXPECT_THAT(askedOf(R"(<Feature FeatureType="MultiSelect" Name="A" PJLCommand="%s">
                           <Option Name="o" TESKCommand="t"/><Option Name="p"/></Feature>)"),
              ElementsAre("FeatureType", "Name", "Sensitivity", "Visibility", "Encrypted",
                          "PJLCommand", "Name", "Sensitivity", "PJLCommand", "PSCommand",
                          "TESKCommand", "Name", "DefaultValue"));
}

TEST_F(AttributeOrderTest, Groups_AllWereMet_TheRestIsNotAskedFor) {
  isNoted = true;
  EXPECT_NE(buildStaticGroup(R"(<FeatureStaticGroup Name="G" PSCommand="%s">
                                <Feature FeatureType="UIOnly" Name="A"/></FeatureStaticGroup>)"),
            nullptr);
  EXPECT_THAT(asked, ElementsAre("Name", "PJLCommand", "PSCommand", "FeatureType", "Name"));
  asked.clear();
  EXPECT_EQ(buildDynamicGroup(R"(<FeatureDynamicGroup Name="D" PJLCommand="%s"/>)"), nullptr);
  EXPECT_THAT(asked, ElementsAre("Name", "PJLCommand"));
}

}  // namespace
}  // namespace driver_feature::testing
