#include "host/ipp/standard_rows.h"

#include <algorithm>
#include <array>

#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

constexpr WordRow kSides[] = {
    {"one-sided", "none off false simplex onesided single singlesided 1sided no nosimplex"},
    {"two-sided-long-edge",
     "duplexnotumble longedge true on duplex twosidedlongedge notumble long book"},
    {"two-sided-short-edge", "duplextumble shortedge twosidedshortedge tumble short tablet"},
};

constexpr WordRow kColorModes[] = {
    {"auto", "auto autodetect automatic"},
    {"color",
     "color colour rgb cmyk cmy srgb adobergb fullcolor devicecmyk devicergb true cmyk32 rgb24"},
    {"monochrome",
     "monochrome mono gray grey grayscale greyscale black kgray blackandwhite bw devicegray k "
     "blackwhite false fastgray"},
    {"bi-level", "bilevel lineart"},
};

constexpr WordRow kQualities[] = {
    {"3", "draft fast econo eco economy economode low fastdraft veryfast draftvivid 3"},
    {"4", "normal standard medium everyday default text 4"},
    {"5", "high best fine quality photo superfine presentation highquality letterquality 5"},
};

constexpr WordRow kOrientations[] = {{"3", "portrait 3"},
                                     {"4", "landscape 4"},
                                     {"5", "reverselandscape 5"},
                                     {"6", "reverseportrait 6"}};

constexpr WordRow kHandling[] = {
    {"separate-documents-collated-copies", "true on collate collated collation"},
    {"separate-documents-uncollated-copies", "false off uncollated nocollate none"},
    {"single-document", ""},
    {"single-document-new-sheet", ""},
};

constexpr WordRow kSources[] = {
    {"auto", "auto automatic autoselect autosel autotray automaticallyselect default"},
    {"manual", "manual manualfeed manfeed manualfeeder"},
    {"by-pass-tray", "multipurpose mptray multipurposetray mpf mpfeeder bypass bypasstray mp"},
    {"top", "upper top"},
    {"middle", "middle"},
    {"bottom", "lower bottom"},
    {"large-capacity", "largecapacity lct largecapacitytray hcf lcc"},
    {"envelope", "envelope envfeed envelopefeeder envelopefeed"},
    {"rear", "rear"},
    {"main-roll", "roll"},
    {"tray-1", "tray1 1tray cassette1 1"},
    {"tray-2", "tray2 2tray cassette2 2"},
    {"tray-3", "tray3 3tray cassette3 3"},
    {"tray-4", "tray4 4tray cassette4 4"},
    {"tray-5", "tray5 5tray cassette5 5"},
    {"tray-6", "tray6 6tray cassette6 6"},
};

constexpr WordRow kTypes[] = {
    {"auto", "auto automatic any"},
    {"stationery", "plain plainpaper stationery paper normal regular plain1"},
    {"stationery-lightweight", "thin light lightweight thinpaper"},
    {"stationery-heavyweight", "thick heavy heavyweight thickpaper heavypaper"},
    {"stationery-letterhead", "letterhead"},
    {"stationery-preprinted", "preprinted"},
    {"stationery-prepunched", "prepunched punched"},
    {"stationery-bond", "bond bondpaper"},
    {"stationery-recycled", "recycled recycledpaper"},
    {"stationery-colored", "color colored colour coloured colorpaper"},
    {"cardstock", "cardstock card"},
    {"envelope", "envelope envelopes env"},
    {"labels", "label labels"},
    {"transparency", "transparency transparencies ohp film transp"},
    {"photographic", "photo photopaper photographic"},
    {"photographic-glossy", "glossy glossyphoto glossypaper gloss"},
    {"photographic-matte", "matte matt"},
};

constexpr WordRow kBins[] = {
    {"auto", "auto automatic"}, {"top", "upper top topbin upperbin"},
    {"middle", "middle"},       {"bottom", "lower bottom lowerbin"},
    {"face-up", "faceup rear"}, {"face-down", "facedown"},
    {"side", "side left"},      {"stacker-1", "stacker stacker1"},
};

constexpr WordRow kHold[] = {{"no-hold", "none off nohold false"}};

constexpr StandardRow kRows[] = {
    {"sides", Syntax::kKeyword, false, true,
     "duplex jclduplex efduplex kd03duplex efduplexing arduplex", kSides, "one-sided"},
    {"print-color-mode", Syntax::kKeyword, false, true,
     "colormodel colormode hpcolormode printcolormode ecolor brmonocolor arcmode selectcolor "
     "xrxcolor kccolormode",
     kColorModes, "auto"},
    {"print-quality", Syntax::kEnum, false, true,
     "cupsprintquality printquality outputmode brprintquality quality printoutmode epquality",
     kQualities, "4"},
    {"printer-resolution",
     Syntax::kResolution,
     false,
     true,
     "resolution jclresolution setresolution cnrespgp",
     {},
     "600x600dpi"},
    {"orientation-requested", Syntax::kEnum, false, true, "orientation orientationrequested",
     kOrientations, ""},
    {"multiple-document-handling", Syntax::kKeyword, false, true, "collate jclcollate kccollate",
     kHandling, ""},
    {"number-up", Syntax::kInteger, false, false, "numberup", {}, ""},
    {"job-hold-until", Syntax::kKeyword, false, false, "", kHold, ""},
    {"output-bin", Syntax::kKeyword, false, false, "outputbin outputslot", kBins, "auto"},
    {"media-source", Syntax::kKeyword, true, false, "inputslot mediasource", kSources, "auto"},
    {"media-type", Syntax::kKeyword, true, false, "mediatype brmediatype", kTypes, "auto"},
    {"media-weight-metric", Syntax::kInteger, true, false, "", {}, ""},
};

// What the description itself says in tickets, if that is a word of the row.
std::optional<std::string> ticketWord(const StandardRow& row, const std::string& name) {
  if (row.syntax == Syntax::kResolution) return resolutionWord(name);
  if (row.syntax == Syntax::kInteger) return integerIn(name) ? std::optional(name) : std::nullopt;
  for (const WordRow& each : row.words) {
    if (each.word == name) return name;
  }
  if (row.isClosed || !isKeyword(name)) return std::nullopt;
  return name;
}

}  // namespace

std::span<const StandardRow> standardRows() {
  return kRows;
}

std::optional<std::string> wordFor(const StandardRow& row, const ChoiceCapability& choice) {
  if (auto word = ticketWord(row, choice.ticketName)) return word;
  if (row.syntax == Syntax::kResolution) return resolutionWord(choice.name);
  if (row.syntax == Syntax::kInteger) {
    return integerIn(choice.name) ? std::optional(choice.name) : std::nullopt;
  }
  const std::string bare = bareName(choice.name);
  for (const WordRow& each : row.words) {
    if (isAmong(each.names, bare)) return std::string(each.word);
  }
  if (row.isClosed) return std::nullopt;
  return keywordFor(choice.name);
}

std::optional<std::string> resolutionWord(std::string_view text) {
  std::string bare = bareName(text);
  if (bare.ends_with("dpi")) bare.resize(bare.size() - 3);
  const std::string first = bare.substr(0, bare.find('x'));
  const std::string second = first.size() < bare.size() ? bare.substr(first.size() + 1) : first;
  const auto isCount = [](const std::string& number) {
    const bool isPlain = number.find_first_not_of("0123456789") == std::string::npos;
    return isPlain && !number.empty() && number.size() <= 5 && number.front() != '0';
  };
  if (!isCount(first) || !isCount(second)) return std::nullopt;
  return first + "x" + second + "dpi";
}

}  // namespace driver_feature::ipp
