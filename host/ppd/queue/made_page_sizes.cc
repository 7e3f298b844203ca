// The page sizes of a PPD that is made of a description.

#include <optional>
#include <string>
#include <vector>

#include "host/ppd/queue/choice_names.h"
#include "host/ppd/queue/made_options.h"
#include "host/settings/settings_file.h"

namespace driver_feature::ppd {

bool MadeOptionWriter::isPageSizeList(const host::FeatureView& feature) {
  return feature.kind() == host::FeatureKind::kMultiSelect && feature.isVisible() &&
         !feature.isEncrypted();
}

// The page sizes: a PPD must have some. Programs want to know them, and PPDs have
// to give them twice.
void MadeOptionWriter::addPageSizes() {
  const auto feature = model_.features.find(kPageSize);
  const bool isOffered = feature != model_.features.end() && isPageSizeList(feature->second);
  std::vector<PageSize> sizes = isOffered ? sizesOf(feature->second) : std::vector<PageSize>();
  // The choice until the user makes one: that of the description.
  std::string usual = isOffered ? feature->second.currentChoice().value_or("") : "";
  if (isOffered && usual == "not set") usual = usualSize_;
  if (sizes.empty()) sizes = standardPageSizes();
  if (feature == model_.features.end()) usual = sizes.front().name;
  writePageSizes(sizes, usual);
  if (isOffered) addRegionRule(&feature->second);
}

// Where the description has no size selected, the tray says it, or the region:
// the filter is to leave that so unless another size is chosen.
void MadeOptionWriter::addRegionRule(const host::FeatureView* size) {
  if (usualSize_.empty() || size->currentChoice().value_or("") != "not set") return;
  const auto region = model_.features.find(kPageRegion);
  const bool isRegion = region != model_.features.end() && isPageSizeList(region->second) &&
                        region->second.currentChoice().value_or("not set") != "not set";
  if (isRegion) return line("*RequiresPageRegion All: ", "True");
  line("*DriverFeatureUnsetSize: ", '"' + usualSize_ + '"');
}

std::vector<PageSize> MadeOptionWriter::sizesOf(const host::FeatureView& feature) {
  std::vector<PageSize> sizes;
  for (const NamedChoice& choice : namedChoices(model_, kPageSize, feature, losses_)) {
    const auto described = media_.find(choice.option);
    const host::MediaSize* known = described != media_.end() ? &described->second : nullptr;
    if (const std::optional<PageSize> size = pageSizeOf(model_, known, choice.option)) {
      sizes.push_back(*size);
    } else {
      lose(std::string(kPageSize) + "=" + choice.option,
           "its size is not known; give it a name such as A4 or w612h792, or a PSCommand with "
           "/PageSize [WIDTH LENGTH]");
    }
  }
  return sizes;
}

void MadeOptionWriter::writePageSizes(const std::vector<PageSize>& sizes,
                                      const std::string& usual) {
  std::vector<NamedChoice> names;
  names.reserve(sizes.size());
  for (const PageSize& size : sizes) names.push_back({size.name, size.name});
  const std::string current = hasName(names, usual) ? usual : kUnknown;
  writeList(kPageSize, names, current, kPageSize);
  const bool hasRegion = model_.features.contains(kPageRegion);
  writeList(kPageRegion, names, current, hasRegion ? kPageRegion : kPageSize);
  line("*DefaultImageableArea: " + current);
  for (const PageSize& size : sizes) {
    line("*ImageableArea ", size.name, ": \"", host::numberText(size.left), " ",
         host::numberText(size.bottom), " ", host::numberText(size.right), " ",
         host::numberText(size.top), "\"");
  }
  line("*DefaultPaperDimension: " + current);
  for (const PageSize& size : sizes) {
    line("*PaperDimension ", size.name, ": \"", host::numberText(size.width), " ",
         host::numberText(size.length), "\"");
  }
}

}  // namespace driver_feature::ppd
