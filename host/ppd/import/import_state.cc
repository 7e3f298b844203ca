#include "host/ppd/import/import_state.h"

namespace driver_feature::ppd {

ImportedElement optionElement(ppd_section_t section, const ImportedOption& option) {
  ImportedElement element{"Option", {{"Name", option.name}}, {}};
  if (!option.command.empty()) element.attributes.emplace_back(commandOf(section), option.command);
  return element;
}

ImportedElement listFeature(ppd_section_t section, const std::string& name,
                            const std::string& defaultOption,
                            const std::vector<ImportedOption>& options) {
  ImportedElement feature{"Feature",
                          {{"FeatureType", "MultiSelect"},
                           {"Name", name},
                           {"DefaultValue", defaultOption},
                           {commandOf(section), "%s"}},
                          {}};
  for (const ImportedOption& option : options) {
    feature.children.push_back(optionElement(section, option));
  }
  return feature;
}

}  // namespace driver_feature::ppd
