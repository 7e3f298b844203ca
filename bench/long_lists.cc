// Whether operations slow down when their list grows: long lists of choices,
// groups, features and members, deep nesting. The models are made here, by the
// library's own operations.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"
#include "frame/exports.h"
#include "frame/state.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_static_group.h"

#include "AttributeMap.h"

namespace driver_feature::bench {

namespace {

using Make = std::function<void(DriverFeatureSet& set, int size)>;

// Makes the model of that kind and size, made once and kept, the master set.
DriverFeatureSet& useMadeModel(const std::string& kind, int size, const Make& make) {
  static std::map<std::pair<std::string, int>, DriverFeatureSet*> models;
  DriverFeatureSet*& set = models[{kind, size}];
  if (set == nullptr) {
    startEmptySet();
    keepNoLog();
    set = libraryState().masterSet;
    make(*set, size);
  }
  libraryState().masterSet = set;
  return *set;
}

DriverFeature* fileFeature(DriverFeatureSet& set, const std::string& name, int type) {
  auto* feature = new DriverFeature(name);
  feature->setFeatureProperty(std::string("FeatureType"), type);
  set.addFeatureToFeatureList(name, feature);
  return feature;
}

void makeList(DriverFeatureSet& set, int choices) {
  DriverFeature* list = fileFeature(set, "List", 1);
  for (int i = 0; i < choices; ++i)
    list->addOptionToFeature(new DriverFeatureOption(featureName(i)));
}

CoreFeature& useList(int choices) {
  return *useMadeModel("list", choices, makeList).FindFeatureInFeatureList(std::string("List"));
}

Step choosing(int choices) {
  useList(choices);
  return {[list = std::string("List"), names = NamesInTurn(choices)]() mutable {
    SetFeatureTextValue(list, "ValueString", names.next());
  }};
}

Step finding(int choices) {
  return {[&list = useList(choices), names = NamesInTurn(choices)]() mutable {
    benchmark::DoNotOptimize(list.fetchOptionByName(names.next()));
  }};
}

// Other options than the current one.
Step constraining(int choices) {
  auto& list = dynamic_cast<IntermediateCoreFeature&>(useList(choices));
  list.setFeatureProperty(std::string("CurrentIntValue"), 0);
  return {[&list, names = NamesInTurn(choices, 1)]() mutable {
    benchmark::DoNotOptimize(list.applyOptionConstraint(names.next(), 7, false));
  }};
}

void makeGroups(DriverFeatureSet& set, int groups) {
  for (int i = 0; i < groups; ++i) {
    set.addStaticGroupToFeatureList(new DriverFeatureStaticGroup(featureName(i)));
  }
}

Step findingGroup(int groups) {
  DriverFeatureSet& set = useMadeModel("groups", groups, makeGroups);
  return {[&set, names = NamesInTurn(groups)]() mutable {
    benchmark::DoNotOptimize(set.FindFeatureInFeatureList(names.next()));
  }};
}

Step findingNothing(int groups) {
  DriverFeatureSet& set = useMadeModel("groups", groups, makeGroups);
  return {[&set, name = std::string("Absent")] {
    benchmark::DoNotOptimize(set.FindFeatureInFeatureList(name));
  }};
}

void makeFeatures(DriverFeatureSet& set, int features) {
  for (int i = 0; i < features; ++i) fileFeature(set, featureName(i), 2);
}

Step fetching(int features) {
  DriverFeatureSet& set = useMadeModel("features", features, makeFeatures);
  constexpr int kStride = 7919;
  return {[&set, features, at = 0]() mutable {
    at = (at + kStride) % features;
    benchmark::DoNotOptimize(set.fetchFeatureByIndex(at));
  }};
}

// Adds two more features to those that there are.
Step loadingMore(int features) {
  useMadeModel("to be extended", features, makeFeatures);
  const auto document =
      std::make_shared<std::unique_ptr<XMLDocument>>(readModel(modelPath("records", 0)));
  return {.run = [document] { build(**document); }, .overAll = true};
}

// One record of so many members.
void makeWideRecord(DriverFeatureSet& set, int members) {
  auto* shape = new DriverFeatureStaticGroup(std::string("Shape"));
  AttributeMap values;
  for (int i = 0; i < members; ++i) {
    shape->addFeatureToGroup(fileFeature(set, featureName(i), 2));
    values[featureName(i)] = "7";
  }
  auto* group = new DriverFeatureDynamicGroup(std::string("Records"));
  group->addDefaultStaticGroupTemplate(shape);
  set.addDynamicGroupToFeatureList(group);
  if (!group->addStaticGroupToDynamicGroup(values)) std::abort();
}

Step readingWideRecord(int members) {
  DriverFeatureSet& set = useMadeModel("wide record", members, makeWideRecord);
  return {.run = [group = set.fetchDynamicGroupByIndex(
                      0)] { benchmark::DoNotOptimize(group->getDynamicEntryByIndex(0)); },
          .overAll = true};
}

// Groups in groups, so many deep, around one feature.
void makeNest(DriverFeatureSet& set, int depth) {
  CoreFeature* inner = fileFeature(set, "Innermost", 2);
  inner->setFeatureProperty(std::string("PSCommand"), std::string("%d innermost\n"));
  for (int i = 0; i < depth; ++i) {
    auto* group = new DriverFeatureStaticGroup(featureName(i));
    group->setFeatureProperty(std::string("PSCommand"), std::string("begin\n%send\n"));
    group->addFeatureToGroup(inner);
    set.addStaticGroupToFeatureList(group);
    inner = group;
  }
}

// Groups of five features each, which have a PostScript command only.
void makeGroupedFeatures(DriverFeatureSet& set, int features) {
  DriverFeatureStaticGroup* group = nullptr;
  for (int i = 0; i < features; ++i) {
    if (i % 5 == 0) {
      group = new DriverFeatureStaticGroup("Group" + std::to_string(i));
      group->setFeatureProperty(std::string("PSCommand"), std::string("%s"));
      set.addStaticGroupToFeatureList(group);
    }
    DriverFeature* feature = fileFeature(set, featureName(i), 2);
    feature->setFeatureProperty(std::string("PSCommand"), std::string("%d set\n"));
    group->addFeatureToGroup(feature);
  }
}

Step writing(DriverFeatureSet& set, int type) {
  return {.run =
              [&set, type, output = std::string()]() mutable {
                set.serialize(output, type, false, "", "");
                benchmark::DoNotOptimize(output.data());
              },
          .overAll = true};
}

}  // namespace

void addLongLists(Operations& operations) {
  operations.push_back({"choose in a list", kFeatureCounts, choosing});
  operations.push_back({"find in a list", kFeatureCounts, finding});
  operations.push_back({"constrain in a list", kFeatureCounts, constraining});
  operations.push_back({"find group", kFeatureCounts, findingGroup});
  operations.push_back({"find no name among groups", kFeatureCounts, findingNothing});
  operations.push_back({"fetch by any position", kFeatureCounts, fetching});
  operations.push_back({"load two features more", kFeatureCounts, loadingMore});
  operations.push_back({"read a record of many members", kFeatureCounts, readingWideRecord});
  operations.push_back({"serialize nested groups", {10, 50, 100, 200}, [](int depth) {
                          return writing(useMadeModel("nest", depth, makeNest), 1);
                        }});
  operations.push_back({"serialize PJL of grouped features", kFeatureCounts, [](int features) {
                          return writing(useMadeModel("grouped", features, makeGroupedFeatures), 0);
                        }});
}

}  // namespace driver_feature::bench
