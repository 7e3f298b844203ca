#include "model/feature_index.h"

#include <bit>
#include <functional>
#include <new>

namespace driver_feature {

namespace {

std::size_t hashOf(const std::string& name) {
  return std::hash<std::string>()(name);
}

}  // namespace

DriverFeature* FeatureIndex::find(const Features& features, const std::string& name) const {
  if (slots_.empty()) {
    const auto found = features.find(name);
    return found != features.end() ? found->second : nullptr;
  }
  const std::size_t hash = hashOf(name);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = hash & mask; slots_[at].entry != nullptr; at = (at + 1) & mask) {
    const Slot& slot = slots_[at];
    if (slot.hash == hash && slot.entry->first == name) return slot.entry->second;
  }
  return nullptr;
}

void FeatureIndex::make(const Features& features) {
  slots_.clear();
  slots_.resize(std::bit_ceil(2 * features.size()));
  for (const auto& entry : features) fill(entry);
}

void FeatureIndex::add(const Features& features, const Features::value_type& entry) noexcept try {
  if (slots_.empty()) return;
  if (2 * features.size() > slots_.size()) return make(features);
  fill(entry);
} catch (const std::bad_alloc&) {
  // Nothing is listed then.
}

void FeatureIndex::fill(const Features::value_type& entry) {
  const std::size_t hash = hashOf(entry.first);
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at].entry != nullptr) at = (at + 1) & mask;
  slots_[at] = {hash, &entry};
}

}  // namespace driver_feature
