#include "host/ipp/enablers.h"

#include <algorithm>

#include "host/settings/settings_file.h"

namespace driver_feature::ipp {

namespace {

class Trial {
 public:
  Trial(Capabilities& all, const host::Model& model) : all_(all), model_(model) {
    for (const auto& [name, view] : model.features) {
      if (const auto value = host::settingText(view)) before_.push_back({name, *value});
    }
  }

  void run() {
    for (FeatureCapability& feature : all_.features) {
      if (!view(feature).isAvailable()) missing_.push_back(&feature);
    }
    for (const FeatureCapability& list : all_.features) {
      if (missing_.empty()) return;
      if (list.isList() && !list.isHardware && view(list).isAvailable()) tryChoices(list);
    }
  }

 private:
  const host::FeatureView& view(const FeatureCapability& feature) const {
    return model_.features.at(feature.name);
  }

  void tryChoices(const FeatureCapability& list) {
    for (const ChoiceCapability& choice : list.choices) {
      if (choice.name == list.value) continue;
      const host::Setting setting{list.name, choice.name};
      if (!host::applySetting(model_, setting)) continue;
      std::erase_if(missing_, [&](FeatureCapability* feature) {
        if (!view(*feature).isAvailable()) return false;
        feature->enabler = setting;
        return true;
      });
      restore();
    }
  }

  // Routines may have changed other features, too, and may do so again.
  void restore() const {
    const int rounds = 3;
    for (int round = 0; round < rounds; ++round) {
      bool isRestored = true;
      for (const host::Setting& setting : before_) {
        const host::FeatureView& feature = model_.features.at(setting.name);
        if (host::settingText(feature) == setting.value) continue;
        isRestored = false;
        feature.setValue(setting.value);
      }
      if (isRestored) return;
    }
  }

  Capabilities& all_;
  const host::Model& model_;
  std::vector<host::Setting> before_;
  std::vector<FeatureCapability*> missing_;
};

}  // namespace

void addEnablers(Capabilities& all, const host::Model& model) {
  Trial(all, model).run();
}

}  // namespace driver_feature::ipp
