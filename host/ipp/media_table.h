// The sizes of a description's media as IPP names them.
#ifndef HOST_IPP_MEDIA_TABLE_H_
#define HOST_IPP_MEDIA_TABLE_H_

#include <optional>
#include <string>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Adds the sizes, a second one of the same size with a name of its own, and the
// limits of custom ones. Standard sizes, which change no feature, when the
// description has none.
void addMedia(AttributeTable& table, const Capabilities& all);

struct MediaChoice {
  std::vector<host::Setting> settings;
  int width = 0;
  int height = 0;
};

// The settings for a size: those of an entry, or a custom size.
MediaChoice mediaChoice(const AttributeTable& table, const MediaEntry& entry);
std::optional<MediaChoice> customChoice(const AttributeTable& table, int width, int height);

// The margins of a size that are asked for; -1: any.
struct WantedMargins {
  int left = -1;
  int bottom = -1;
  int right = -1;
  int top = -1;
};

// The entry with these dimensions, each at most half a millimetre away; of several
// the one with the wanted margins, or else the first. Null without one.
const MediaEntry* entryOfSize(const AttributeTable& table, int width, int height,
                              const WantedMargins& margins);

// What a media-name means: an entry by its keyword, or the size that the name says.
std::optional<MediaChoice> choiceNamed(const AttributeTable& table, const std::string& keyword);

// The entry that the settings have chosen; null when it is not one of the table's.
const MediaEntry* entryOfSettings(const AttributeTable& table,
                                  const std::vector<host::Setting>& settings);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_MEDIA_TABLE_H_
