#include "programs/printer/ipp_message.h"

#include <gtest/gtest.h>

#include "programs/printer/job_process.h"
#include "programs/printer/settings_verdict.h"
#include "programs/printer/requested.h"

namespace driver_feature::printer {
namespace {

// One value with a tag, a name and a value of less than 256 bytes.
std::string value(char tag, const std::string& name, const std::string& bytes) {
  return std::string(1, tag) + '\0' + static_cast<char>(name.size()) + name + '\0' +
         static_cast<char>(bytes.size()) + bytes;
}

const std::string kHead("\2\0\0\2\0\0\0\1\1", 9);

TEST(AttributeEnd, Message_ArrivesByteByByte_IsFoundAtItsEnd) {
  const std::string message = kHead + value(0x47, "attributes-charset", "utf-8") + '\2' +
                              value(0x21, "copies", {0, 0, 0, 3}) + '\3';
  AttributeEnd end;
  for (std::size_t size = 0; size < message.size(); ++size) {
    EXPECT_EQ(end.find(message.substr(0, size)), 0U) << size;
  }
  EXPECT_EQ(end.find(message + "document"), message.size());
  EXPECT_FALSE(end.isTooMuch());
}

TEST(AttributeEnd, Collections_DeeperThanAllowed_AreTooMuch) {
  std::string message = kHead;
  for (int i = 0; i < 16; ++i) message += value(0x34, "c", "");
  AttributeEnd end;
  EXPECT_EQ(end.find(message), 0U);
  EXPECT_FALSE(end.isTooMuch());
  EXPECT_EQ(end.find(message + value(0x34, "c", "")), 0U);
  EXPECT_TRUE(end.isTooMuch());
}

TEST(AttributeEnd, Collection_EndsWithoutABeginning_IsTooMuch) {
  AttributeEnd end;
  end.find(kHead + value(0x37, "", ""));
  EXPECT_TRUE(end.isTooMuch());
}

TEST(AttributeEnd, Values_MoreThanAllowed_AreTooMuch) {
  std::string message = kHead;
  for (int i = 0; i <= 20000; ++i) message += value(0x44, "", "a");
  AttributeEnd end;
  end.find(message);
  EXPECT_TRUE(end.isTooMuch());
}

TEST(AttributeEnd, Message_LongerThanAllowed_IsTooMuch) {
  AttributeEnd end;
  std::string message = kHead;
  while (message.size() <= 1U << 20)
    message += std::string("\x44\0\0\x7f\xff", 5) + std::string(32767, 'a');
  EXPECT_EQ(end.find(message), 0U);
  EXPECT_TRUE(end.isTooMuch());
}

TEST(ReadIpp, BytesOfAMessage_AreThatMessage) {
  const IppPointer message = readIpp(kHead + value(0x47, "attributes-charset", "utf-8") + '\3');
  ASSERT_TRUE(message);
  EXPECT_EQ(textOf(message.get(), "attributes-charset", IPP_TAG_CHARSET), "utf-8");
  EXPECT_EQ(ippBytes(message.get()), kHead + value(0x47, "attributes-charset", "utf-8") + '\3');
}

TEST(ReadIpp, DamagedMessage_IsNull) {
  EXPECT_FALSE(readIpp(kHead + value(0x21, "copies", "abc") + '\3'));
  EXPECT_FALSE(readIpp(kHead + value(0x21, "", {0, 0, 0, 1}) + '\3'));
  EXPECT_FALSE(readIpp("\2"));
}

TEST(PackedSettings, Settings_ComeBack) {
  const auto settings = unpackSettings(packSettings({{"A", "1:2"}, {"B", ""}}));
  ASSERT_EQ(settings.size(), 2U);
  EXPECT_EQ(settings[0].value, "1:2");
  EXPECT_EQ(settings[1].name, "B");
  EXPECT_TRUE(unpackSettings("5:abc").empty());
}

TEST(Frames, Verdict_ComesBack) {
  const SettingsVerdict made =
      unpackVerdict(pack({"a problem", "a conflict: 1", {"A", "B"}, {{"C", "d e"}}}));
  EXPECT_EQ(made.problem, "a problem");
  EXPECT_EQ(made.conflict, "a conflict: 1");
  EXPECT_EQ(made.features, (std::vector<std::string>{"A", "B"}));
  ASSERT_EQ(made.changes.size(), 1U);
  EXPECT_EQ(made.changes[0].name + "=" + made.changes[0].value, "C=d e");
  EXPECT_TRUE(unpackVerdict("").problem.empty());
}

TEST(OptionText, ValuesWithBlanksAndQuotes_AreQuoted) {
  EXPECT_EQ(
      optionText({{"PageSize", "A4"}, {"Title", "it's a \\"}, {"Empty", ""}, {"Set", "{a=b}"}}),
      "PageSize=A4 Title='it\\'s a \\\\' Empty='' Set='{a=b}'");
}

IppPointer requestFor(const std::vector<const char*>& names) {
  IppPointer request(::ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES), &::ippDelete);
  if (!names.empty()) {
    ::ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                    static_cast<int>(names.size()), nullptr, names.data());
  }
  return request;
}

// The names that a request for some attributes gets.
std::string given(const std::vector<const char*>& names) {
  const IppPointer source(::ippNew(), &::ippDelete);
  for (const char* name : {"printer-name", "sides-supported", "sides-default", "media-col-database",
                           "color-supported", "media-col-ready"}) {
    ::ippAddString(source.get(), IPP_TAG_PRINTER, IPP_TAG_KEYWORD, name, nullptr, "x");
  }
  const IppPointer request = requestFor(names);
  const IppPointer response(::ippNew(), &::ippDelete);
  Requested(request.get(), {"all"})
      .copyPrinter(response.get(), source.get(), {"sides", "media-col"}, nullptr, true);
  std::string text;
  for (ipp_attribute_t* one = ::ippFirstAttribute(response.get()); one != nullptr;
       one = ::ippNextAttribute(response.get())) {
    text += std::string(::ippGetName(one)) + " ";
  }
  return text;
}

TEST(Requested, Groups_GiveTheirAttributes) {
  EXPECT_EQ(given({}),
            "printer-name sides-supported sides-default color-supported media-col-ready ");
  EXPECT_EQ(given({"all", "media-col-database"}),
            "printer-name sides-supported sides-default media-col-database color-supported "
            "media-col-ready ");
  EXPECT_EQ(given({"job-template"}), "sides-supported sides-default media-col-ready ");
  EXPECT_EQ(given({"printer-description"}), "printer-name color-supported ");
  EXPECT_EQ(given({"sides-default", "unknown"}), "sides-default ");
}

}  // namespace
}  // namespace driver_feature::printer
