#include "host/ipp/preset_names.h"

#include <set>
#include <string>

#include "host/ipp/finishings.h"
#include "host/ipp/words.h"

namespace driver_feature::ipp {

void addPresetEntries(AttributeTable& table, const Capabilities& all) {
  std::set<std::string> taken = {"none"};
  for (const FinishingEntry& entry : table.finishings) {
    taken.insert(bareName(finishingKeyword(entry.number)));
  }
  for (const PresetCapability& preset : all.presets) {
    const std::string word = keywordFor(preset.name);
    std::string distinct = word;
    for (int number = 2; !taken.insert(bareName(distinct)).second; ++number) {
      distinct = word + "-" + std::to_string(number);
    }
    table.presets.push_back({distinct, &preset});
  }
}

}  // namespace driver_feature::ipp
