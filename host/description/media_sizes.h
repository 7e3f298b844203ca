// The sizes of the media that a feature chooses from.
#ifndef HOST_DESCRIPTION_MEDIA_SIZES_H_
#define HOST_DESCRIPTION_MEDIA_SIZES_H_

#include <string>
#include <vector>

#include "host/description/rules.h"

namespace driver_feature::host {

// The size of one option, in millimetres.
struct MediaSize {
  std::string option;
  double width = 0;
  double height = 0;
  double left = 0;  // Margins that cannot be printed on.
  double bottom = 0;
  double right = 0;
  double top = 0;
  SourcePlace place = {};
};

// The feature that chooses the page size, and its sizes.
struct MediaSizes {
  std::string feature;  // Empty when the description has none.
  // The option whose size counts while the feature has none of the sizes
  // selected, because the printer takes that of the tray; may be empty.
  std::string usual;
  std::vector<MediaSize> sizes;
  SourcePlace place = {};
};

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_MEDIA_SIZES_H_
