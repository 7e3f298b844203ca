#include "host/page/journal.h"

#include <algorithm>
#include <map>
#include <utility>

namespace driver_feature::page {

namespace {

using Settings = std::vector<host::Setting>;

// A longer way that leads nowhere is given up.
constexpr std::size_t kMost = 500;

Settings joined(Settings first, const Settings& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// What has changed, each feature once, in the order of `known`; the others after
// that.
Settings eachOnce(const Settings& known, const Settings& changed) {
  std::map<std::string, std::string> values;
  for (const auto& [name, value] : changed) values[name] = value;
  Settings settings;
  for (const auto& [name, value] : joined(known, changed)) {
    const auto now = values.find(name);
    if (now == values.end()) continue;
    settings.push_back({name, now->second});
    values.erase(now);
  }
  return settings;
}

// Without those of the features that are wished otherwise, which come at the end.
Settings without(Settings known, const Settings& wishes) {
  for (const host::Setting& wish : wishes) {
    std::erase_if(known, [&](const host::Setting& setting) { return setting.name == wish.name; });
  }
  return joined(std::move(known), wishes);
}

// Each wish in place of the last setting of its feature.
Settings replaced(Settings known, const Settings& wishes) {
  for (const host::Setting& wish : wishes) {
    const auto last = std::find_if(known.rbegin(), known.rend(), [&](const host::Setting& setting) {
      return setting.name == wish.name;
    });
    if (last == known.rend()) {
      known.push_back(wish);
    } else {
      last->value = wish.value;
    }
  }
  return known;
}

}  // namespace

void Journal::note(const Settings& wishes, const Settings& others, const Settings& changed,
                   const Try& tries) {
  const Settings simple = eachOnce(settings_, changed);
  if (!tries) {
    settings_ = simple;
    return;
  }
  const Settings all = joined(settings_, wishes);
  Settings best = all.size() < kMost ? all : simple;
  Match bestMatch = Match::kNone;
  for (const Settings& candidate : {simple, eachOnce(without(settings_, wishes), changed),
                                    replaced(settings_, wishes), all, joined(all, others)}) {
    const Match match = tries(candidate);
    if (match <= bestMatch) continue;
    best = candidate;
    bestMatch = match;
    if (match == Match::kAll) break;
  }
  settings_ = std::move(best);
}

}  // namespace driver_feature::page
