// Groups inside each other, deeper than the parser of the development edition
// lets any description be: a host may have another parser.

#include <gmock/gmock.h>

#include "fault/faulty_host.h"

#include "XMLParser.h"

namespace driver_feature::testing {
namespace {

#ifdef NDEBUG
constexpr int kDepth = 10000;
#else
constexpr int kDepth = 1000;  // The compiler's checks take many times the stack.
#endif

// A parser of elements that exist nowhere: element N is the only child of
// element N - 1; the last one is a feature, all others are static groups.
class DeepParser final : public XMLParser {
 public:
  DeepParser() : before_(pParserInstance) { pParserInstance = this; }
  ~DeepParser() { pParserInstance = before_; }
  DeepParser(const DeepParser&) = delete;
  DeepParser& operator=(const DeepParser&) = delete;

  void* root() { return &levels_[0]; }

  void tagName(void* element, std::string& tag) override {
    tag = isFeature(element) ? "Feature" : "FeatureStaticGroup";
  }
  void reserved1() override {}
  void* firstChild(void* element) override {
    return isFeature(element) ? nullptr : static_cast<char*>(element) + 1;
  }
  void* nextSibling(void* /*element*/) override { return nullptr; }
  void reserved4() override {}
  int childCount(void* element) override { return isFeature(element) ? 0 : 1; }
  void attributes(void* element, AttributeMap& map) override {
    if (isFeature(element)) {
      map["Name"] = "Copies";
      map["FeatureType"] = "IntEntry";
      map["DefaultValue"] = "1";
      map["PSCommand"] = map["PJLCommand"] = "%d";
    } else {
      map["Name"] = "Group" + std::to_string(static_cast<char*>(element) - levels_);
      map["PSCommand"] = map["PJLCommand"] = "(%s)";
    }
    map["TESKJTAttributeName"] = "name";
    map["TESKAttributeSyntax"] = "syntax";
  }

 private:
  bool isFeature(void* element) const { return element == &levels_[kDepth + 1]; }

  char levels_[kDepth + 2] = {};
  XMLParser* before_;
};

TEST(DeepGroupTest, ThousandsOfGroups_FromAnyParser_AreLoadedAndWritten) {
  FaultyHost host;
  DeepParser parser;
  ASSERT_EQ(host.function<int(void*)>("FeatureXMLTagHandler")(parser.root()), 1);
  const std::string text = std::string(kDepth, '(') + '1' + std::string(kDepth, ')');
  EXPECT_EQ(host.output(0), text);
  EXPECT_EQ(host.output(1), text);
}

}  // namespace
}  // namespace driver_feature::testing
