// The sizes of the sheets that a description's feature "PageSize" has choices
// for, as a PPD gives them.
#ifndef HOST_PPD_QUEUE_PAGE_SIZES_H_
#define HOST_PPD_QUEUE_PAGE_SIZES_H_

#include <optional>
#include <string>
#include <vector>

#include "host/description/media_sizes.h"
#include "host/settings/setting.h"

namespace driver_feature::ppd {

// In points.
struct PageSize {
  std::string name;
  float width = 0;
  float length = 0;
  // The edges of the part that can be printed on, from the sheet's lower left
  // corner.
  float left = 0;
  float bottom = 0;
  float right = 0;
  float top = 0;
};

// The size of a choice of the feature "PageSize"; nothing when it is not known.
// It is the one described, which may be null. Without it, it is that of a name such as w612h792; or
// that of the choice's PostScript command, which holds "/PageSize [WIDTH LENGTH]" or nothing but
// the two numbers; or that of a standard name: the choice's name in tickets or its own, such as A4,
// 4x6in or A4.Fullbleed.
std::optional<PageSize> pageSizeOf(const host::Model& model, const host::MediaSize* described,
                                   const std::string& choice);

// Those of a PPD whose description has none.
std::vector<PageSize> standardPageSizes();

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_PAGE_SIZES_H_
