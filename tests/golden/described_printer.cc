#include "golden/described_printer.h"

#include <nlohmann/json.hpp>

#include <map>
#include <set>

namespace {

using Json = nlohmann::json;

// What makes a feature available that is not so by default.
const std::map<std::string, std::string> kConditions = {
    {"CustomPageHeight", "PageSize=Custom"}, {"CustomPageWidth", "PageSize=Custom"},
    {"HoldPin", "HoldJob=Private"},          {"WatermarkAngle", "Watermark=Draft"},
    {"WatermarkSize", "Watermark=Draft"},    {"WatermarkText", "Watermark=Custom"}};

// The empty text, and texts of the full length.
std::vector<std::string> textsOf(const Json& limits) {
  std::string characters = limits.at("characters");
  const std::size_t length = limits.at("maximumLength");
  const std::size_t pieces = (characters.size() + length - 1) / length;
  while (characters.size() < pieces * length) characters += characters;
  std::vector<std::string> texts = {""};
  for (std::size_t i = 0; i < pieces; ++i) texts.push_back(characters.substr(i * length, length));
  return texts;
}

std::vector<std::string> valuesOf(const Json& feature) {
  const std::string type = feature.at("type");
  std::vector<std::string> values;
  if (type == "MultiSelect") {
    for (const Json& choice : feature.at("choices")) values.push_back(choice.at("name"));
  } else if (type == "IntEntry" || type == "FloatEntry") {
    values = {feature.at("limits").at("minimum").dump(), feature.at("limits").at("maximum").dump()};
  } else if (type == "TextEntry") {
    values = textsOf(feature.at("limits"));
  }
  return values;
}

// The features that only give records their shape; their own values are not
// written.
std::set<std::string> templateMembers(const Json& groups) {
  std::set<std::string> members;
  for (const Json& group : groups) {
    if (group.at("kind") != "template") continue;
    for (const Json& member : group.at("members")) members.insert(member.get<std::string>());
  }
  return members;
}

void addVariations(const Json& feature, std::vector<Variation>& variations) {
  const std::string name = feature.at("name");
  const std::string assignment = name + "=";
  for (const std::string& value : valuesOf(feature)) {
    Variation variation{name, {}};
    if (!feature.at("available")) variation.settings.push_back(kConditions.at(name));
    variation.settings.push_back(assignment + value);
    variations.push_back(variation);
  }
}

}  // namespace

std::vector<std::string> DescribedPrinterTest::arguments(const std::string& command) const {
  return {"--callbacks", ROUTINES_LIBRARY, command,
          std::string(DESCRIPTIONS_FOLDER) + "/" + GetParam() + ".xml"};
}

std::string DescribedPrinterTest::emit(const std::string& form,
                                       const std::vector<std::string>& settings) const {
  auto line = arguments("emit");
  line.insert(line.end(), {"--to", form, "--inst-opt"});
  for (const std::string& setting : settings) line.insert(line.end(), {"-o", setting});
  // Several tests look at the same output.
  static std::map<std::vector<std::string>, std::string> outputs;
  const auto [known, isNew] = outputs.try_emplace(line);
  if (isNew) {
    const RunResult result = run(line);
    EXPECT_EQ(result, success(result.output));
    known->second = result.output;
  }
  return known->second;
}

std::vector<Variation> DescribedPrinterTest::variations() const {
  auto line = arguments("show");
  line.emplace_back("--json");
  const RunResult result = run(line);
  EXPECT_EQ(result, success(result.output));
  std::vector<Variation> all = {{"", {}}};
  const Json document = Json::parse(result.output);
  const std::set<std::string> shapes = templateMembers(document.at("groups"));
  for (const Json& feature : document.at("features")) {
    if (!shapes.contains(feature.at("name"))) addVariations(feature, all);
  }
  return all;
}
