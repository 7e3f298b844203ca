#include "platform/exported_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "VORNWriter.h"

namespace {

using ::testing::IsEmpty;

TEST(XmlParserExportsTest, Operations_AreDynamicSymbolsOfTheLibrary) {
  EXPECT_THAT(driver_feature::testing::missingExports(
                  PLATFORM_XML_PARSER,
                  {"_ZN10VORNWriterC1Ev", "_ZN10VORNWriter22initializeJobTicketDOMEPKcS1_",
                   "_ZN10VORNWriter17createCommandNodeER@S6_S6_b",
                   "_ZN10VORNWriter22createGroupCommandNodeER@S6_b",
                   "_ZN10VORNWriter27createChildGroupCommandNodeEP8_xmlNodeR@S8_",
                   "_ZN10VORNWriter22createChildCommandNodeEP8_xmlNodeR@S8_S8_",
                   "_ZN10VORNWriter15serializeTicketER@"}),
              IsEmpty());
}

// The name is libxml2's; libCommonAPI has the function.
TEST(XmlParserExportsTest, Isolat1ToUtf8_IsFoundThroughTheLibrary) {
  void* library = dlopen(PLATFORM_XML_PARSER, RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(library, nullptr);
  void* found = dlsym(library, "isolat1ToUTF8");
  ASSERT_NE(found, nullptr);
  unsigned char out[8] = {};
  const unsigned char in[] = {'a', 0xE4};
  int outSize = sizeof out;
  int inSize = sizeof in;
  using Latin1Converter = int (*)(unsigned char*, int*, const unsigned char*, int*);
  EXPECT_EQ(reinterpret_cast<Latin1Converter>(found)(out, &outSize, in, &inSize), 3);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(out)), "a\xC3\xA4");
  dlclose(library);
}

// A program may define the operations itself, so there is nothing to end and
// nothing that the header does not show.
using Text = std::string&;
static_assert(std::is_trivially_copyable_v<VORNWriter>);
static_assert(std::is_trivially_destructible_v<VORNWriter>);
static_assert(!std::is_polymorphic_v<VORNWriter>);
static_assert(std::is_same_v<decltype(&VORNWriter::initializeJobTicketDOM),
                             void (VORNWriter::*)(const char*, const char*)>);
static_assert(std::is_same_v<decltype(&VORNWriter::createCommandNode),
                             _xmlNode* (VORNWriter::*)(Text, Text, Text, bool)>);
static_assert(std::is_same_v<decltype(&VORNWriter::createGroupCommandNode),
                             _xmlNode* (VORNWriter::*)(Text, Text, bool)>);
static_assert(std::is_same_v<decltype(&VORNWriter::createChildGroupCommandNode),
                             _xmlNode* (VORNWriter::*)(_xmlNode*, Text, Text)>);
static_assert(std::is_same_v<decltype(&VORNWriter::createChildCommandNode),
                             _xmlNode* (VORNWriter::*)(_xmlNode*, Text, Text, Text)>);
static_assert(std::is_same_v<decltype(&VORNWriter::serializeTicket), void (VORNWriter::*)(Text)>);

}  // namespace
