#include "bench/generated_model.h"

#include <string_view>

namespace driver_feature::bench {

namespace {

constexpr std::string_view kPPDHead =
    "*PPD-Adobe: \"4.3\"\n"
    "*FormatVersion: \"4.3\"\n"
    "*FileVersion: \"1.0\"\n"
    "*LanguageVersion: English\n"
    "*LanguageEncoding: ISOLatin1\n"
    "*PCFileName: \"BENCH.PPD\"\n"
    "*Manufacturer: \"Bench\"\n"
    "*Product: \"(Bench)\"\n"
    "*PSVersion: \"(3010.000) 0\"\n"
    "*ModelName: \"Bench\"\n"
    "*ShortNickName: \"Bench\"\n"
    "*NickName: \"Bench\"\n";

constexpr std::string_view kDescriptionHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<FeatureDescription>\n"
    "  <BaseFeatureInfo DefaultCallbackHandler=\"benchUpdate\" "
    "LoadVORNCallbackHandler=\"benchLoad\"/>\n";
constexpr std::string_view kDescriptionTail = "</FeatureDescription>\n";

// The PostScript of a choice, without a line end.
std::string codeOf(const std::string& feature, int choice) {
  return "<</" + feature + " " + std::to_string(choice) + ">>setpagedevice";
}

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '<':
        result += "&lt;";
        break;
      case '&':
        result += "&amp;";
        break;
      case '"':
        result += "&quot;";
        break;
      case '\n':
        result += "&#10;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string attribute(std::string_view name, std::string_view value) {
  return " " + std::string(name) + "=\"" + escaped(value) + "\"";
}

bool isTicket(const Carrier& carrier) {
  return std::string_view(carrier.kind) == kTicketCarrier.kind;
}

// What a list feature puts around its choice: what libcups writes around one.
std::string templateOf(const std::string& feature, const Carrier& carrier) {
  if (isTicket(carrier)) return feature;
  return "[{\n%%%%BeginFeature: *" + feature + " %s\n%%%%EndFeature\n} stopped cleartomark\n";
}

}  // namespace

std::string optionCommand(const std::string& feature, int choice, const Carrier& carrier) {
  if (isTicket(carrier)) return "value-" + choiceName(choice);
  return choiceName(choice) + "\n" + codeOf(feature, choice);
}

std::string featureName(int number) {
  const std::string digits = std::to_string(number);
  return "Feature" + std::string(5 - digits.size(), '0') + digits;
}

NamesInTurn::NamesInTurn(int features, int first, int step) {
  for (int i = first; i < features; i += step) names_.push_back(featureName(i));
}

std::string choiceName(int number) {
  constexpr int kLetters = 26;
  if (number >= kLetters) return "Choice" + std::to_string(number);
  return std::string("Choice") + static_cast<char>('A' + number);
}

std::string ppdText(int features, int choices) {
  std::string text(kPPDHead);
  for (int i = 0; i < features; ++i) {
    const std::string name = featureName(i);
    text.append("*OpenUI *").append(name).append("/").append(name).append(": PickOne\n");
    text.append("*OrderDependency: ").append(std::to_string(10 + i));
    text.append(" AnySetup *").append(name).append("\n");
    text.append("*Default").append(name).append(": ChoiceA\n");
    for (int choice = 0; choice < choices; ++choice) {
      text.append("*").append(name).append(" ").append(choiceName(choice));
      text.append(": \"").append(codeOf(name, choice)).append("\"\n");
    }
    text.append("*CloseUI: *").append(name).append("\n");
  }
  return text;
}

std::string listPPDText(int choices) {
  std::string text(kPPDHead);
  text.append("*OpenUI *List/List: PickOne\n*OrderDependency: 10 AnySetup *List\n");
  text.append("*DefaultList: ").append(featureName(0)).append("\n");
  for (int i = 0; i < choices; ++i) {
    text.append("*List ").append(featureName(i)).append(": \"").append(codeOf("List", i));
    text.append("\"\n");
  }
  return text.append("*CloseUI: *List\n");
}

std::string descriptionText(int features, const Carrier& carrier, int choices) {
  std::string text(kDescriptionHead);
  for (int i = 0; i < features; ++i) {
    const std::string name = featureName(i);
    text.append("  <Feature FeatureType=\"MultiSelect\"").append(attribute("Name", name));
    text.append(attribute("DefaultValue", "ChoiceA"));
    text.append(attribute(carrier.featureCommand, templateOf(name, carrier)));
    if (isTicket(carrier)) text.append(attribute("TESKAttributeSyntax", "keyword"));
    text.append(">\n");
    for (int choice = 0; choice < choices; ++choice) {
      text.append("    <Option").append(attribute("Name", choiceName(choice)));
      text.append(attribute(carrier.optionCommand, optionCommand(name, choice, carrier)));
      text.append("/>\n");
    }
    text.append("  </Feature>\n");
  }
  return text.append(kDescriptionTail);
}

std::string typedDescriptionText(int features) {
  constexpr std::string_view kTypes[] = {"IntEntry", "FloatEntry", "TextEntry"};
  constexpr std::string_view kConversions[] = {"%d", "%f", "%s"};
  constexpr std::string_view kDefaults[] = {"1", "1.5", "a text of thirty characters..."};
  std::string text(kDescriptionHead);
  for (int i = 0; i < features; ++i) {
    const auto type = static_cast<std::size_t>(i % 3);
    text.append("  <Feature").append(attribute("FeatureType", kTypes[type]));
    text.append(attribute("Name", featureName(i)));
    text.append(attribute("AddCallbackRoutine", "benchChange"));
    text.append(attribute("PSCommand", std::string(kConversions[type]) + "\n"));
    text.append(attribute("DefaultValue", kDefaults[type])).append("/>\n");
  }
  return text.append(kDescriptionTail);
}

std::string recordDescriptionText() {
  return std::string(kDescriptionHead) +
         "  <FeatureDynamicGroup Name=\"Records\" SortFunctionName=\"benchCompareRecords\">\n"
         "    <FeatureStaticGroup Name=\"Record\">\n"
         "      <Feature FeatureType=\"TextEntry\" Name=\"RecordName\"/>\n"
         "      <Feature FeatureType=\"IntEntry\" Name=\"RecordNumber\"/>\n"
         "    </FeatureStaticGroup>\n"
         "  </FeatureDynamicGroup>\n" +
         std::string(kDescriptionTail);
}

std::string fiveMembersDescriptionText() {
  std::string text = recordDescriptionText();
  std::string members =
      "      <Feature FeatureType=\"TextEntry\" Name=\"RecordText\"/>\n"
      "      <Feature FeatureType=\"FloatEntry\" Name=\"RecordScale\"/>\n"
      "      <Feature FeatureType=\"MultiSelect\" Name=\"RecordChoice\" "
      "DefaultValue=\"ChoiceA\">\n";
  for (int i = 0; i < kChoices; ++i)
    members += "        <Option Name=\"" + choiceName(i) + "\"/>\n";
  members += "      </Feature>\n";
  return text.insert(text.find("    </FeatureStaticGroup>"), members);
}

}  // namespace driver_feature::bench
