// The cost of the records of a dynamic group: adding one with and without
// sorting, looking for a duplicate, and loading one into the template.

#include <benchmark/benchmark.h>

#include <cstdlib>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"
#include "model/core_feature_group.h"

#include "AttributeMap.h"

namespace driver_feature::bench {

namespace {

// Each addition is undone, and each removal, which takes about as long.
constexpr std::int64_t kAdditions = 300;

// The group with this number of records, in order.
IntermediateDynamicFeatureGroup& groupOf(int records) {
  CoreFeature* object = useModel("records", 0).FindFeatureInFeatureList(std::string("Records"));
  auto* group = dynamic_cast<IntermediateDynamicFeatureGroup*>(object);
  if (group == nullptr) std::abort();
  while (group->fetchNumberOfDynamicEntries() > records) {
    group->removeDynamicEntryByIndex(static_cast<unsigned>(records));
  }
  for (int i = group->fetchNumberOfDynamicEntries(); i < records; ++i) {
    AttributeMap values = recordValues(i);
    if (!group->addStaticGroupToDynamicGroupWithSort(values, false)) std::abort();
  }
  return *group;
}

Step addition(int records, bool sort) {
  IntermediateDynamicFeatureGroup& group = groupOf(records);
  return {.run =
              [&group, sort, values = recordValues(records)]() mutable {
                group.addStaticGroupToDynamicGroupWithSort(values, sort);
              },
          .after = [&group,
                    records] { group.removeDynamicEntryByIndex(static_cast<unsigned>(records)); },
          .iterations = kAdditions};
}

Step removal(int records, unsigned position) {
  IntermediateDynamicFeatureGroup& group = groupOf(records);
  return {.run = [&group, position] { group.removeDynamicEntryByIndex(position); },
          .after =
              [&group, values = recordValues(records)]() mutable {
                group.addStaticGroupToDynamicGroupWithSort(values, false);
              },
          .iterations = kAdditions};
}

// This number of comparisons of records of five members, which are already in
// order.
Step sorting(int comparisons) {
  CoreFeature* object = useModel("five", 0).FindFeatureInFeatureList(std::string("Records"));
  auto* group = dynamic_cast<IntermediateDynamicFeatureGroup*>(object);
  if (group == nullptr) std::abort();
  group->removeAllDynamicEntries();
  for (int i = 0; i <= comparisons; ++i) {
    AttributeMap values = fiveMemberValues(i);
    // The first sorted addition looks the routine up.
    if (!group->addStaticGroupToDynamicGroupWithSort(values, i == 1)) std::abort();
  }
  return {.run = [group] { group->sortList(); }, .overAll = true};
}

}  // namespace

void addRecords(Operations& operations) {
  operations.push_back(
      {"add record", kFeatureCounts, [](int records) { return addition(records, false); }});
  // Already in order, so that sorting visits each pair once.
  operations.push_back(
      {"add record and sort", kRecordCounts, [](int records) { return addition(records, true); }});
  operations.push_back({"compare records of five members", kRecordCounts, sorting});
  operations.push_back(
      {"remove the first record", kFeatureCounts, [](int records) { return removal(records, 0); }});
  operations.push_back({"remove the middle record", kFeatureCounts, [](int records) {
                          return removal(records, static_cast<unsigned>(records / 2));
                        }});
  operations.push_back({"look for duplicate record", kFeatureCounts, [](int records) {
                          IntermediateDynamicFeatureGroup& group = groupOf(records);
                          return Step{[&group, values = recordValues(records)]() mutable {
                            benchmark::DoNotOptimize(group.detectDuplicateRecord(values));
                          }};
                        }});
  operations.push_back({"load record", kFeatureCounts, [](int records) {
                          IntermediateDynamicFeatureGroup& group = groupOf(records);
                          return Step{[&group, middle = static_cast<unsigned>(records / 2)] {
                            benchmark::DoNotOptimize(group.getDynamicEntryByIndex(middle));
                          }};
                        }});
}

}  // namespace driver_feature::bench
