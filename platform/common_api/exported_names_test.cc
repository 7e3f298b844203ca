// Every operation is reached through its dynamic symbol, so that a program
// may put its own in place of it.

#include "platform/exported_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "AttributeList.h"
#include "AttributeMap.h"
#include "Log.h"
#include "Symbols.h"
#include "Text.h"
#include "XMLParser.h"

namespace {

using ::testing::IsEmpty;

TEST(CommonApiExportsTest, Operations_AreDynamicSymbolsOfTheLibrary) {
  EXPECT_THAT(driver_feature::testing::missingExports(
                  PLATFORM_COMMON_API, {"_ZN12AttributeMapC1Ev",
                                        "_ZN12AttributeMap5clearEv",
                                        "_ZNK12AttributeMap4sizeEv",
                                        "_ZNK12AttributeMap15loadMapVariableERK@RS5_PS6_",
                                        "_ZNK12AttributeMap15loadMapVariableERK@RbPKb",
                                        "_ZNK12AttributeMap15loadMapVariableERK@RiPKi",
                                        "_ZNK12AttributeMap15loadMapVariableERK@RdPKd",
                                        "_ZNK12AttributeMap26fetchAttributeValueByIndexERKlR@S8_",
                                        "_ZN12AttributeMapixERK@",
                                        "_Z10LogMessageiPKcS0_",
                                        "_Z16LogStringMessageiPKcRK13UnicodeString",
                                        "LogMessageBuffer",
                                        "_Z13SetLogHandlerPFviPKcS0_#PvES1_",
                                        "_ZN13UnicodeStringC1Ev",
                                        "_ZN13UnicodeStringaSERK@",
                                        "_ZN13UnicodeStringaSEPKc",
                                        "_ZNK13UnicodeString4utf8B5cxx11Ev",
                                        "ParseAttributeList_LowLevel",
                                        "FetchSymbol",
                                        "_Z16SetSymbolHandlerPFPvPKcS_E",
                                        "itoa",
                                        "pParserInstance"}),
              IsEmpty());
}

// The declarations, exactly.
using Map = AttributeMap;
template <class Value>
using Load = bool (Map::*)(const std::string&, Value&, const Value*) const;

static_assert(std::is_same_v<decltype(&Map::clear), void (Map::*)()>);
static_assert(std::is_same_v<decltype(&Map::size), long (Map::*)() const>);
[[maybe_unused]] constexpr Load<std::string> kLoadText = &Map::loadMapVariable;
[[maybe_unused]] constexpr Load<bool> kLoadBool = &Map::loadMapVariable;
[[maybe_unused]] constexpr Load<int> kLoadInt = &Map::loadMapVariable;
[[maybe_unused]] constexpr Load<double> kLoadDouble = &Map::loadMapVariable;
static_assert(std::is_same_v<decltype(&Map::fetchAttributeValueByIndex),
                             bool (Map::*)(const long&, std::string&, std::string&) const>);
static_assert(
    std::is_same_v<decltype(&Map::operator[]), std::string& (Map::*)(const std::string&)>);
static_assert(std::is_same_v<decltype(&LogMessage), void (*)(int, const char*, const char*)>);
static_assert(
    std::is_same_v<decltype(&LogStringMessage), void (*)(int, const char*, const UnicodeString&)>);
static_assert(std::is_same_v<decltype(LogMessageBuffer), UnicodeString>);
static_assert(
    std::is_same_v<decltype(&UnicodeString::utf8), const std::string& (UnicodeString::*)() const>);
static_assert(std::is_same_v<decltype(&ParseAttributeList_LowLevel),
                             int (*)(const char* const*, int, const char*)>);
static_assert(std::is_same_v<decltype(&FetchSymbol), void* (*)(const char*)>);
static_assert(std::is_same_v<decltype(&itoa), char* (*)(int, char*, int)>);
static_assert(std::is_same_v<decltype(pParserInstance), XMLParser*>);

}  // namespace
