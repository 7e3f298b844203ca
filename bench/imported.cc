// The cost of real printers: descriptions imported from PPD files.

#include <benchmark/benchmark.h>

#include <memory>
#include <utility>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"
#include "bench/real_models.h"
#include "frame/exports.h"
#include "model/driver_feature.h"

namespace driver_feature::bench {

namespace {

struct Choice {
  std::string feature;
  std::string option;
};

std::string optionName(DriverFeature& feature, int index) {
  std::string name;
  feature.fetchOptionByIndex(index)->getOptionProperty(std::string("Name"), name);
  return name;
}

// The first two options of every list that has two, first the one and then the
// other. The option for a value of the user's ("Custom") is left out.
std::vector<Choice> choicesOf(DriverFeatureSet& set) {
  std::vector<Choice> choices;
  for (int option = 0; option < 2; ++option) {
    for (int i = 0; i < set.fetchNumberOfFeatures(); ++i) {
      DriverFeature& feature = *set.fetchFeatureByIndex(i);
      if (feature.getFeatureType() != 1 || feature.fetchNumberOfOptions() < 2) continue;
      Choice choice;
      feature.getFeatureProperty(std::string("Name"), choice.feature);
      choice.option = optionName(feature, option);
      if (optionName(feature, 0) != "Custom" && optionName(feature, 1) != "Custom") {
        choices.push_back(std::move(choice));
      }
    }
  }
  return choices;
}

Step realLoading(int number) {
  auto document = std::make_shared<std::unique_ptr<XMLDocument>>();
  return {.run =
              [document, path = modelPath("real_xml", number)] {
                startEmptySet();
                *document = readModel(path);
                build(**document);
              },
          .after =
              [document] {
                document->reset();
                deleteSet();
              }};
}

Step changing(int number) {
  return {[choices = choicesOf(useModel("real_xml", number)), next = std::size_t{0}]() mutable {
    Choice& choice = choices[next];
    next = (next + 1) % choices.size();
    SetFeatureTextValue(choice.feature, "ValueString", choice.option);
  }};
}

Step realWriting(int number) {
  DriverFeatureSet& set = useModel("real_xml", number);
  return {.run =
              [&set, output = std::string()]() mutable {
                makeTextsOld();
                set.serialize(output, 1, false, "", "");
                benchmark::DoNotOptimize(output.data());
              },
          .overAll = true};
}

}  // namespace

void addImported(Operations& operations) {
  const std::vector<int> models = realModels();
  if (models.empty()) return;
  operations.push_back({"load of a real printer", models, realLoading});
  operations.push_back({"change choice of a real printer", models, changing});
  operations.push_back({"serialize a real printer", models, realWriting});
}

}  // namespace driver_feature::bench
