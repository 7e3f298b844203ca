// Feeds arbitrary texts to the ticket writer, directly and through a model of
// features. The ticket must hold the same texts, or nothing where XML cannot
// hold them.
//
// The input is a list of operations, each a byte and the texts that it takes.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "frame/exports.h"
#include "fuzz/input_reader.h"
#include "fuzz/model_release.h"
#include "fuzz/ticket_model.h"
#include "model/vocabulary.h"

#include "Log.h"
#include "VORNWriter.h"

namespace driver_feature::fuzz {
namespace {

constexpr std::size_t kLongestInput = 8192;

void keepSilent(int, const char*, const char*, std::size_t, void*) {}

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "not so: %s\n", what);
  std::abort();
}

// A text in the form of the two arguments of a ticket.
std::string upToNul(const std::string& text) {
  return text.substr(0, text.find('\0'));
}

// A ticket that the writer makes, and the expected one.
class TicketRun {
 public:
  explicit TicketRun(InputReader& input) {
    const std::string argument1 = upToNul(input.takeText());
    const std::string argument2 = upToNul(input.takeText());
    writer_.initializeJobTicketDOM(argument1.c_str(), argument2.c_str());
    expected_ = makeTicket(argument1, argument2);
  }

  // Makes a node at top level, or in a group that was made before.
  void makeNode(unsigned operation, InputReader& input) {
    const bool isCommand = (operation & 1U) != 0;
    const bool isJobTicket = (operation & 2U) != 0;
    const bool isChild = (operation & 4U) != 0 && !groups_.empty();
    std::string name = input.takeText();
    std::string syntax = input.takeText();
    std::string value = isCommand ? input.takeText() : "";
    const std::size_t parent = isChild ? input.takeByte() % groups_.size() : 0;
    TicketElement& place =
        isChild ? *groups_[parent].expected : *expected_->children[isJobTicket ? 0 : 1];
    TicketElement* const expected = addNode(place, name, syntax, isCommand ? &value : nullptr);
    _xmlNode* const made = isChild ? makeChild(groups_[parent].node, isCommand, name, syntax, value)
                                   : makeTop(isJobTicket, isCommand, name, syntax, value);
    require((made != nullptr) == (expected != nullptr), "what XML can hold is taken");
    if (made != nullptr && !isCommand) groups_.push_back({made, expected});
  }

  void finish() {
    std::string output = "stale";
    writer_.serializeTicket(output);
    requireTicket(output, *expected_);
  }

 private:
  struct Group {
    _xmlNode* node;
    TicketElement* expected;
  };

  _xmlNode* makeTop(bool isJobTicket, bool isCommand, std::string& name, std::string& syntax,
                    std::string& value) {
    return isCommand ? writer_.createCommandNode(name, syntax, value, isJobTicket)
                     : writer_.createGroupCommandNode(name, syntax, isJobTicket);
  }

  _xmlNode* makeChild(_xmlNode* parent, bool isCommand, std::string& name, std::string& syntax,
                      std::string& value) {
    return isCommand ? writer_.createChildCommandNode(parent, name, syntax, value)
                     : writer_.createChildGroupCommandNode(parent, name, syntax);
  }

  VORNWriter writer_;
  std::unique_ptr<TicketElement> expected_;
  std::vector<Group> groups_;
};

// The texts of one feature that its ticket command is made of.
struct FeatureTexts {
  bool isJobTicket;
  std::string name;
  std::string syntax;
  std::string value;
};

void makeFeature(const std::string& key, const FeatureTexts& texts) {
  auto* feature = new DriverFeature(key);
  feature->setFeatureProperty(std::string("FeatureType"), static_cast<int>(kTextEntry));
  feature->setFeatureProperty(
      std::string(texts.isJobTicket ? "TESKJTAttributeName" : "TESKOAAttributeName"), texts.name);
  feature->setFeatureProperty(std::string("TESKAttributeSyntax"), texts.syntax);
  feature->setFeatureProperty(std::string("CurrentTextValue"), texts.value);
  masterSet().addFeatureToFeatureList(key, feature);
}

// Features with the texts of the input. The ticket has them in the byte order
// of their keys, those with a ticket name and a value.
void tryModel(InputReader& input) {
  std::map<std::string, FeatureTexts> features;
  while (!input.isAtEnd() && features.size() < 16) {
    const std::string key = input.takeText();
    const bool isJobTicket = (input.takeByte() & 1U) != 0;
    FeatureTexts texts{isJobTicket, input.takeText(), input.takeText(), input.takeText()};
    if (key.empty() || !features.emplace(key, texts).second) continue;
    makeFeature(key, texts);
  }
  const auto expected = makeTicket("7.0", "\xE4");
  for (const auto& [key, texts] : features) {
    if (texts.name.empty() || texts.value.empty()) continue;
    addNode(*expected->children[texts.isJobTicket ? 0 : 1], texts.name, texts.syntax, &texts.value);
  }
  std::string output;
  static_cast<CoreFeatureSet*>(GetMasterFeatureList())->serialize(output, 2, true, "7.0", "\xE4");
  requireTicket(output, *expected);
  releaseModel();
}

void tryWriter(InputReader& input) {
  TicketRun ticket(input);
  while (!input.isAtEnd()) ticket.makeNode(input.takeByte(), input);
  ticket.finish();
}

}  // namespace
}  // namespace driver_feature::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > driver_feature::fuzz::kLongestInput) return 0;
  SetLogHandler(driver_feature::fuzz::keepSilent, nullptr);
  driver_feature::fuzz::InputReader input(data, size);
  if ((input.takeByte() & 1U) != 0) {
    driver_feature::fuzz::tryModel(input);
  } else {
    driver_feature::fuzz::tryWriter(input);
  }
  return 0;
}
