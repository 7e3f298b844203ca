// The cost of a writer that knows the features of the measured model and writes
// the same bytes by hand: the yardstick for the library's outputs.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"

namespace driver_feature::bench {

namespace {

struct Feature {
  std::string name;
  std::vector<std::string> commands;  // One for each choice.
  std::size_t current = 0;
};

std::vector<Feature> featuresOf(int size, const Carrier& carrier) {
  std::vector<Feature> features;
  for (int i = 0; i < size; ++i) {
    Feature feature{featureName(i), {}};
    for (int choice = 0; choice < kChoices; ++choice) {
      feature.commands.push_back(optionCommand(feature.name, choice, carrier));
    }
    features.push_back(std::move(feature));
  }
  return features;
}

void writePostScript(const std::vector<Feature>& features, std::string& output) {
  output.clear();
  for (const Feature& feature : features) {
    output.append("[{\n%%BeginFeature: *");
    output.append(feature.name);
    output.push_back(' ');
    output.append(feature.commands[feature.current]);
    output.append("\n%%EndFeature\n} stopped cleartomark\n");
  }
}

void appendEscaped(const std::string& text, std::string& output) {
  for (const char c : text) {
    if (c == '<') {
      output.append("&lt;");
    } else if (c == '&') {
      output.append("&amp;");
    } else if (c == '"') {
      output.append("&quot;");
    } else if (c == '>') {
      output.append("&gt;");
    } else {
      output.push_back(c);
    }
  }
}

void writeTicket(const std::vector<Feature>& features, std::string& output) {
  output.assign(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<JobTicket argument1=\"\" argument2=\"\">\n  <JobTicketAttributes>\n");
  for (const Feature& feature : features) {
    output.append("    <Command name=\"");
    appendEscaped(feature.name, output);
    output.append("\" syntax=\"");
    appendEscaped("keyword", output);
    output.append("\" value=\"");
    appendEscaped(feature.commands[feature.current], output);
    output.append("\"/>\n");
  }
  output.append("  </JobTicketAttributes>\n  <OutputAttributes/>\n</JobTicket>\n");
}

template <class Write>
Step writing(std::vector<Feature> features, const Write& write) {
  return {.run =
              [features = std::move(features), write, output = std::string()]() mutable {
                write(features, output);
                benchmark::DoNotOptimize(output.data());
              },
          .overAll = true};
}

// Ends the program when the texts differ.
void requireEqual(const std::string& byHand, const char* kind, int size, int type) {
  DriverFeatureSet& set = useModel(kind, size);
  set.restoreDefaultFeatureValues();
  std::string output;
  set.serialize(output, type, false, "", "");
  if (output == byHand) return;
  std::fprintf(stderr,
               "what is written by hand differs from the library's output:\n%.400s\n%.400s\n",
               byHand.c_str(), output.c_str());
  std::exit(1);
}

}  // namespace

void addHandWritten(Operations& operations) {
  operations.push_back({"write PostScript by hand", kFeatureCounts, [](int size) {
                          auto features = featuresOf(size, kPSCarrier);
                          std::string output;
                          writePostScript(features, output);
                          requireEqual(output, kPSCarrier.kind, size, 1);
                          return writing(std::move(features), writePostScript);
                        }});
  operations.push_back({"write ticket by hand", kFeatureCounts, [](int size) {
                          auto features = featuresOf(size, kTicketCarrier);
                          std::string output;
                          writeTicket(features, output);
                          requireEqual(output, kTicketCarrier.kind, size, 2);
                          return writing(std::move(features), writeTicket);
                        }});
}

}  // namespace driver_feature::bench
